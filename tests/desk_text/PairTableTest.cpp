// Rules that act on more than pairs, in fonts made for it: no font at hand has them for plain text.
#include <gtest/gtest.h>
#include <hb-ot.h>
#include <memory>
#include <string>
#include <vector>

#include "desk/text/DirectShaper.h"

namespace {

using Words = std::vector<std::uint16_t>;

struct Lookup {
    std::uint16_t kind;
    Words subtable;
};

Words Tag(const char* tag) {
    const auto word = [&](int at) {
        return static_cast<std::uint16_t>(tag[at] << 8 | tag[at + 1]);
    };
    return {word(0), word(2)};
}

void Append(Words& words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
}

/// A GSUB or GPOS table with one feature for all scripts, which uses the first lookup alone.
std::string LayoutBytes(const char* feature, const std::vector<Lookup>& lookups) {
    Words words{1, 0, 10, 30, 44, /* scripts */ 1};
    Append(words, Tag("DFLT"));
    Append(words, {8, /* script */ 4, 0, /* language */ 0, 0xFFFF, 1, 0, /* features */ 1});
    Append(words, Tag(feature));
    Append(words, {8, /* feature */ 0, 1, 0});
    words.push_back(static_cast<std::uint16_t>(lookups.size()));
    std::size_t offset = 2 + 2 * lookups.size();
    for (const auto& lookup : lookups) {
        words.push_back(static_cast<std::uint16_t>(offset));
        offset += 8 + 2 * lookup.subtable.size();
    }
    for (const auto& lookup : lookups) {
        Append(words, {lookup.kind, 0, 1, 8});
        Append(words, lookup.subtable);
    }
    std::string bytes;
    for (const auto word : words) bytes += {static_cast<char>(word >> 8), static_cast<char>(word)};
    return bytes;
}

/// A real font with one table in place of all its rules.
struct Tables {
    hb_face_t* real;
    hb_tag_t tag;
    std::string bytes;
};

hb_blob_t* TableOf(hb_face_t*, hb_tag_t tag, void* data) {
    const auto& tables = *static_cast<const Tables*>(data);
    if (tag == tables.tag)
        return hb_blob_create(tables.bytes.data(), static_cast<unsigned>(tables.bytes.size()),
                              HB_MEMORY_MODE_READONLY, nullptr, nullptr);
    const bool isRule = tag == HB_OT_TAG_GSUB || tag == HB_OT_TAG_GPOS || tag == HB_OT_TAG_GDEF ||
                        tag == HB_TAG('k', 'e', 'r', 'n');
    return isRule ? hb_blob_get_empty() : hb_face_reference_table(tables.real, tag);
}

struct Counts {
    int summed = 0;   ///< Lines that the quick way took.
    int changed = 0;  ///< Lines of which the rule changes the width.
};

class PairTableRules : public testing::Test {
protected:
    std::uint16_t Glyph(char letter) const {
        hb_codepoint_t glyph = 0;
        hb_font_get_nominal_glyph(real_.shaping, static_cast<hb_codepoint_t>(letter), &glyph);
        return static_cast<std::uint16_t>(glyph);
    }
    /// Replaces a letter by the widest one.
    Lookup Widen(std::uint16_t letter) const { return {1, {2, 8, 1, Glyph('W'), 1, 1, letter}}; }

    /// Sets every line of up to five of the letters both ways.
    Counts CompareAllLines(Tables tables) const {
        tables.real = hb_font_get_face(real_.shaping);
        const std::unique_ptr<hb_face_t, desk::Releaser<hb_face_destroy>> face(
            hb_face_create_for_tables(TableOf, &tables, nullptr));
        const std::unique_ptr<hb_font_t, desk::Releaser<hb_font_destroy>> shaping(
            hb_font_create(face.get()));
        hb_font_set_scale(shaping.get(), 8 * 1024, 8 * 1024);
        desk::ResolvedFont font;
        font.shaping = shaping.get();
        font.plain = real_.plain;

        desk::DirectShaper direct;
        std::vector<std::string> lines{""};
        Counts counts;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const std::string line = lines[i];
            const auto wanted = direct.ShapedWidth(font, HB_SCRIPT_LATIN, line);
            const auto sum = direct.SumWidth(font, HB_SCRIPT_LATIN, line);
            EXPECT_EQ(sum.value_or(wanted), wanted) << line;
            counts.summed += sum.has_value();
            int plain = 0;
            for (const char letter : line)
                plain += hb_font_get_glyph_h_advance(font.shaping, Glyph(letter));
            counts.changed += plain != wanted;
            if (line.size() < 5)
                for (const char letter : {'a', 'b', 'c', 'd'}) lines.push_back(line + letter);
        }
        return counts;
    }

private:
    desk::FontCache fonts_;
    const desk::ResolvedFont& real_ = fonts_.Find({"DejaVu Sans", 8, false});
};

TEST_F(PairTableRules, GiveTheWidthsOfTheShaper) {
    constexpr int kLines = 1365;
    const auto a = Glyph('a');
    const auto b = Glyph('b');
    const auto c = Glyph('c');
    const auto d = Glyph('d');
    const Words chain{3, 1, 20, 1, 26, 1, 32, 1, 0, 1, 1, 1, a, 1, 1, b, 1, 1, c};
    // "a", a letter of no class, "d": the letter between is in none of the rule's sets.
    Words context{2, 14, 20, 3, 0, 36, 0, /* coverage */ 1, 1, a};
    Append(context, {/* classes */ 2, 2, a, a, 1, d, d, 2});
    Append(context, {/* set */ 1, 4, /* rule */ 3, 1, 0, 2, 0, 1});
    const Words join{1, 8, 1, 14, 1, 1, a, /* set */ 1, 4, Glyph('W'), 3, b, c};
    Words pairs{1, 14, 4, 0, 2, 22, 28, /* coverage */ 1, 2, a, b};
    Append(pairs, {/* a b */ 1, b, 200, /* b a */ 1, a, 300});
    // Where both letters of a pair move, the second cannot begin another pair.
    Words swallowing{1, 14, 4, 4, 2, 22, 30, /* coverage */ 1, 2, a, b};
    Append(swallowing, {/* a b */ 1, b, 200, 100, /* b a */ 1, a, 300, 50});

    struct Rule {
        const char* what;
        hb_tag_t table;
        const char* feature;
        std::vector<Lookup> lookups;
        int changed;
        int summed;
    };
    const Rule rules[] = {
        {"replaces between neighbours", HB_OT_TAG_GSUB, "calt", {{6, chain}, Widen(b)}, 57, 1308},
        // Lines of b and c alone can be summed.
        {"reaches over any letter", HB_OT_TAG_GSUB, "calt", {{5, context}, Widen(a)}, 114, 63},
        {"joins three", HB_OT_TAG_GSUB, "liga", {{4, join}}, 57, 1308},
        {"pairs", HB_OT_TAG_GPOS, "kern", {{2, pairs}}, 484, kLines},
        {"pairs that swallow the next", HB_OT_TAG_GPOS, "kern", {{2, swallowing}}, 484, 0},
        {"moves between neighbours",
         HB_OT_TAG_GPOS,
         "kern",
         {{8, chain}, {1, {1, 8, 4, 300, 1, 1, b}}},
         57,
         1308},
    };
    for (const auto& rule : rules) {
        SCOPED_TRACE(rule.what);
        const auto counts =
            CompareAllLines({nullptr, rule.table, LayoutBytes(rule.feature, rule.lookups)});
        EXPECT_EQ(counts.changed, rule.changed);
        EXPECT_EQ(counts.summed, rule.summed);
    }
}

}  // namespace
