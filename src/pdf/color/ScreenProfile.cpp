#include "pdf/color/ScreenProfile.h"

#include <algorithm>
#include <lcms2.h>
#include <memory>

#include "glyphs/Releaser.h"
#include "pdf/file/Output.h"

namespace pdf {
namespace {

using Profile = std::unique_ptr<void, glyphs::Releaser<cmsCloseProfile>>;

/// Place and length of the time of making in a profile's header (ICC.1:2010, 7.2).
constexpr std::size_t kTimeAt = 24;
constexpr std::size_t kTimeBytes = 12;

}  // namespace

std::string ScreenProfile() {
    const Profile profile(cmsCreate_sRGBProfile());
    // The newest one that PDF 1.7 names (ICC.1:2004-10).
    if (profile) cmsSetProfileVersion(profile.get(), 4.2);
    cmsUInt32Number size = 0;
    if (!profile || !cmsSaveProfileToMem(profile.get(), nullptr, &size))
        throw Error("The colour profile of screens cannot be made.");
    std::string bytes(size, '\0');
    cmsSaveProfileToMem(profile.get(), bytes.data(), &size);
    // 1 January 2000, in numbers of two bytes: year, month, day, and hour, minute, second.
    constexpr std::string_view kTime("\x07\xD0\0\x01\0\x01\0\0\0\0\0\0", kTimeBytes);
    std::ranges::copy(kTime, bytes.begin() + kTimeAt);
    return bytes;
}

}  // namespace pdf
