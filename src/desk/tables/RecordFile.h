#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "desk/files/Files.h"

namespace desk {

/// A regular file that is read in blocks. A copy shares the open file and has its own block.
class RecordFile {
public:
    /// Throws host::Failure for a path that is no regular file or cannot be opened.
    explicit RecordFile(std::string path);

    const std::string& Path() const { return path_; }
    /// Bytes, when the file was opened.
    std::int64_t Size() const { return state_.size; }
    /// Throws if another program has written to the file since it was opened.
    void CheckUnchanged() const;
    /// Returns the bytes at an offset, fewer at the end of the file; valid until the next call.
    std::string_view Bytes(std::int64_t offset, std::int64_t length);

private:
    void Fill(std::int64_t offset, std::int64_t length);

    std::string path_;
    std::shared_ptr<const Descriptor> descriptor_;
    FileState state_;  ///< State when it was opened.
    std::string block_;
    std::int64_t blockStart_ = 0;
};

}  // namespace desk
