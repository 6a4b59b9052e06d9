#pragma once

#include <string>

namespace desk {

/// Returns the length of a file and the CRC-32 of its bytes, such as "48213-5f3a0c21"; empty for a
/// file that cannot be read.
std::string FileDigest(const std::string& path);

}  // namespace desk
