#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "desk/files/Files.h"

namespace desk {

/// A regular file that is read in blocks. A copy reads the same open file with a block of its own.
class RecordFile {
public:
    /// Fails with a sentence for a path that is no file, is a folder, or cannot be opened.
    explicit RecordFile(std::string path);

    const std::string& Path() const { return path_; }
    /// Bytes, as they were when the file was opened.
    std::int64_t Size() const { return state_.size; }
    /// Fails where others have written to the file since it was opened.
    void CheckUnchanged() const;
    /// As many of the bytes as the file has, valid until the next call.
    std::string_view Bytes(std::int64_t offset, std::int64_t length);

private:
    void Fill(std::int64_t offset, std::int64_t length);

    std::string path_;
    std::shared_ptr<const Descriptor> descriptor_;
    FileState state_;  ///< When it was opened.
    std::string block_;
    std::int64_t blockStart_ = 0;
};

}  // namespace desk
