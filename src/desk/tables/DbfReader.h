#pragma once

#include <cstdint>
#include <memory>
#include <shapefil.h>
#include <string_view>

namespace desk {

struct DbfSchema;

/// Goes through the live records of a table, as the library reads them.
class DbfReader {
public:
    /// Needs the schema's file and header, and the schema itself as long as it reads.
    explicit DbfReader(const DbfSchema& schema);

    /// Moves to the next record that is not deleted; false at the end. Fails where the file was
    /// changed meanwhile.
    bool Next();
    /// The record's bytes, its flag included. They change with Next.
    std::string_view Record() const { return record_; }
    /// The record's number in the file from 1, deleted ones counted.
    std::int32_t Number() const { return number_; }
    DBFHandle Handle() const { return library_.get(); }

private:
    struct Closer {
        void operator()(DBFHandle library) const { DBFClose(library); }
    };

    const DbfSchema& schema_;
    std::unique_ptr<DBFInfo, Closer> library_;
    std::int32_t number_ = 0;
    std::string_view record_;
};

}  // namespace desk
