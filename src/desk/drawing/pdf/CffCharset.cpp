#include "desk/drawing/pdf/CffCharset.h"

#include "host/Failure.h"

namespace desk::pdf {
namespace {

// Operators of a dictionary; those of two bytes begin with kEscape.
constexpr unsigned kCharset = 15;
constexpr unsigned kEscape = 12;
constexpr unsigned kRos = 0x100 | 30;
constexpr unsigned kLastOperator = 21;

class Reader {
public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    void GoTo(std::size_t place) { place_ = place; }
    bool AtEnd() const { return place_ >= bytes_.size(); }

    unsigned Number(unsigned size) {
        unsigned value = 0;
        for (; size > 0; --size) value = value << 8 | Byte();
        return value;
    }
    /// The first element of an index; goes behind the index.
    std::string_view Index() {
        const unsigned count = Number(2);
        if (count == 0) return {};
        const unsigned size = Number(1);
        const std::size_t offsets = place_;
        const std::size_t data = offsets + (count + std::size_t{1}) * size - 1;
        const std::size_t first = data + Number(size);
        const std::size_t second = data + Number(size);
        GoTo(offsets + std::size_t{count} * size);
        GoTo(data + Number(size));
        if (second < first || second > bytes_.size()) Fail();
        return bytes_.substr(first, second - first);
    }
    /// An operand of a dictionary; real numbers read as 0.
    int Operand() {
        const unsigned first = Byte();
        if (first == 28) return static_cast<std::int16_t>(Number(2));
        if (first == 29) return static_cast<std::int32_t>(Number(4));
        if (first >= 32 && first <= 246) return static_cast<int>(first) - 139;
        if (first >= 247 && first <= 250)
            return static_cast<int>((first - 247) * 256 + Byte()) + 108;
        if (first >= 251 && first <= 254)
            return -static_cast<int>((first - 251) * 256 + Byte()) - 108;
        while (first == 30 && (Byte() & 0xF) != 0xF) {
        }
        return 0;
    }
    bool AtOperator() const { return !AtEnd() && Peek() <= kLastOperator; }
    unsigned Operator() {
        const unsigned first = Byte();
        return first == kEscape ? 0x100 | Byte() : first;
    }

private:
    [[noreturn]] static void Fail() {
        throw host::Failure(host::kFailureUnspecified, "CffCharset",
                            "The outlines of a font cannot be read.");
    }
    unsigned Peek() const { return static_cast<unsigned char>(bytes_[place_]); }
    unsigned Byte() {
        if (AtEnd()) Fail();
        return static_cast<unsigned char>(bytes_[place_++]);
    }

    std::string_view bytes_;
    std::size_t place_ = 0;
};

struct TopDictionary {
    bool byNumbers = false;
    int charset = 0;
};

TopDictionary ReadTop(std::string_view bytes) {
    TopDictionary top;
    Reader reader(bytes);
    for (int last = 0; !reader.AtEnd();) {
        if (!reader.AtOperator()) {
            last = reader.Operand();
            continue;
        }
        const unsigned kind = reader.Operator();
        if (kind == kRos) top.byNumbers = true;
        if (kind == kCharset) top.charset = last;
    }
    return top;
}

std::vector<std::uint16_t> ReadNumbers(Reader& reader, unsigned glyphCount) {
    std::vector<std::uint16_t> numbers{0};
    const unsigned format = reader.Number(1);  // 0: single ones; 1, 2: ranges of two sizes
    while (numbers.size() < glyphCount) {
        unsigned number = reader.Number(2);
        for (unsigned more = format == 0 ? 0 : reader.Number(format); numbers.size() < glyphCount;
             --more) {
            numbers.push_back(static_cast<std::uint16_t>(number++));
            if (more == 0) break;
        }
    }
    return numbers;
}

}  // namespace

std::optional<std::vector<std::uint16_t>> ReadCharset(std::string_view cff, unsigned glyphCount) {
    Reader reader(cff);
    reader.GoTo(2);
    reader.GoTo(reader.Number(1));  // behind the header
    reader.Index();                 // names
    const TopDictionary top = ReadTop(reader.Index());
    if (!top.byNumbers) return std::nullopt;
    // 0 to 2 are charsets of names; a font by numbers that tells none has those of the glyphs.
    if (top.charset <= 2) {
        std::vector<std::uint16_t> same;
        for (unsigned glyph = 0; glyph < glyphCount; ++glyph)
            same.push_back(static_cast<std::uint16_t>(glyph));
        return same;
    }
    reader.GoTo(static_cast<std::size_t>(top.charset));
    return ReadNumbers(reader, glyphCount);
}

}  // namespace desk::pdf
