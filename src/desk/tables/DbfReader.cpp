#include "desk/tables/DbfReader.h"

#include <algorithm>
#include <exception>
#include <string>
#include <utility>

#include "desk/tables/DbfSchema.h"
#include "host/Failure.h"

namespace desk {
namespace {

/// A file for shapelib whose first bytes are replaced by the corrected header.
struct Stream {
    RecordFile file;
    std::string header;
    SAOffset position = 0;
    std::exception_ptr failure = nullptr;  ///< Exceptions must not pass through the library.
};

/// The table being opened; shapelib passes only a name to its open hook.
thread_local const Stream* opening = nullptr;

Stream& StreamOf(void* file) {
    return *static_cast<Stream*>(file);
}

/// The first file opened is the table; any other is the code page file, which may be missing.
SAFile Open(const char* path) {
    try {
        const Stream* const table = std::exchange(opening, nullptr);
        return reinterpret_cast<SAFile>(new Stream(table ? *table : Stream{RecordFile(path), ""}));
    } catch (const std::exception&) {
        return nullptr;
    }
}

SAOffset Read(void* memory, SAOffset size, SAOffset count, SAFile file) {
    Stream& stream = StreamOf(file);
    try {
        const std::string_view header = stream.header;
        const std::string_view bytes =
            stream.position < header.size()
                ? header.substr(stream.position, size * count)
                : stream.file.Bytes(static_cast<std::int64_t>(stream.position),
                                    static_cast<std::int64_t>(size * count));
        std::copy(bytes.begin(), bytes.end(), static_cast<char*>(memory));
        stream.position += bytes.size();
        return bytes.size() / size;
    } catch (const std::exception&) {
        stream.failure = std::current_exception();
        return 0;
    }
}

/// The library only uses SEEK_SET.
SAOffset Seek(SAFile file, SAOffset offset, int) {
    StreamOf(file).position = offset;
    return 0;
}

int Close(SAFile file) {
    delete &StreamOf(file);
    return 0;
}

SAHooks Hooks() {
    SAHooks hooks;
    SASetupDefaultHooks(&hooks);
    // Version 1.6 of shapelib passes user data, too.
    hooks.FOpen = [](const char* path, const char*, auto...) { return Open(path); };
    hooks.FRead = Read;
    hooks.FSeek = Seek;
    hooks.FClose = Close;
    hooks.Error = [](const char*) {};
    return hooks;
}

}  // namespace

DbfReader::DbfReader(const DbfSchema& schema) : schema_(schema) {
    SAHooks hooks = Hooks();
    const Stream table = {schema.file, schema.header.bytes};
    opening = &table;
    library_.reset(DBFOpenLL(schema.file.Path().c_str(), "rb", &hooks));
    if (!library_)
        throw host::Failure(host::kFailureUnspecified, "DbfReader",
                            schema.file.Path() + " is damaged: its header cannot be read.");
}

bool DbfReader::Next() {
    while (number_ < DBFGetRecordCount(library_.get())) {
        const char* record = DBFReadTuple(library_.get(), number_++);
        if (record == nullptr) std::rethrow_exception(StreamOf(library_->fp).failure);
        record_ = {record, static_cast<std::size_t>(library_->nRecordLength)};
        if (record_.front() != '*') return true;
    }
    // Blocks read before and after a change would not be consistent.
    schema_.file.CheckUnchanged();
    return false;
}

}  // namespace desk
