#pragma once

#include <cstdint>
#include <memory>
#include <shapefil.h>
#include <string_view>

namespace desk {

struct DbfSchema;

/// Iterates over the live records of a table with shapelib.
class DbfReader {
public:
    /// The schema, of which file and header are used, must outlive this.
    explicit DbfReader(const DbfSchema& schema);

    /// Moves to the next live record; false at the end. Throws if the file has been changed.
    bool Next();
    /// Returns the record's bytes including its flag, valid until Next.
    std::string_view Record() const { return record_; }
    /// Returns the record's number in the file, from 1, counting deleted ones.
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
