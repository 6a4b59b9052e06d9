#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fuzz {

/// An input that is consumed from its front. Reads beyond the end give 0 or an empty text, so that
/// every input is valid.
class Bytes {
public:
    Bytes(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size) {}

    bool AtEnd() const { return rest_.empty(); }
    std::uint8_t Byte();
    std::uint16_t Word() { return static_cast<std::uint16_t>(Byte() << 8 | Byte()); }
    /// Interprets eight bytes as a double, including infinities and NaN.
    double Number();
    /// Returns the text up to the next line feed and skips that.
    std::string Line();
    std::string Rest() { return std::string(rest_); }

private:
    std::string_view rest_;
};

/// A folder for an input's files; deleted when the program ends.
class Folder {
public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string File(const std::string& name) const { return path_ + "/" + name; }
    std::string Write(const std::string& name, std::string_view bytes) const;
    void Remove(const std::string& name) const;

private:
    std::string path_;
};

}  // namespace fuzz
