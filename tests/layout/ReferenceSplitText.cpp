#include "ReferenceSplitText.h"

#include <vector>

#include "support/ErrorHandling.h"
#include "support/Text.h"

namespace reference {
namespace {

using Characters = std::vector<std::string>;

std::string Joined(const Characters& characters) {
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
        display->BeginDrawing(display->Device(), -1);
        const auto size = symbol->MeasureText(display->Device(), display->Transformation(), text);
        display->EndDrawing();
        return size.xSize / 72;
    }

    std::string Fill(const std::string& filledTemplate, double x) const {
        std::string dots = ".";
        while (x <= width) {
            x = Measure(gazetteer::ReplaceAll(filledTemplate, "$$DOTS", dots));
            dots += ".";
        }
        dots.resize(dots.size() - 2);
        return gazetteer::ReplaceAll(filledTemplate, "$$DOTS", dots);
    }

    std::string DotsBehind(const std::string& result) const {
        double x = Measure(result);
        std::string dots = ".";
        while (x <= width) {
            x = Measure(result + dots);
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
            if (character == " " && atLineStart) {
                first = false;
                continue;
            }
            if (character == " ") {
                sinceSpace = 0;
                spaceInLine = true;
            } else if (spaceInLine) {
                ++sinceSpace;
            }
            if (Measure(Joined(result) + character) <= width) {
                result.push_back(character);
                atLineStart = false;
                first = false;
                continue;
            }
            if (first || result.empty())
                gazetteer::Raise("CVNGazetteerManager.SplitText",
                                 "Column width is set too narrow for selected Font!");
            if (character == " ") {
                result.insert(result.end(), {"\r", "\n"});
                atLineStart = true;
            } else if (spaceInLine) {
                const std::size_t kept = result.size() - sinceSpace;
                const Characters moved(result.begin() + static_cast<long>(kept) + 1, result.end());
                result.resize(kept);
                result.insert(result.end(), {"\r", "\n"});
                result.insert(result.end(), moved.begin(), moved.end());
                result.push_back(character);
                atLineStart = false;
            } else {
                const std::string last = result.back();
                result.pop_back();
                result.insert(result.end(), {"-", "\r", "\n", last, character});
                atLineStart = false;
            }
            spaceInLine = false;
            sinceSpace = 0;
            first = false;
        }
        return result;
    }
};

}  // namespace

std::string SplitText(host::IHost& host, const host::Ref<host::IHostDisplay>& display,
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
        result = x < width && hasDots ? loops.Fill(filledTemplate, x) : text;
    } else {
        result = Joined(loops.Wrap(text));
        if (hasDots && dotsAtEnd) result += loops.DotsBehind(result);
    }
    std::string trimmed = result;
    while (!trimmed.empty() && trimmed.back() == ' ') trimmed.pop_back();
    if (!trimmed.empty() && trimmed.back() == '\n' && result.find("\r\n") != std::string::npos)
        result.resize(result.rfind("\r\n"));
    return result;
}

}  // namespace reference
