#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace pdf {

/// Shares of the process inks, 0 to 1.
struct Cmyk {
    double cyan = 0, magenta = 0, yellow = 0, black = 0;

    bool operator==(const Cmyk&) const = default;
};

/// What a press prints a colour with: a spot colour, or shares of the process inks.
struct Ink {
    std::string spot;             ///< Its name, UTF-8; empty: none.
    std::optional<Cmyk> process;  ///< With a spot colour: what stands in for it, if told.

    bool operator==(const Ink&) const = default;
};

/// A colour of a page, as screens show it and, if the ink is known, as a press prints it. A press
/// without the ink prints what comes closest to the screen.
struct Color {
    Color() = default;
    // Implicit, because most colours have no ink.
    Color(std::uint32_t screen, std::shared_ptr<const Ink> press = nullptr)
        : rgb(screen), ink(std::move(press)) {}

    bool operator==(const Color& other) const {
        return rgb == other.rgb && (ink == other.ink || (ink && other.ink && *ink == *other.ink));
    }

    std::uint32_t rgb = 0;  ///< 0xBBGGRR.
    std::shared_ptr<const Ink> ink;
};

}  // namespace pdf
