#include "desk/drawing/pdf/ObjectFile.h"

#include "desk/drawing/pdf/Numbers.h"

namespace desk::pdf {
namespace {

/// A reader unpacks all objects of a packed stream to get at one.
constexpr int kMostPacked = 200;

void AppendBigEndian(std::string& out, std::uint64_t value, int bytes) {
    while (bytes-- > 0) out += static_cast<char>(value >> (8 * bytes) & 0xFF);
}

/// How many bytes hold the value.
int BytesFor(std::uint64_t value) {
    int bytes = 1;
    while (value >>= 8) ++bytes;
    return bytes;
}

}  // namespace

// The second line tells programs that the file is not text.
ObjectFile::ObjectFile(OutputFile& file) : file_(file) {
    Write("%PDF-1.5\n%\xE2\xE3\xCF\xD3\n");
}

int ObjectFile::NewObject() {
    places_.emplace_back();
    return static_cast<int>(places_.size()) - 1;
}

void ObjectFile::WriteObject(int number, std::string_view body) {
    if (packedCount_ == 0) packedStream_ = NewObject();
    places_[static_cast<std::size_t>(number)] = {true, static_cast<std::uint64_t>(packedStream_),
                                                 static_cast<std::uint16_t>(packedCount_)};
    AppendInteger(packedHead_, number);
    packedHead_ += ' ';
    AppendInteger(packedHead_, static_cast<std::int64_t>(packedBodies_.size()));
    packedHead_ += ' ';
    packedBodies_ += body;
    packedBodies_ += '\n';
    if (++packedCount_ == kMostPacked) WritePacked();
}

int ObjectFile::WriteObject(std::string_view body) {
    const int number = NewObject();
    WriteObject(number, body);
    return number;
}

void ObjectFile::WriteStream(int number, std::string_view entries, std::string_view data) {
    const std::string_view compressed = deflate_.Compress(data);
    places_[static_cast<std::size_t>(number)] = {false, written_, 0};
    scratch_.clear();
    AppendInteger(scratch_, number);
    scratch_ += " 0 obj\n<<";
    scratch_ += entries;
    scratch_ += "/Filter/FlateDecode/Length ";
    AppendInteger(scratch_, static_cast<std::int64_t>(compressed.size()));
    scratch_ += ">>stream\n";
    Write(scratch_);
    Write(compressed);
    Write("\nendstream\nendobj\n");
}

int ObjectFile::WriteStream(std::string_view entries, std::string_view data) {
    const int number = NewObject();
    WriteStream(number, entries, data);
    return number;
}

void ObjectFile::WritePacked() {
    if (packedCount_ == 0) return;
    std::string entries = "/Type/ObjStm/N ";
    AppendInteger(entries, packedCount_);
    entries += "/First ";
    AppendInteger(entries, static_cast<std::int64_t>(packedHead_.size()));
    WriteStream(packedStream_, entries, packedHead_ + packedBodies_);
    packedCount_ = 0;
    packedHead_.clear();
    packedBodies_.clear();
}

std::string ObjectFile::Places(int offsetBytes) const {
    constexpr int kOffset = 1;  // Kinds of place, as numbered in the file.
    constexpr int kPacked = 2;
    std::string table;
    for (std::size_t number = 0; number < places_.size(); ++number) {
        const Place& place = places_[number];
        AppendBigEndian(table, number == 0 ? 0 : place.packed ? kPacked : kOffset, 1);
        AppendBigEndian(table, place.where, offsetBytes);
        AppendBigEndian(table, place.index, 1);
    }
    return table;
}

void ObjectFile::Finish(int catalog, int info) {
    WritePacked();
    const std::uint64_t start = written_;
    const int number = NewObject();
    places_.back() = {false, start, 0};
    const int offsetBytes = BytesFor(start);
    std::string entries = "/Type/XRef/Size ";
    AppendInteger(entries, number + 1);
    entries += "/W[1 ";
    AppendInteger(entries, offsetBytes);
    entries += " 1]/Root ";
    AppendReference(entries, catalog);
    entries += "/Info ";
    AppendReference(entries, info);
    WriteStream(number, entries, Places(offsetBytes));
    std::string end = "startxref\n";
    AppendInteger(end, static_cast<std::int64_t>(start));
    Write(end + "\n%%EOF\n");
}

void ObjectFile::Write(std::string_view bytes) {
    file_.Write(bytes);
    written_ += bytes.size();
}

}  // namespace desk::pdf
