#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>

namespace desk {

/// The name of a file that is not in its place yet. The file is removed with this object, and when
/// SIGHUP, SIGINT or SIGTERM ends the process.
class TemporaryName {
public:
    TemporaryName() = default;
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;
    ~TemporaryName() { Remove(); }

    /// Takes the name of a file that is about to be made. Gives up an earlier name.
    void Take(const std::filesystem::path& path);
    /// Gives the name up without removing the file.
    void GiveUp();
    void Remove();

    bool IsEmpty() const { return path_.empty(); }
    const char* Get() const { return path_.c_str(); }

private:
    std::filesystem::path path_;
    std::optional<std::size_t> slot_;  ///< Where signals find the name.
};

}  // namespace desk
