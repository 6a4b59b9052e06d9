#include "pdf/color/PageColors.h"

#include "pdf/color/ScreenProfile.h"
#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

/// Of shares of inks. Plates have 256 steps.
constexpr int kShareDecimals = 4;

/// Neutral colours are written as grey, which printers make of black alone.
void AppendForScreen(std::string& out, std::uint32_t rgb, PageColors::Use use) {
    const auto append = [&](unsigned shift) {
        AppendNumber(out, ((rgb >> shift) & 0xFF) / 255.0);
        out += ' ';
    };
    const bool isGrey = rgb == (rgb & 0xFF) * 0x010101;
    for (const unsigned shift : {0U, 8U, 16U})
        if (shift == 0 || !isGrey) append(shift);
    if (use == PageColors::Use::Fill)
        out += isGrey ? "g\n" : "rg\n";
    else
        out += isGrey ? "G\n" : "RG\n";
}

}  // namespace

void PageColors::Append(std::string& out, const Color& color, Use use) {
    if (!press_) return AppendForScreen(out, color.rgb, use);
    const Cmyk inks = ProcessOf(color);
    if (color.ink && !color.ink->spot.empty()) {
        const bool isTold = color.ink->process || color.rgb != 0;
        return AppendSpot(out, spots_.Use(color.ink->spot, inks, isTold), use);
    }
    for (const double share : {inks.cyan, inks.magenta, inks.yellow, inks.black}) {
        AppendNumber(out, share, kShareDecimals);
        out += ' ';
    }
    out += use == Use::Fill ? "k\n" : "K\n";
}

void PageColors::AppendAllPlates(std::string& out) {
    AppendSpot(out, spots_.Use(SpotColors::kAllPlates, {1, 1, 1, 1}, true), Use::Stroke);
}

void PageColors::AppendSpot(std::string& out, int number, Use use) {
    out += "/S" + std::to_string(number) + (use == Use::Fill ? " cs 1 scn\n" : " CS 1 SCN\n");
}

bool PageColors::Overprints(const Color& color) {
    if (!press_ || (color.ink && !color.ink->spot.empty())) return false;
    return ProcessOf(color) == Cmyk{0, 0, 0, 1};
}

void PageColors::AppendOverprint(std::string& out, bool overprints) {
    out += overprints ? "/O gs\n" : "/K gs\n";
}

std::string PageColors::PictureSpace() {
    if (!press_) return "/DeviceRGB";
    if (pictureProfile_ == 0) pictureProfile_ = file_.WriteStream("/N 3", ScreenProfile());
    return "[/ICCBased " + Reference(pictureProfile_) + ']';
}

std::string PageColors::WriteResources() {
    if (!press_) return {};
    const std::string spots = spots_.Write(file_);
    // OPM 1: an ink whose share is 0 leaves what is below it.
    return "/ExtGState<</O<</Type/ExtGState/OP true/op true/OPM 1>>/K<</Type/ExtGState/OP false/op "
           "false>>>>" +
           (spots.empty() ? "" : "/ColorSpace<<" + spots + ">>");
}

const Cmyk& PageColors::Inks(std::uint32_t rgb) {
    const auto [known, isNew] = inks_.try_emplace(rgb);
    if (isNew) known->second = press_->Convert(rgb);
    return known->second;
}

Cmyk PageColors::ProcessOf(const Color& color) {
    if (color.ink)
        if (const auto& told = color.ink->process) return *told;
    return Inks(color.rgb);
}

}  // namespace pdf
