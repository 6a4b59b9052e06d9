#include "desk/drawing/OutputFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "host/Failure.h"

namespace desk {
namespace {

namespace fs = std::filesystem;

/// More files of one process than ever stand beside one place at a time.
constexpr int kMostAttempts = 1000;

constexpr mode_t kOrdinaryMode = 0666;  ///< Less what the user's mask takes away.

fs::path Beside(const fs::path& target, int attempt) {
    return target.parent_path() / ("." + target.filename().string() + "." +
                                   std::to_string(getpid()) + "-" + std::to_string(attempt));
}

/// The place that a path leads to. A link stays a link to what is written.
fs::path Followed(const fs::path& path) {
    std::error_code error;
    const fs::path followed = fs::weakly_canonical(path, error);
    return error ? path : followed;
}

}  // namespace

OutputFile::OutputFile(const std::string& path) : path_(path), target_(Followed(path)) {
    if (path.empty()) Fail(ENOENT);
    std::error_code error;
    const auto status = fs::status(target_, error);
    if (fs::is_directory(status)) Fail(EISDIR);
    if (fs::exists(status) && access(target_.c_str(), W_OK) != 0) Fail(errno);
    if (fs::exists(status) && !fs::is_regular_file(status))
        OpenDirectly();
    else
        OpenBeside();
}

OutputFile::~OutputFile() {
    stream_.reset();
    std::error_code ignored;
    if (!beside_.empty()) fs::remove(beside_, ignored);
}

void OutputFile::OpenDirectly() {
    stream_.reset(std::fopen(target_.c_str(), "wb"));
    if (!stream_) Fail(errno);
}

void OutputFile::OpenBeside() {
    int file = -1;
    for (int attempt = 0; file < 0 && attempt < kMostAttempts; ++attempt) {
        beside_ = Beside(target_, attempt);
        file = open(beside_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOrdinaryMode);
        if (file < 0 && errno != EEXIST) break;
    }
    if (file >= 0) stream_.reset(fdopen(file, "wb"));
    if (stream_) return;
    const int error = errno;
    if (file >= 0)
        close(file);
    else
        beside_.clear();
    Fail(error);
}

cairo_status_t OutputFile::Write(void* closure, const unsigned char* data, unsigned int length) {
    auto& file = *static_cast<OutputFile*>(closure);
    if (file.error_ == 0 && std::fwrite(data, 1, length, file.stream_.get()) != length)
        file.error_ = errno;
    return file.error_ == 0 ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

void OutputFile::Commit() {
    if (error_ == 0 && std::fflush(stream_.get()) != 0) error_ = errno;
    if (std::fclose(stream_.release()) != 0 && error_ == 0) error_ = errno;
    if (error_ != 0) Fail(error_);
    if (beside_.empty()) return;
    struct stat before {};
    if (stat(target_.c_str(), &before) == 0 && chmod(beside_.c_str(), before.st_mode) != 0)
        Fail(errno);
    if (std::rename(beside_.c_str(), target_.c_str()) != 0) Fail(errno);
    beside_.clear();
}

void OutputFile::Check(cairo_status_t status) const {
    if (status == CAIRO_STATUS_SUCCESS) return;
    if (error_ != 0) Fail(error_);
    if (status == CAIRO_STATUS_NO_MEMORY) Fail(ENOMEM);
    throw host::Failure(
        host::kFailureUnspecified, "OutputFile",
        "The file \"" + path_ + "\" cannot be written: " + cairo_status_to_string(status) + ".");
}

void OutputFile::Fail(int error) const {
    host::Failure failure(host::kFailureUnspecified, "OutputFile",
                          "The file \"" + path_ + "\" cannot be written: " +
                              std::generic_category().message(error) + ".");
    failure.AddFact("file", path_);
    throw failure;
}

}  // namespace desk
