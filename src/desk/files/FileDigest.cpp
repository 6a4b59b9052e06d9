#include "desk/files/FileDigest.h"

#include <array>
#include <cinttypes>
#include <cstdio>
#include <fcntl.h>
#include <libdeflate.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "desk/files/Files.h"

namespace desk {

std::string FileDigest(const std::string& path) {
    constexpr std::size_t kPiece = std::size_t{1} << 18;
    // A pipe would block.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status {};
    if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
    std::vector<char> piece(kPiece);
    std::uint32_t sum = 0;
    std::int64_t length = 0;
    for (;;) {
        const ssize_t count = ::read(file.Get(), piece.data(), piece.size());
        if (count < 0) return {};
        if (count == 0) break;
        sum = libdeflate_crc32(sum, piece.data(), static_cast<std::size_t>(count));
        length += count;
    }
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%" PRId64 "-%08" PRIx32, length, sum);
    return text.data();
}

}  // namespace desk
