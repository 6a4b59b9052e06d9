#pragma once

#include <string>
#include <unordered_map>

#include "host/Host.h"
#include "layout/TextMeasure.h"

namespace gazetteer {

/// Fits texts to columns: the line breaker and the dot-leader filler. All sizes are asked of the
/// host for real text; the system computes no font metrics of its own. Symbols must not change
/// while a fitter is in use.
class TextFit {
public:
    TextFit(host::IHost& host, host::Ref<host::IHostDisplay> display);

    /// Inner procedure: size in inches of an element's text in its symbol.
    TextSize GetTextSize(const host::IHostTextElement& element) {
        return MeasureOf(element.Symbol()).Size(element.Text());
    }

    /// Inner procedure: the exact string, with CRLF line ends, that a text element of the given
    /// inner width (inches) holds. On return the caller's text has its "$$NEWLINE" replaced by CRLF
    /// and its "$$DOTS" removed. Fails if the first character that is kept does not fit.
    std::string SplitText(std::string& text, double width,
                          const host::Ref<host::IHostTextSymbol>& symbol);

    /// Whether the host finds markup in the text.
    bool HasMarkup(const std::string& text) const { return parser_ && Plain(text) != text; }

    /// Whether the text fitted last has a word that is longer than a line.
    bool BrokeWord() const { return brokeWord_; }

private:
    TextMeasure& MeasureOf(const host::Ref<host::IHostTextSymbol>& symbol);
    std::string Plain(const std::string& text) const;
    std::string WithoutLastLineEnd(std::string text);

    host::IHost& host_;
    host::Ref<host::IHostDisplay> display_;
    host::Ref<host::IHostTextElement> scratch_;
    host::Ref<host::IHostTextParser> parser_;  ///< Null where texts have no markup.
    std::unordered_map<const host::IHostTextSymbol*, TextMeasure> measures_;
    bool brokeWord_ = false;
};

}  // namespace gazetteer
