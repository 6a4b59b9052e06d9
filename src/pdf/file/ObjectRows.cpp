#include "pdf/file/ObjectRows.h"

#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

constexpr std::size_t kPair = 20;       ///< Bytes of a number and a place in a stream's head.
constexpr std::size_t kReference = 12;  ///< Bytes; PDF/A allows numbers of seven digits.
constexpr int kBlock = 2000;            ///< Numbers taken at once.

/// Limits of a stream, which a reader decompresses to read one object.
/// @{
constexpr std::size_t kMostObjects = 2000;
constexpr std::size_t kMostBytes = 200'000;
/// @}

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

int ObjectRows::NewObject() {
    if (nextNumber_ == endNumber_) {
        nextNumber_ = file_.NewObjects(kBlock);
        endNumber_ = nextNumber_ + kBlock;
    }
    return nextNumber_++;
}

void ObjectRows::Write(int number, std::string_view body) {
    numbers_.push_back(number);
    AppendPair(head_, number, rows_.size());
    rows_ += body;
    PadTo(rows_, row_);
    if (numbers_.size() == kMostObjects || rows_.size() > kMostBytes) Flush();
}

void ObjectRows::Flush() {
    if (numbers_.empty()) return;
    PadTo(head_, row_);
    const std::size_t first = head_.size();
    head_ += rows_;
    file_.WritePackedRows(numbers_, first, head_, row_);
    numbers_.clear();
    head_.clear();
    rows_.clear();
}

void AppendAligned(std::string& out, int object) {
    const std::string reference = Reference(object);
    if (reference.size() < kReference) out.append(kReference - reference.size(), ' ');
    out += reference;
}

std::string AlignedArray(std::string_view before, const std::vector<int>& objects,
                         std::string_view after) {
    std::string array(before);
    array += '[';
    PadTo(array, kReference);
    for (const int object : objects) AppendAligned(array, object);
    array += ']';
    array += after;
    return array;
}

}  // namespace pdf
