#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace desk::pdf {

/// The numbers by which the glyphs of a CFF font are called, in the order of the glyphs, where they
/// are called by numbers. Nothing for a font whose glyphs have names. Throws host::Failure for what
/// is no CFF font. Names and layout are those of Adobe Technical Note 5176.
std::optional<std::vector<std::uint16_t>> ReadCharset(std::string_view cff, unsigned glyphCount);

}  // namespace desk::pdf
