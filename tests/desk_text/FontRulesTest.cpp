// Rules that reach over blanks and along leaders, in fonts made for it: few fonts at hand have any.
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

class FontRules : public testing::Test {
protected:
    std::uint16_t Glyph(char letter) const {
        hb_codepoint_t glyph = 0;
        hb_font_get_nominal_glyph(real_.shaping, static_cast<hb_codepoint_t>(letter), &glyph);
        return static_cast<std::uint16_t>(glyph);
    }
    /// Replaces a letter by the widest one.
    Lookup Widen(std::uint16_t letter) const { return {1, {2, 8, 1, Glyph('W'), 1, 1, letter}}; }

    /// Sets every line of up to six of the characters in words and as a whole. Returns how many of
    /// them the rule changes.
    int CompareAllLines(Tables tables) const {
        tables.real = hb_font_get_face(real_.shaping);
        const std::unique_ptr<hb_face_t, desk::Releaser<hb_face_destroy>> face(
            hb_face_create_for_tables(TableOf, &tables, nullptr));
        const std::unique_ptr<hb_font_t, desk::Releaser<hb_font_destroy>> shaping(
            hb_font_create(face.get()));
        hb_font_set_scale(shaping.get(), 8 * 1024, 8 * 1024);
        desk::ResolvedFont font;
        font.shaping = shaping.get();
        font.plain = real_.plain;

        desk::ShapedRunCache memory;
        desk::DirectShaper direct(memory);
        desk::RunShaper shaper;
        std::vector<std::string> lines{""};
        int changed = 0;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const std::string line = lines[i];
            const auto writing = desk::WritingOf(desk::PlainScript(line, font.plain));
            const auto wanted = shaper.Shape(font.shaping, writing, line, line.size()).width;
            EXPECT_EQ(direct.Width(font, line), wanted) << line;
            desk::GlyphUnits plain = 0;
            for (const char letter : line)
                plain += hb_font_get_glyph_h_advance(font.shaping, Glyph(letter));
            changed += plain != wanted;
            if (line.size() < 6)
                for (const char letter : {'a', 'b', ' ', '.'}) lines.push_back(line + letter);
        }
        return changed;
    }

private:
    desk::FontCache fonts_;
    const desk::ResolvedFont& real_ = fonts_.Find({"DejaVu Sans", 8, false});
};

TEST_F(FontRules, WordsAndLeadersGiveTheWidthsOfWholeLines) {
    const auto a = Glyph('a');
    const auto b = Glyph('b');
    const auto blank = Glyph(' ');
    const auto dot = Glyph('.');
    // The middle one of three, for the sake of the others.
    const auto chain = [](std::uint16_t first, std::uint16_t second, std::uint16_t third) {
        return Words{3, 1, 20, 1, 26, 1, 32, 1, 0, 1, 1, 1, first, 1, 1, second, 1, 1, third};
    };
    // "a", any glyph that is in no class, "b".
    Words anyGlyph{2, 14, 20, 3, 0, 36, 0, /* coverage */ 1, 1, a};
    Append(anyGlyph, {/* classes */ 2, 2, a, a, 1, b, b, 2});
    Append(anyGlyph, {/* set */ 1, 4, /* rule */ 3, 1, 0, 2, 0, 1});
    const auto join = [&](const Words& glyphs) {
        Words words{1, 8, 1, 14, 1, 1, glyphs[0], /* set */ 1, 4, Glyph('W')};
        words.push_back(static_cast<std::uint16_t>(glyphs.size()));
        words.insert(words.end(), glyphs.begin() + 1, glyphs.end());
        return words;
    };
    Words pairs{1, 14, 4, 0, 2, 22, 28, /* coverage */ 1, 2, a, blank};
    Append(pairs, {/* a blank */ 1, blank, 200, /* blank a */ 1, a, 300});
    // Where both glyphs of a pair move, the second cannot begin another pair.
    Words swallowing{1, 14, 4, 4, 2, 22, 30, /* coverage */ 1, 2, a, blank};
    Append(swallowing, {/* a blank */ 1, blank, 200, 100, /* blank a */ 1, a, 300, 50});
    Words ofDots{1, 14, 4, 0, 2, 22, 28, /* coverage */ 1, 2, a, dot};
    Append(ofDots, {/* a dot */ 1, dot, 200, /* dot dot */ 1, dot, 300});

    const Lookup moved{1, {1, 8, 4, 300, 1, 1, b}};
    const std::tuple<const char*, hb_tag_t, const char*, std::vector<Lookup>> rules[] = {
        {"replaces behind a blank", HB_OT_TAG_GSUB, "calt", {{6, chain(blank, b, a)}, Widen(b)}},
        {"replaces over a blank", HB_OT_TAG_GSUB, "calt", {{6, chain(a, blank, b)}, Widen(blank)}},
        {"reaches over any glyph", HB_OT_TAG_GSUB, "calt", {{5, anyGlyph}, Widen(a)}},
        {"joins over a blank", HB_OT_TAG_GSUB, "liga", {{4, join({a, blank, b})}}},
        {"joins words", HB_OT_TAG_GSUB, "liga", {{4, join({a, a, blank, b})}}},
        {"joins two dots", HB_OT_TAG_GSUB, "liga", {{4, join({dot, dot})}}},
        {"joins three dots", HB_OT_TAG_GSUB, "liga", {{4, join({dot, dot, dot})}}},
        {"joins four dots", HB_OT_TAG_GSUB, "liga", {{4, join({dot, dot, dot, dot})}}},
        {"replaces among dots", HB_OT_TAG_GSUB, "calt", {{6, chain(dot, dot, dot)}, Widen(dot)}},
        {"kerns blanks", HB_OT_TAG_GPOS, "kern", {{2, pairs}}},
        {"kerns blanks in pairs that swallow the next", HB_OT_TAG_GPOS, "kern", {{2, swallowing}}},
        {"kerns dots", HB_OT_TAG_GPOS, "kern", {{2, ofDots}}},
        {"moves behind a blank", HB_OT_TAG_GPOS, "kern", {{8, chain(blank, b, a)}, moved}},
    };
    for (const auto& [what, table, feature, lookups] : rules) {
        SCOPED_TRACE(what);
        EXPECT_GT(CompareAllLines({nullptr, table, LayoutBytes(feature, lookups)}), 0);
    }
}

}  // namespace
