#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

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
                const host::Ref<host::IHostTextSymbol>& symbol);

    /// The text asked for last is remembered. Its failures are those of GetTextSize.
    TextSize Size(const std::string& text);

    double Width(const std::string& text) { return Size(text).width; }

    /// The widths, in inches, of those beginnings of a line that end before the given bytes, in one
    /// question. Null where the host does not tell them at once. Valid until the next question.
    const std::vector<double>* PrefixWidths(const std::string& line,
                                            std::span<const std::size_t> ends);

    /// Remembers a beginning whose size PrefixWidths told.
    void Remember(const std::string& prefix, double width);

    const host::IHostTextSymbol& Symbol() const { return *symbol_; }

private:
    host::Ref<host::IHostDisplay> display_;
    host::Ref<host::IHostTextSymbol> symbol_;
    host::Ref<host::IHostTextPrefixes> prefixes_;  ///< Null where the host has none.
    host::PrefixExtents extents_;
    std::string lastText_;
    TextSize lastSize_;
    bool hasLast_ = false;
};

}  // namespace gazetteer
