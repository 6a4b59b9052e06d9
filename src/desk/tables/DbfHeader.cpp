#include "desk/tables/DbfHeader.h"

#include <algorithm>
#include <cctype>
#include <limits>
#include <optional>
#include <sstream>
#include <string_view>

#include "desk/tables/RecordFile.h"
#include "host/Failure.h"

namespace desk {
namespace {

constexpr std::int64_t kPrologueLength = 32;
constexpr std::int64_t kEntryLength = 32;
constexpr std::int64_t kMost16Bits = 0xFFFF;  ///< Maximum size of a header, and of a record, in
                                              ///< bytes.
constexpr char kListEnd = '\x0D';
constexpr char kFileEnd = '\x1A';
/// Number of deletion flags checked; enough to rule out coincidence.
constexpr std::int64_t kCheckedFlags = 256;

[[noreturn]] void Fail(const RecordFile& file, const std::string& fault) {
    throw host::Failure(host::kFailureUnspecified, "ReadDbfHeader", file.Path() + fault);
}

std::int64_t Number(std::string_view bytes, std::size_t offset, std::size_t count) {
    std::int64_t value = 0;
    while (count-- > 0) value = value * 256 + static_cast<unsigned char>(bytes[offset + count]);
    return value;
}

void PutNumber(std::string& bytes, std::size_t offset, std::size_t count, std::int64_t value) {
    for (; count-- > 0; value /= 256) bytes[offset++] = static_cast<char>(value % 256);
}

template <class... Parts>
std::string Text(const Parts&... parts) {
    std::ostringstream text;
    (text << ... << parts);
    return text.str();
}

std::string Counted(std::int64_t count, const char* noun) {
    return Text(count, ' ', noun, count == 1 ? "" : "s");
}

/// Rejects other files by their first byte and the date of the last change.
bool IsPlausible(std::string_view header) {
    static constexpr std::string_view kVersions =
        "\x03\x04\x05\x30\x31\x32\x43\x63\x7B\x83\x87\x8B\x8C\x8E\xCB\xE5\xF5\xFB";
    return kVersions.find(header[0]) != std::string_view::npos && Number(header, 2, 1) <= 12 &&
           Number(header, 3, 1) <= 31;
}

/// Checks the field's type letter and the first character of its name.
bool IsField(std::string_view entry) {
    const auto type = static_cast<unsigned char>(entry[11]);
    const auto first = static_cast<unsigned char>(entry[0]);
    return (std::isupper(type) != 0 || std::isdigit(type) != 0 || type == '@' || type == '+') &&
           (first == 0 || first >= ' ');
}

struct FieldList {
    std::int64_t end = kPrologueLength;  ///< Offset of the first byte after the field list.
    std::int64_t recordLength = 1;       ///< Bytes of the flag and the fields.
    bool closed = false;                 ///< The field list has its end mark.
    bool hasLongTexts = false;
};

FieldList ListFields(std::string_view bytes, bool hasLongTexts) {
    FieldList list;
    list.hasLongTexts = hasLongTexts;
    const auto size = static_cast<std::int64_t>(bytes.size());
    for (; list.end + kEntryLength <= size; list.end += kEntryLength) {
        const auto entry = bytes.substr(static_cast<std::size_t>(list.end), kEntryLength);
        if (!IsField(entry)) break;
        list.recordLength += Number(entry, 16, hasLongTexts && entry[11] == 'C' ? 2 : 1);
    }
    list.closed = list.end < size && bytes[static_cast<std::size_t>(list.end)] == kListEnd;
    return list;
}

/// A list without end mark may end at the header's length. The list's own end is used only if the
/// fields up to the header's length do not make up a record.
FieldList FindFields(std::string_view bytes, std::int64_t headerLength, std::int64_t recordLength) {
    const auto stated = bytes.substr(0, static_cast<std::size_t>(headerLength));
    for (const bool hasLongTexts : {false, true})
        for (const std::string_view within : {stated, bytes}) {
            const FieldList list = ListFields(within, hasLongTexts);
            if (list.recordLength == recordLength && (list.closed || within.size() < bytes.size()))
                return list;
        }
    const FieldList list = ListFields(stated, false);
    return list.end > kPrologueLength ? list : ListFields(bytes, false);
}

struct Place {
    std::int64_t start = 0;  ///< Offset of the first record.
    std::int64_t length = 0;
};

class Judge {
public:
    explicit Judge(RecordFile& file)
        : file_(file),
          bytes_(file.Bytes(0, kMost16Bits)),
          stated_{Number(bytes_, 8, 2), Number(bytes_, 10, 2)},
          count_(Number(bytes_, 4, 4)),
          list_(FindFields(bytes_, stated_.start, stated_.length)),
          dataEnd_(file.Size() - (file.Bytes(file.Size() - 1, 1)[0] == kFileEnd ? 1 : 0)) {}

