#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "glyphs/Releaser.h"
#include "pdf/color/Color.h"

namespace pdf {

void ReleaseTransform(void* transform);

/// The colours of a press with its paper: an ICC profile of an output device with CMYK colours.
class PressProfile {
public:
    /// Takes the bytes of a profile's file. Throws Error with a clause, such as "it is no ICC
    /// profile", for other bytes and other profiles.
    explicit PressProfile(std::string bytes);

    const std::string& Bytes() const { return bytes_; }
    /// Returns what the profile calls itself.
    const std::string& Name() const { return name_; }

    /// Returns what comes closest to a colour of a screen, 0xBBGGRR, relative to the paper's white.
    /// The darkest black of the screen becomes that of the press, and what lies between is scaled
    /// (black point compensation), so that dark colours stay apart. A neutral colour is black ink
    /// alone, of the same lightness: colours that are a little out of register blur fine type.
    Cmyk Convert(std::uint32_t rgb) const;

private:
    using Transform = std::unique_ptr<void, glyphs::Releaser<ReleaseTransform>>;

    double LightOf(double black) const;
    double BlackFor(double light) const;

    std::string bytes_;
    std::string name_;
    Transform fromScreen_;
    Transform toLab_;
};

/// How pages are made ready for a press. Lengths are points.
struct Press {
    std::shared_ptr<const PressProfile> profile;
    double bleed = 0;        ///< Beyond each edge of the sheet.
    bool cropMarks = false;  ///< Outside the bleed.
    std::int64_t time = 0;   ///< Of the input, in seconds since 1970: the date of the file, unless
                             ///< SOURCE_DATE_EPOCH tells one.
};

}  // namespace pdf
