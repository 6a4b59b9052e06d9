#pragma once

#include <cstdint>
#include <string>

namespace desk {

/// Encoding of a language driver byte, or empty for 0 and for unknown bytes.
std::string EncodingOfDriver(std::uint8_t driver);

/// Encoding of a driver that level 7 files name: "DBWINUS0", "DB437US0". Empty if unknown.
std::string EncodingOfDriverName(const std::string& name);

/// Encoding of what a .cpg file holds: a public name, or a number with or without a word before
/// it: "UTF-8", "1252", "ANSI 1251", "OEM 437", "LDID/87". May be unknown to ICU.
std::string EncodingOfCpg(const std::string& content);

}  // namespace desk