    DbfHeader Header() {
        if (list_.end == kPrologueLength && !list_.closed)
            Fail(file_, " is not a dBase table: its header has no list of fields.");
        const auto place = Find();
        if (!place)
            Fail(file_, (IsPlausible(bytes_) ? " is damaged: " : " is not a dBase table: ") +
                            Fault() + ".");
        const std::int64_t count = std::min(count_, Whole(*place));
        if (count > std::numeric_limits<std::int32_t>::max())
            Fail(file_, " holds more records than can be numbered.");
        return {Repaired(*place, count), place->length, count, list_.hasLongTexts,
                Warnings(*place, count)};
    }

private:
    /// Returns the first candidate place of the records that passes its checks.
    std::optional<Place> Find() {
        if (stated_.length == list_.recordLength && IsPossible(stated_) &&
            (FillsFile(stated_) || FlagsAreGood(stated_)))
            return stated_;
        for (const std::int64_t length : {stated_.length, list_.recordLength})
            for (const std::int64_t start :
                 {stated_.start, dataEnd_ - count_ * length, list_.end + (list_.closed ? 1 : 0)}) {
                const Place place = {start, length};
                if (IsPossible(place) && FillsFile(place) && FlagsAreGood(place)) return place;
            }
        if (IsPossible(stated_) && FlagsAreGood(stated_)) return stated_;
        return std::nullopt;
    }

    std::int64_t Whole(const Place& place) const {
        return (file_.Size() - place.start) / place.length;
    }

    /// Returns whether records can be at this place.
    bool IsPossible(const Place& place) const {
        return place.length >= list_.recordLength && place.length <= kMost16Bits &&
               place.start >= list_.end && place.start > kPrologueLength &&
               place.start <= std::min(file_.Size(), kMost16Bits) &&
               (count_ == 0 || Whole(place) > 0);
    }

    bool FillsFile(const Place& place) const {
        const std::int64_t end = place.start + count_ * place.length;
        return end == file_.Size() || end == file_.Size() - 1;
    }

    /// Returns the number of consecutive records with a valid flag, from one record up to an end.
    std::int64_t GoodFlags(const Place& place, std::int64_t from, std::int64_t end) {
        std::int64_t at = from;
        for (; at < end; ++at) {
            const std::string_view flag = file_.Bytes(place.start + at * place.length, 1);
            if (flag != " " && flag != "*") break;
        }
        return at - from;
    }

    bool FlagsAreGood(const Place& place) {
        const std::int64_t count = std::min({count_, Whole(place), kCheckedFlags});
        return GoodFlags(place, 0, count) == count;
    }

    std::string Repaired(const Place& place, std::int64_t count) {
        std::string header = bytes_.substr(0, static_cast<std::size_t>(place.start));
        PutNumber(header, 4, 4, count);
        PutNumber(header, 8, 2, place.start);
        PutNumber(header, 10, 2, place.length);
        if (list_.end < place.start) header[static_cast<std::size_t>(list_.end)] = kListEnd;
        return header;
    }

    std::vector<std::string> Warnings(const Place& place, std::int64_t count) {
        std::vector<std::string> warnings;
        const auto warn = [&](const auto&... parts) { warnings.push_back(Text(parts...)); };
        if (place.start != stated_.start)
            warn("the header says that it is ", stated_.start,
                 " bytes long, but the records begin at byte ", place.start,
                 "; they were read there.");
        const std::int64_t unused = place.length - list_.recordLength;
        if (place.length != stated_.length)
            warn("the header says that a record has ", stated_.length,
                 " bytes, but its records have ", place.length, "; so they were read.");
        else if (unused > 0)
            warn(Counted(unused, "byte"), " of each record ", unused == 1 ? "belongs" : "belong",
                 " to no field; values may be cut in the wrong place.");
        const std::int64_t missing = count_ - count;
        if (missing > 0)
            warn("the header announces ", Counted(count_, "record"), ", but the file holds ", count,
                 ": ", missing, missing == 1 ? " is missing." : " are missing.");
        const std::int64_t further =
            GoodFlags(place, count, (dataEnd_ - place.start) / place.length);
        if (further > 0)
            warn(Counted(further, "record"), " beyond the header's count of ", count_,
                 " were not read.");
        return warnings;
    }

    std::string Fault() const {
        if (stated_.start > file_.Size()) return "it ends within its header";
        if (stated_.length < list_.recordLength)
            return Text("its fields take ", list_.recordLength,
                        " bytes, but its header gives a record ", stated_.length);
        if (stated_.start < list_.end)
            return Text("its header says that it is ", stated_.start,
                        " bytes long, which does not hold its fields");
        if (file_.Size() - stated_.start < stated_.length)
            return "it announces " + Counted(count_, "record") + " and holds none";
        return Text("no records begin where its header says, at byte ", stated_.start);
    }

    RecordFile& file_;
    const std::string bytes_;
    const Place stated_;
    const std::int64_t count_;
    const FieldList list_;
    const std::int64_t dataEnd_;
};

}  // namespace

bool IsDbf(RecordFile file) {
    constexpr std::int64_t kChecked = 4;
    const std::string_view start = file.Bytes(0, kChecked);
    return start.size() == kChecked && IsPlausible(start);
}

DbfHeader ReadDbfHeader(RecordFile& file) {
    if (file.Size() == 0) Fail(file, " is empty.");
    const std::string_view prologue = file.Bytes(0, kPrologueLength);
    if (file.Size() <= kPrologueLength)
        Fail(file, " is not a dBase table: it is too short for a header.");
    if ((prologue[0] == '\x04' || prologue[0] == '\x8C') && IsPlausible(prologue))
        Fail(file, std::string(" is a dBase table of level 7, which is not read") + kSaveAsOlder);
    return Judge(file).Header();
}

}  // namespace desk
