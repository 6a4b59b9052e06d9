#include "pdf/file/ObjectRows.h"

#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

constexpr std::size_t kRow = 75;  ///< Bytes; fits the usual element of a structure.
constexpr std::size_t kPair =
    15;  ///< Bytes of a number and a place in a stream's head; divides kRow.
constexpr std::size_t kMostRows = 1000;
constexpr std::size_t kReference = 12;  ///< Bytes; PDF/A allows numbers of seven digits.

void PadTo(std::string& out, std::size_t multiple) {
    out.append((multiple - out.size() % multiple) % multiple, ' ');
}

void AppendPair(std::string& head, int number, std::size_t place) {
    const std::size_t end = head.size() + kPair;
    head += std::to_string(number);
    const std::string placeText = std::to_string(place);
    head.append(end - 1 - placeText.size() - head.size(), ' ');
    head += placeText + ' ';
}

}  // namespace

void ObjectRows::Write(int number, std::string_view body) {
    if (body.size() >= kRow) return file_.WriteObject(number, body);
    numbers_.push_back(number);
    rows_ += body;
    PadTo(rows_, kRow);
    if (numbers_.size() == kMostRows) Flush();
}

void ObjectRows::Flush() {
    if (numbers_.empty()) return;
    std::string data;
    for (std::size_t i = 0; i < numbers_.size(); ++i) AppendPair(data, numbers_[i], i * kRow);
    PadTo(data, kRow);
    const std::size_t first = data.size();
    data += rows_;
    file_.WritePackedRows(numbers_, first, data, kRow);
    numbers_.clear();
    rows_.clear();
}

void AppendAlignedReference(std::string& out, int object) {
    const std::string reference = Reference(object);
    if (reference.size() < kReference) out.append(kReference - reference.size(), ' ');
    out += reference;
}

int WriteReferences(ObjectFile& file, int number, std::string_view before,
                    const std::vector<int>& objects, std::string_view after) {
    if (number == 0) number = file.NewObject();
    std::string data = std::to_string(number) + " 0 ";
    PadTo(data, kReference);
    const std::size_t first = data.size();
    data += before;
    data += '[';
    PadTo(data, kReference);
    for (const int object : objects) AppendAlignedReference(data, object);
    data += ']';
    data += after;
    PadTo(data, kReference);
    file.WritePackedRows({number}, first, data, kReference);
    return number;
}

}  // namespace pdf
