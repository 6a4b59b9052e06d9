#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

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
    std::int64_t Size() const { return size_; }
    /// Fills the memory. Fails where the file ends before that.
    void Read(std::int64_t offset, char* memory, std::size_t length) const;
    /// As many of the bytes as the file has.
    std::string ReadUpTo(std::int64_t offset, std::int64_t length) const;
    char ByteAt(std::int64_t offset) const;

private:
    std::string path_;
    int descriptor_ = -1;
    std::int64_t size_ = 0;
};

}  // namespace desk
