#include "Bytes.h"

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "Checks.h"

namespace fuzz {

std::uint8_t Bytes::Byte() {
    if (rest_.empty()) return 0;
    const auto byte = static_cast<std::uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
}

double Bytes::Number() {
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits = bits << 8 | Byte();
    return std::bit_cast<double>(bits);
}

std::string Bytes::Line() {
    const auto end = std::min(rest_.find('\n'), rest_.size());
    std::string line(rest_.substr(0, end));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return line;
}

Folder::Folder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "gazetteer-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) Find("no temporary folder could be made");
    path_ = pattern;
}

Folder::~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string Folder::Write(const std::string& name, std::string_view bytes) const {
    std::ofstream(File(name), std::ios::binary) << bytes;
    return File(name);
}

void Folder::Remove(const std::string& name) const {
    std::error_code ignored;
    std::filesystem::remove(File(name), ignored);
}

}  // namespace fuzz
