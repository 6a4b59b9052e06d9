#include "desk/tables/DbfExtent.h"

#include <algorithm>
#include <limits>

#include "desk/tables/RecordFile.h"
#include "host/Failure.h"

namespace desk {
namespace {

constexpr char kFileEnd = '\x1A';
/// Flags looked at. So many in a row are no coincidence.
constexpr std::int64_t kCheckedFlags = 256;

std::string Counted(std::int64_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

class Finder {
public:
    Finder(const RecordFile& file, const DbfHeader& header)
        : file_(file),
          header_(header),
          fieldBytes_(header.list.recordLength),
          hasEndMark_(file.ByteAt(file.Size() - 1) == kFileEnd) {}

    DbfExtent Find() const {
        for (const DbfExtent& place : Candidates()) {
            DbfExtent found = place;
            found.recordCount = std::min(header_.recordCount, Whole(place));
            AddWarnings(found);
            return found;
        }
        Fail(Fault());
    }

private:
    /// Places where the records may stand, best first, that have passed their test.
    std::vector<DbfExtent> Candidates() const {
        const DbfExtent stated = {header_.headerLength, header_.recordLength, 0, {}};
        std::vector<DbfExtent> passed;
        const bool fitting = stated.recordLength == fieldBytes_;
        const auto offer = [&](const DbfExtent& place, bool accepted) {
            if (accepted) passed.push_back(place);
        };
        offer(stated, fitting && IsPlace(stated) && (FillsFile(stated) || FlagsAreGood(stated)));
        for (const std::int64_t length : {header_.recordLength, fieldBytes_})
            for (const std::int64_t start :
                 {header_.headerLength, DataEnd() - header_.recordCount * length,
                  header_.list.end}) {
                const DbfExtent place = {start, length, 0, {}};
                offer(place, IsPlace(place) && FillsFile(place) && FlagsAreGood(place));
            }
        offer(stated, !fitting && IsPlace(stated) && FlagsAreGood(stated));
        return passed;
    }

    std::int64_t DataEnd() const { return file_.Size() - (hasEndMark_ ? 1 : 0); }

    std::int64_t Whole(const DbfExtent& place) const {
        return (file_.Size() - place.start) / place.recordLength;
    }

    /// Whether the records can stand there at all.
    bool IsPlace(const DbfExtent& place) const {
        return place.recordLength >= fieldBytes_ && place.start >= FieldsEnd() &&
               place.start <= file_.Size() && (header_.recordCount == 0 || Whole(place) > 0);
    }

    /// Offset behind the last field's entry; the terminator may be missing.
    std::int64_t FieldsEnd() const { return header_.list.end - (header_.list.terminated ? 1 : 0); }

    bool FillsFile(const DbfExtent& place) const {
        const std::int64_t end = place.start + header_.recordCount * place.recordLength;
        return end == file_.Size() || end == file_.Size() - 1;
    }

    bool FlagsAreGood(const DbfExtent& place) const {
        const std::int64_t count = std::min({header_.recordCount, Whole(place), kCheckedFlags});
        for (std::int64_t i = 0; i < count; ++i) {
            const char flag = file_.ByteAt(place.start + i * place.recordLength);
            if (flag != ' ' && flag != '*') return false;
        }
        return true;
    }

    void AddWarnings(DbfExtent& found) const {
        if (found.start != header_.headerLength)
            found.warnings.push_back("the header says that it is " +
                                     std::to_string(header_.headerLength) +
                                     " bytes long, but the records begin at byte " +
                                     std::to_string(found.start) + "; they were read there.");
        if (found.recordLength != header_.recordLength)
            found.warnings.push_back("the header says that a record has " +
                                     std::to_string(header_.recordLength) +
                                     " bytes, but its records have " +
                                     std::to_string(found.recordLength) + "; so they were read.");
        else if (found.recordLength != fieldBytes_)
            found.warnings.push_back(
                Counted(found.recordLength - fieldBytes_, "byte") + " of each record " +
                (found.recordLength - fieldBytes_ == 1 ? "belongs" : "belong") +
                " to no field; values may be cut in the wrong place.");
        const std::int64_t missing = header_.recordCount - found.recordCount;
        if (missing > 0)
            found.warnings.push_back(
                "the header announces " + Counted(header_.recordCount, "record") +
                ", but the file holds " + std::to_string(found.recordCount) + ": " +
                std::to_string(missing) + (missing == 1 ? " is missing." : " are missing."));
        const std::int64_t further = FurtherRecords(found);
        if (further > 0)
            found.warnings.push_back(Counted(further, "record") + " beyond the header's count of " +
                                     std::to_string(header_.recordCount) + " were not read.");
    }

    /// Records that follow the last one counted, as far as their flags show them.
    std::int64_t FurtherRecords(const DbfExtent& found) const {
        const std::int64_t whole = (DataEnd() - found.start) / found.recordLength;
        std::int64_t count = 0;
        for (std::int64_t i = found.recordCount; i < whole; ++i, ++count) {
            const char flag = file_.ByteAt(found.start + i * found.recordLength);
            if (flag != ' ' && flag != '*') break;
        }
        return count;
    }

    std::string Fault() const {
        if (header_.headerLength > file_.Size()) return "it ends within its header";
        if (header_.recordLength < fieldBytes_)
            return "its fields take " + std::to_string(fieldBytes_) +
                   " bytes, but its header gives a record " + std::to_string(header_.recordLength);
        if (header_.headerLength < FieldsEnd())
            return "its header says that it is " + std::to_string(header_.headerLength) +
                   " bytes long, which does not hold its fields";
        if (file_.Size() - header_.headerLength < header_.recordLength)
            return "it announces " + Counted(header_.recordCount, "record") + " and holds none";
        return "no records begin where its header says, at byte " +
               std::to_string(header_.headerLength);
    }

    [[noreturn]] void Fail(const std::string& fault) const {
        throw host::Failure(
            host::kFailureUnspecified, "FindRecords",
            file_.Path() + (header_.IsPlausible() ? " is damaged: " : " is not a dBase table: ") +
                fault + ".");
    }

    const RecordFile& file_;
    const DbfHeader& header_;
    const std::int64_t fieldBytes_;
    const bool hasEndMark_;
};

}  // namespace

DbfExtent FindRecords(const RecordFile& file, const DbfHeader& header) {
    DbfExtent found = Finder(file, header).Find();
    // Rows are named by 32-bit numbers.
    if (found.recordCount > std::numeric_limits<std::int32_t>::max())
        throw host::Failure(host::kFailureOverflow, "FindRecords",
                            file.Path() + " holds more records than can be numbered.");
    return found;
}

}  // namespace desk
