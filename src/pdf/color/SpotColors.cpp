#include "pdf/color/SpotColors.h"

#include <algorithm>

#include "pdf/color/ColorText.h"
#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

std::string NameObject(const std::string& text) {
    std::string name = "/";
    for (const char byte : text) {
        const auto code = static_cast<unsigned char>(byte);
        const bool isPlain = code > ' ' && code <= '~' &&
                             std::string_view("#/()<>[]{}%").find(byte) == std::string_view::npos;
        if (isPlain) {
            name += byte;
            continue;
        }
        name += '#';
        AppendHex(name, code, 2);
    }
    return name;
}

std::string InkTextOf(const Cmyk& process) {
    return ColorText(Color(0, std::make_shared<const Ink>(Ink{{}, process})));
}

}  // namespace

int SpotColors::Use(const std::string& name, const Cmyk& process, bool isTold) {
    const auto found = std::ranges::find(spots_, name, &Spot::name);
    const auto number = static_cast<int>(found - spots_.begin());
    if (found == spots_.end()) {
        spots_.push_back({name, process, isTold, {}});
    } else if (isTold && !found->isTold) {
        found->process = process;
        found->isTold = true;
    } else if (isTold && found->process != process) {
        found->conflict = InkTextOf(process);
    }
    return number;
}

std::string SpotColors::Write(ObjectFile& file) const {
    std::string entries;
    for (const Spot& spot : spots_) {
        if (!spot.conflict.empty())
            throw Error("The spot colour \"" + spot.name + "\" has two definitions: " +
                        InkTextOf(spot.process) + " and " + spot.conflict + '.');
        std::string space = "[/Separation" + NameObject(spot.name) +
                            "/DeviceCMYK<</FunctionType 2/N 1/Domain[0 1]/C0[0 0 0 0]/C1[";
        const Cmyk& inks = spot.process;
        for (const double share : {inks.cyan, inks.magenta, inks.yellow, inks.black})
            space += Number(share, 4) + ' ';
        entries += "/S" + std::to_string(&spot - spots_.data()) + ' ' +
                   Reference(file.WriteObject(space + "]>>]"));
    }
    return entries;
}

}  // namespace pdf
