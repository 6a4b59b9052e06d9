#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "gis/module/TableNotes.h"
#include "host/StepCounts.h"
#include "host/Tables.h"

namespace gis {

/// How the values of a field are read.
enum class FieldKind {
    Text,
    Number,
    Date,
    Logical,
    Memo,  ///< Kept apart from the record, as texts or pictures; not read.
    Unknown
};

struct SourceField {
    std::string name;
    char type = 'C';          ///< dBase's letter for the type: C text, N number, D date, L logical.
    std::int32_t length = 0;  ///< Bytes or digits; 0: any number.
    std::int32_t decimals = 0;
    FieldKind kind = FieldKind::Text;

    bool operator==(const SourceField&) const = default;
};

/// Throws what writing to a table of this path gives.
[[noreturn]] void FailReadOnly(const std::string& path);

/// A table of a file or server, read only, with what people are told of it. Values by kind:
///   text        String without trailing blanks; no value is the empty text
///   number      Integer if whole and in range; String if whole but not exact in a double;
///               else Double
///   date        String "YYYY-MM-DD"
///   logical     Boolean
/// Other kinds, and blank or faulty values, give Null; a fault is noted once per field.
class SourceTable : public host::IHostTable, public host::IHostRowCount {
public:
    /// The path under which the table was opened.
    const std::string& Path() const { return Notes().Path(); }
    virtual std::vector<SourceField> SourceFields() const = 0;
    /// Name of the text encoding; EncodingFrom says where it was found.
    virtual std::string Encoding() const = 0;
    virtual std::string EncodingFrom() const = 0;
    /// Number of records that a cursor gives. The first call may read the whole table.
    virtual std::int64_t LiveRecords() const = 0;
    /// Notes about the table; those about values follow when they are read.
    virtual const TableNotes& Notes() const = 0;

    host::Ref<host::IHostCursor> Insert(bool) override { FailReadOnly(); }
    host::Ref<host::IHostRow> CreateRowBuffer() override { FailReadOnly(); }

private:
    [[noreturn]] void FailReadOnly() const { gis::FailReadOnly(Path()); }
};

}  // namespace gis
