#pragma once

#include <string>
#include <vector>

#include "host/Host.h"
#include "support/ErrorHandling.h"
#include "support/Text.h"

namespace reference {

using Characters = std::vector<std::string>;

inline std::string Joined(const Characters& characters) {
    std::string text;
    for (const auto& character : characters) text += character;
    return text;
}

struct Loops {
    host::IHost& host;
    const host::Ref<host::IHostDisplay>& display;
    double width;
    const host::Ref<host::IHostTextSymbol>& symbol;

    double Measure(const std::string& text) const {
        display->BeginDrawing(display->DeviceContext(), -1);
        const auto size =
            symbol->MeasureText(display->DeviceContext(), display->Transformation(), text);
        display->EndDrawing();
        return size.xSize / 72;
    }

    // As many dots as a text built with them has room for; it is x wide without any.
    template <class Build>
    std::string Dots(double x, const Build& with) const {
        std::string dots = ".";
        while (x <= width) {
            x = Measure(with(dots));
            dots += ".";
        }
        dots.resize(dots.size() < 2 ? 0 : dots.size() - 2);
        return dots;
    }

    Characters Wrap(const std::string& text) const {
        Characters result;
        bool first = true;
        bool atLineStart = true;
        bool spaceInLine = false;
        std::size_t sinceSpace = 0;
        std::size_t at = 0;
        for (const std::size_t length : host.Locale().Characters(text)) {
            const std::string character = text.substr(at, length);
            at += length;
            const bool isSpace = character == " ";
            const bool isSkipped = isSpace && atLineStart;
            const bool fits = isSkipped || Measure(Joined(result) + character) <= width;
            if (!fits && (first || result.empty()))
                gazetteer::Raise("CVNGazetteerManager.SplitText",
                                 "Column width is set too narrow for selected Font!");
            first = false;
            if (isSkipped) continue;
            atLineStart = isSpace && !fits;
            spaceInLine = spaceInLine || isSpace;
            sinceSpace = isSpace || !spaceInLine ? 0 : sinceSpace + 1;
            if (fits) {
                result.push_back(character);
                continue;
            }
            if (isSpace) {
                result.insert(result.end(), {"\r", "\n"});
            } else if (spaceInLine) {
                const auto space = result.end() - static_cast<long>(sinceSpace);
                *space = "\n";
                result.insert(space, "\r");
                result.push_back(character);
            } else {
                result.insert(result.end() - 1, {"-", "\r", "\n"});
                result.push_back(character);
            }
            spaceInLine = false;
            sinceSpace = 0;
        }
        return result;
    }
};

/// The plain loops of fitting a text: measure the growing text once per character and once per dot.
/// Slow, and by its plainness the measure of what the shipped one must answer.
inline std::string SplitText(host::IHost& host, const host::Ref<host::IHostDisplay>& display,
                             std::string& text, double width,
                             const host::Ref<host::IHostTextSymbol>& symbol) {
    const Loops loops{host, display, width, symbol};
    text = gazetteer::ReplaceAll(text, "$$NEWLINE", "\r\n");
    const std::string filledTemplate = text;
    const auto dotsPosition = text.find("$$DOTS");
    const bool hasDots = dotsPosition != std::string::npos;
    text = gazetteer::ReplaceAll(text, "$$DOTS", "");
    const bool dotsAtEnd = hasDots && dotsPosition == text.size();

    const double x = loops.Measure(text);
    std::string result;
    if (x <= width) {
        const auto filled = [&](const std::string& dots) {
            return gazetteer::ReplaceAll(filledTemplate, "$$DOTS", dots);
        };
        result = x < width && hasDots ? filled(loops.Dots(x, filled)) : text;
    } else {
        const std::string lines = Joined(loops.Wrap(text));
        const auto longer = [&](const std::string& dots) { return lines + dots; };
        result = dotsAtEnd ? longer(loops.Dots(loops.Measure(lines), longer)) : lines;
    }
    std::string trimmed = result;
    while (!trimmed.empty() && trimmed.back() == ' ') trimmed.pop_back();
    if (!trimmed.empty() && trimmed.back() == '\n' && result.find("\r\n") != std::string::npos)
        result.resize(result.rfind("\r\n"));
    return result;
}

}  // namespace reference
