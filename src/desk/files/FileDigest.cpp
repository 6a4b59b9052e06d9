#include "desk/files/FileDigest.h"

#include <array>
#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <libdeflate.h>
#include <unistd.h>
#include <vector>

#include "desk/files/Files.h"
#include "host/Failure.h"

namespace desk {

std::string FileDigest(const std::string& path) try {
    constexpr std::size_t kPiece = std::size_t{1} << 18;
    const Descriptor file = OpenRegularFile(path);
    std::vector<char> piece(kPiece);
    std::uint32_t sum = 0;
    std::int64_t length = 0;
    while (const auto got = ::read(file.Get(), piece.data(), piece.size())) {
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return {};
        sum = libdeflate_crc32(sum, piece.data(), static_cast<std::size_t>(got));
        length += got;
    }
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%" PRId64 "-%08" PRIx32, length, sum);
    return text.data();
} catch (const host::Failure&) {
    return {};
}

}  // namespace desk
