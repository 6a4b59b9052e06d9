#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "desk/drawing/pdf/CodeTable.h"
#include "desk/drawing/pdf/ObjectFile.h"

namespace desk::pdf {

/// A font of the file, which holds the glyphs that are shown.
struct Subset {
    Subset(CodeTable::Lengths lengths, int named, int written)
        : codes(lengths), name(named), object(written) {}

    CodeTable codes;
    int name;    ///< The number in the name by which pages know it.
    int object;  ///< Its number in the file.
};

/// Numbers for the fonts of a file.
class FontNumbers {
public:
    explicit FontNumbers(ObjectFile& file) : file_(file) {}

    struct Number {
        int name, object;
    };
    Number Next() { return {next_++, file_.NewObject()}; }

private:
    ObjectFile& file_;
    int next_ = 0;
};

/// The letters of one design as fonts of the file: a further one where the codes do not suffice.
class Typeface {
public:
    Typeface(CodeTable::Lengths lengths, FontNumbers& numbers)
        : lengths_(lengths), numbers_(numbers) {}
    virtual ~Typeface() = default;

    struct Place {
        const Subset* subset;
        const CodeTable::Entry* entry;
    };
    /// Where a glyph that stands for a text is found, from now on if not before.
    Place Find(hb_codepoint_t glyph, std::string_view text);

    const std::deque<Subset>& Subsets() const { return subsets_; }

    /// Writes all of its fonts. Nothing can be found after it.
    virtual void Write(ObjectFile& file) = 0;

protected:
    /// Width of a glyph in thousandths of the font's size. Whole ones, since many programs that
    /// read the file take no others.
    virtual int WidthOf(hb_codepoint_t glyph) = 0;

private:
    CodeTable::Lengths lengths_;
    FontNumbers& numbers_;
    std::deque<Subset> subsets_;
};

/// Writes what tells the text of each code. Returns the number of the stream.
int WriteToUnicode(ObjectFile& file, const CodeTable& codes);

/// The begin and the end of a map of codes, around its entries.
std::string MapHead(const CodeTable& codes, std::string_view name);
std::string_view MapFoot();

/// Lists entries in sections of at most a hundred, which is what a map allows.
template <class Range, class Append>
void AppendSections(std::string& out, const Range& range, const std::string& kind,
                    const Append& append) {
    constexpr std::ptrdiff_t kMost = 100;
    std::ptrdiff_t left = std::ssize(range);
    std::ptrdiff_t inSection = 0;
    for (const auto& one : range) {
        if (inSection == 0) {
            inSection = left < kMost ? left : kMost;
            left -= inSection;
            out += std::to_string(inSection) + " begin" + kind + "\n";
        }
        append(out, one);
        if (--inSection == 0) out += "end" + kind + "\n";
    }
}

}  // namespace desk::pdf
