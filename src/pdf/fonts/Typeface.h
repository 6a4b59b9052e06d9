#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/file/ObjectFile.h"
#include "pdf/fonts/CodeTable.h"

namespace pdf {

/// A PDF font with the glyphs in use.
struct Subset {
    Subset(CodeTable::Lengths lengths, int named, int written)
        : codes(lengths), name(named), object(written) {}

    CodeTable codes;
    int name;    ///< Number in the font's resource name.
    int object;  ///< Object number.
};

struct FontNumbers {
    ObjectFile& file;
    int next = 0;
};

/// A typeface as one or more PDF fonts. A font is added when all codes of the last one are used.
class Typeface {
public:
    Typeface(CodeTable::Lengths lengths, FontNumbers& numbers)
        : lengths_(lengths), numbers_(numbers) {}
    virtual ~Typeface() = default;

    struct Place {
        const Subset* subset;
        const CodeTable::Entry* entry;
    };
    /// Returns the font and code of a glyph that represents a text; adds it if needed.
    Place Find(hb_codepoint_t glyph, std::string_view text);

    const std::deque<Subset>& Subsets() const { return subsets_; }

    /// Writes all fonts. Find must not be called afterwards.
    void Write() {
        for (const Subset& subset : subsets_) WriteSubset(numbers_.file, subset);
    }

protected:
    /// Returns a glyph's width in thousandths of the font size. Whole numbers, because many PDF
    /// readers support no others.
    virtual int WidthOf(hb_codepoint_t glyph) = 0;
    virtual void WriteSubset(ObjectFile& file, const Subset& subset) = 0;

private:
    CodeTable::Lengths lengths_;
    FontNumbers& numbers_;
    std::deque<Subset> subsets_;
};

/// A code and its value in CMap syntax.
struct Mapping {
    Code code;
    std::string value;
};

/// Returns the CMap from codes to glyphs or to texts.
enum class MapTo { Glyphs, Texts };
std::string CodeMap(const CodeTable& codes, MapTo to, const std::vector<Mapping>& mappings);

/// Writes the map from codes to texts. Returns the stream's object number.
int WriteToUnicode(ObjectFile& file, const CodeTable& codes);

}  // namespace pdf
