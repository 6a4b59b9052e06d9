#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace desk {

class RecordFile;
struct DbfSchema;

/// Goes through the live records of a table, block by block.
class RecordReader {
public:
    explicit RecordReader(std::shared_ptr<const DbfSchema> schema);
    ~RecordReader();

    /// Moves to the next record that is not deleted; false at the end. Fails where the file was
    /// changed meanwhile.
    bool Next();
    /// The record's bytes, its flag included. They change with Next.
    std::string_view Record() const { return record_; }
    /// The record's number in the file from 1, deleted ones counted.
    std::int64_t Number() const { return number_; }

private:
    void Fill();

    std::shared_ptr<const DbfSchema> schema_;
    std::vector<char> block_;
    std::int64_t recordsPerBlock_ = 0;
    std::int64_t blockFirst_ = 0;  ///< Position of the block's first record, from 0.
    std::int64_t blockEnd_ = 0;
    std::int64_t number_ = 0;
    std::string_view record_;
};

}  // namespace desk
