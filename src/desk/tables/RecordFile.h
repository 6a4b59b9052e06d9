#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "desk/files/FileState.h"

namespace desk {

/// A regular file that is read at places of the reader's choice.
class RecordFile {
public:
    /// Fails with a sentence for a path that is no file, is a folder, or cannot be opened.
    explicit RecordFile(std::string path);
    ~RecordFile();
    RecordFile(const RecordFile&) = delete;
    RecordFile& operator=(const RecordFile&) = delete;

    const std::string& Path() const { return path_; }
    /// Bytes, as they were when the file was opened.
    std::int64_t Size() const { return state_.size; }
    /// Fails where others have written to the file since it was opened.
    void CheckUnchanged() const;
    /// Fills the memory. Fails where the file ends before that.
    void Read(std::int64_t offset, char* memory, std::size_t length) const;
    /// As many of the bytes as the file has.
    std::string ReadUpTo(std::int64_t offset, std::int64_t length) const;
    char ByteAt(std::int64_t offset) const;

private:
    std::string path_;
    int descriptor_ = -1;
    FileState state_;  ///< When it was opened.
};

}  // namespace desk
