#include "pdf/color/PressProfile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <lcms2.h>

#include "pdf/file/Output.h"

namespace pdf {
namespace {

using Profile = std::unique_ptr<void, glyphs::Releaser<cmsCloseProfile>>;

std::string NameOf(cmsHPROFILE profile) {
    std::array<char, 256> name{};
    cmsGetProfileInfoASCII(profile, cmsInfoDescription, "en", "US", name.data(), name.size());
    return name[0] == '\0' ? "Custom" : name.data();  // The word that PDF/X has for it.
}

/// Returns the size that the profile tells, four bytes with the highest first (ICC.1:2010, 7.2.2).
std::size_t SizeIn(const std::string& bytes) {
    std::size_t size = 0;
    for (const char byte : bytes.substr(0, 4)) size = size << 8U | static_cast<unsigned char>(byte);
    return size;
}

/// Opens the profile. Removes bytes that follow its end. Throws Error for any other profile.
Profile Open(std::string& bytes) {
    Profile profile(
        cmsOpenProfileFromMem(bytes.data(), static_cast<cmsUInt32Number>(bytes.size())));
    if (!profile) throw Error("it is no ICC profile");
    constexpr std::size_t kHeader = 128;
    bytes.resize(std::min(bytes.size(), std::max(SizeIn(bytes), kHeader)));
    if (cmsGetDeviceClass(profile.get()) != cmsSigOutputClass ||
        cmsGetColorSpace(profile.get()) != cmsSigCmykData)
        throw Error("it is no profile of a press with CMYK colours");
    return profile;
}

/// Luminance of an sRGB value (IEC 61966-2-1), 0 to 1.
double LightOfScreen(std::uint32_t value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

}  // namespace

void ReleaseTransform(void* transform) {
    if (transform) cmsDeleteTransform(transform);
}

PressProfile::PressProfile(std::string bytes) : bytes_(std::move(bytes)) {
    const Profile press = Open(bytes_);
    const Profile screen(cmsCreate_sRGBProfile());
    const Profile lab(cmsCreateLab4Profile(nullptr));
    // A page has few colours: precision goes before speed.
    constexpr cmsUInt32Number kExact = cmsFLAGS_NOOPTIMIZE | cmsFLAGS_NOCACHE;
    fromScreen_.reset(cmsCreateTransform(screen.get(), TYPE_RGB_8, press.get(), TYPE_CMYK_16,
                                         INTENT_RELATIVE_COLORIMETRIC,
                                         kExact | cmsFLAGS_BLACKPOINTCOMPENSATION));
    toLab_.reset(cmsCreateTransform(press.get(), TYPE_CMYK_DBL, lab.get(), TYPE_Lab_DBL,
                                    INTENT_RELATIVE_COLORIMETRIC, kExact));
    if (!fromScreen_ || !toLab_) throw Error("it does not tell how to convert colours");
    name_ = NameOf(press.get());
}

Cmyk PressProfile::Convert(std::uint32_t rgb) const {
    const std::uint32_t red = rgb & 0xFFU;
    if (rgb == red * 0x010101U) return {0, 0, 0, BlackFor(LightOfScreen(red))};
    const std::array<std::uint8_t, 3> from{static_cast<std::uint8_t>(red),
                                           static_cast<std::uint8_t>(rgb >> 8U),
                                           static_cast<std::uint8_t>(rgb >> 16U)};
    std::array<std::uint16_t, 4> to{};
    cmsDoTransform(fromScreen_.get(), from.data(), to.data(), 1);
    const auto share = [&](std::size_t ink) { return to.at(ink) / 65535.0; };
    return {share(0), share(1), share(2), share(3)};
}

/// Returns the luminance of paper with this share of black ink, 1 for none.
double PressProfile::LightOf(double black) const {
    const std::array<double, 4> inks{0, 0, 0, 100 * black};  // Percent.
    cmsCIELab lab{};
    cmsDoTransform(toLab_.get(), inks.data(), &lab, 1);
    cmsCIEXYZ xyz{};
    cmsLab2XYZ(nullptr, &xyz, &lab);
    return xyz.Y;
}

/// Returns the share of black ink for a luminance, which is scaled to what black ink can do.
double PressProfile::BlackFor(double light) const {
    const double darkest = LightOf(1);
    const double wanted = darkest + (LightOf(0) - darkest) * light;
    double low = 0;
    double high = 1;
    if (light <= 0) return high;
    if (light >= 1) return low;
    constexpr int kSteps = 20;  // To a millionth.
    for (int step = 0; step < kSteps; ++step) {
        const double middle = (low + high) / 2;
        (LightOf(middle) > wanted ? low : high) = middle;
    }
    return (low + high) / 2;
}

}  // namespace pdf
