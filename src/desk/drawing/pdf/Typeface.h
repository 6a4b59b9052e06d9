#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

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

/// Counts the fonts of a file.
struct FontNumbers {
    ObjectFile& file;
    int next = 0;
};

/// The letters of one design as fonts of the file. A further font is added when the codes of the
/// last one are all taken.
class Typeface {
public:
    Typeface(CodeTable::Lengths lengths, FontNumbers& numbers)
        : lengths_(lengths), numbers_(numbers) {}
    virtual ~Typeface() = default;

    struct Place {
        const Subset* subset;
        const CodeTable::Entry* entry;
    };
    /// Returns where a glyph that stands for a text is found. Adds it if it is not there yet.
    Place Find(hb_codepoint_t glyph, std::string_view text);

    const std::deque<Subset>& Subsets() const { return subsets_; }

    /// Writes all of its fonts. Nothing can be found after it.
    void Write() {
        for (const Subset& subset : subsets_) WriteSubset(numbers_.file, subset);
    }

protected:
    /// Width of a glyph in thousandths of the font's size. Whole ones, since many programs that
    /// read the file take no others.
    virtual int WidthOf(hb_codepoint_t glyph) = 0;
    virtual void WriteSubset(ObjectFile& file, const Subset& subset) = 0;

private:
    CodeTable::Lengths lengths_;
    FontNumbers& numbers_;
    std::deque<Subset> subsets_;
};

/// What a map gives for a code, in its syntax.
struct Mapping {
    Code code;
    std::string value;
};

/// The text of a map from codes to glyphs or to texts.
enum class MapTo { Glyphs, Texts };
std::string CodeMap(const CodeTable& codes, MapTo to, const std::vector<Mapping>& mappings);

/// Writes the map from codes to texts. Returns the number of the stream.
int WriteToUnicode(ObjectFile& file, const CodeTable& codes);

}  // namespace desk::pdf
