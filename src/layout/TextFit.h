#pragma once

#include <string>

#include "host/Host.h"

namespace gazetteer {

/// Fits texts to columns: the line breaker and the dot-leader filler. All sizes are asked of the
/// host for real text; the system computes no font metrics of its own.
class TextFit {
public:
    TextFit(host::IHost& host, host::Ref<host::IHostDisplay> display);

    /// Inner procedure: size in inches of an element's text in its symbol.
    void GetTextSize(host::IHostTextElement& element, double& width, double& height);

    /// Inner procedure: the exact string, with CRLF line ends, that a text element of the given
    /// inner width (inches) holds. On return the caller's text has its "$$NEWLINE" replaced by CRLF
    /// and its "$$DOTS" removed. Fails if the first character that is kept does not fit.
    std::string SplitText(std::string& text, double width,
                          const host::Ref<host::IHostTextSymbol>& symbol);

    /// Width in inches of a text in a symbol, the widest of its lines.
    double Width(host::IHostTextSymbol& symbol, const std::string& text);

private:
    std::string WithoutLastLineEnd(std::string text);

    host::IHost& host_;
    host::Ref<host::IHostDisplay> display_;
    host::Ref<host::IHostTextElement> scratch_;
    host::Ref<host::IHostTextParser> parser_;
};

}  // namespace gazetteer
