#include "desk/files/Files.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <fcntl.h>
#include <simdjson.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "desk/files/ReplacingFile.h"
#include "host/Failure.h"

namespace desk {

namespace {

constexpr std::size_t kChunk = 1 << 20;  // Bytes per read when the size is unknown.

[[noreturn]] void Fail(const std::string& path, const std::string& reason) {
    const bool gone = errno == ENOENT;
    host::Failure failure(gone ? host::kFailureNotFound : host::kFailureUnspecified, "desk::Files",
                          "The file \"" + path + "\" could not be read: " + reason + ".");
    failure.AddFact("file", path);
    throw failure;
}

std::string SystemReason() {
    return std::generic_category().message(errno);
}

FileState From(int failed, const struct stat& info) {
    if (failed != 0) return {};
    return {true,         info.st_dev,         info.st_ino,
            info.st_size, info.st_mtim.tv_sec, info.st_mtim.tv_nsec};
}

}  // namespace

FileState FileState::At(const std::string& path) {
    struct stat info {};
    const int failed = ::stat(path.c_str(), &info);
    return From(failed, info);
}

FileState FileState::Of(int descriptor) {
    struct stat info {};
    const int failed = ::fstat(descriptor, &info);
    return From(failed, info);
}

Descriptor::~Descriptor() {
    if (IsOpen()) ::close(number_);
}

bool IsConnectionName(const std::string& path) {
    constexpr std::ptrdiff_t kDrive = 1;
    const auto end = std::ranges::find_if_not(
        path, [](unsigned char letter) { return std::isalnum(letter) != 0; });
    const bool isNamed = end != path.end() && *end == ':' && end - path.begin() > kDrive;
    return isNamed || path.starts_with("/vsi");
}

Descriptor OpenRegularFile(const std::string& path) {
    Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.IsOpen()) {
        Fail(path, errno == ENOENT ? "there is no such file" : SystemReason());
    }
    struct stat info {};
    if (::fstat(file.Get(), &info) != 0) Fail(path, SystemReason());
    if (S_ISDIR(info.st_mode)) Fail(path, "it is a folder");
    // A pipe or a device may never end.
    if (!S_ISREG(info.st_mode)) Fail(path, "it is no ordinary file");
    return file;
}

std::string ReadWholeFile(const std::string& path, FileState* state) {
    const Descriptor file = OpenRegularFile(path);
    const FileState before = FileState::Of(file.Get());
    if (state != nullptr) *state = before;

    std::string content;
    const auto expected = static_cast<std::size_t>(std::max<off_t>(before.size, 0));
    content.reserve(expected + simdjson::SIMDJSON_PADDING);
    for (;;) {
        const std::size_t have = content.size();
        // The extra byte makes read() reach the end of a file of the expected size in one call.
        content.resize(have < expected ? expected + 1 : have + kChunk);
        const auto got = ::read(file.Get(), content.data() + have, content.size() - have);
        content.resize(have + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got == 0) return content;
        if (got < 0 && errno != EINTR) Fail(path, SystemReason());
    }
}

void ReplaceFile(const std::string& path, std::string_view content) {
    ReplacingFile file(path);
    file.Write(content);
    file.Commit();
}

}  // namespace desk
