#pragma once

#include <optional>
#include <string>

#include "host/Host.h"

namespace gazetteer {

/// Inches.
struct TextSize {
    double width = 0;  ///< Of the widest line.
    double height = 0;
};

/// Asks the host for the sizes of texts in one symbol. The symbol must not change for its life.
class TextMeasure {
public:
    TextMeasure(const host::Ref<host::IHostDisplay>& display,
                const host::Ref<host::IHostTextSymbol>& symbol)
        : display_(display), symbol_(symbol) {}

    /// The text asked for last is remembered. Failures name GetTextSize.
    TextSize Size(const std::string& text);

    double Width(const std::string& text) { return Size(text).width; }

    /// Width in inches that one more dot adds to a line that ends in a dot.
    double DotWidth();

    const host::IHostTextSymbol& Symbol() const { return *symbol_; }

private:
    host::Ref<host::IHostDisplay> display_;
    host::Ref<host::IHostTextSymbol> symbol_;
    std::string lastText_;
    std::optional<TextSize> lastSize_;
    std::optional<double> dotWidth_;
};

}  // namespace gazetteer
