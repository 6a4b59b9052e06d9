#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/Host.h"
#include "layout/PairWidths.h"

namespace gazetteer {

/// Inches.
struct TextSize {
    double width = 0;  ///< Of the widest line.
    double height = 0;
};

/// What dots at its end make of a line.
class DottedLine {
public:
    /// The line's width in points without dots, with one and with two. Each further one adds what
    /// the second does.
    DottedLine(double none, double one, double two) : none_(none), one_(one), step_(two - one) {}

    /// Inches.
    double Width(std::size_t dots) const;

    bool GrowsWithDots() const { return step_ > 0; }

    /// About how many dots fill a width in inches, of a line that grows and is no wider.
    double DotsIn(double width) const;

private:
    double none_, one_, step_;
};

/// Asks the host for the sizes of texts in one symbol. The symbol must not change for its life.
class TextMeasure {
public:
    TextMeasure(const host::Ref<host::IHostDisplay>& display,
                const host::Ref<host::IHostTextSymbol>& symbol);

    /// The text asked for last is remembered, and a line that can be summed up is not asked for.
    /// The failures are those of GetTextSize.
    TextSize Size(const std::string& text);

    double Width(const std::string& text) { return Size(text).width; }

    /// The widths, in inches, of those beginnings of a line that end before the given bytes, in one
    /// question at most. Null where the host does not tell them at once. Valid until the next call.
    const std::vector<double>* PrefixWidths(const std::string& line,
                                            std::span<const std::size_t> ends);

    /// Nothing for a line that cannot be summed up.
    std::optional<DottedLine> Dotted(const std::string& line);

    /// Remembers a line whose width PrefixWidths or a DottedLine told.
    void Remember(const std::string& line, double width);

    const host::IHostTextSymbol& Symbol() const { return *symbol_; }

private:
    TextSize Ask(const std::string& text);
    double LineHeight();

    host::Ref<host::IHostDisplay> display_;
    host::Ref<host::IHostTextSymbol> symbol_;
    PairWidths pairs_;
    std::vector<double> prefixes_;      ///< Told last.
    std::optional<double> lineHeight_;  ///< Of a text of one line, in inches.
    std::string lastText_;
    TextSize lastSize_;
    bool hasLast_ = false;
};

}  // namespace gazetteer
