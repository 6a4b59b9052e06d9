// Rules that act on more than pairs, in fonts made for it: no font at hand has them for plain text.
#include <gtest/gtest.h>
#include <hb-ot.h>
#include <initializer_list>
#include <string>
#include <utility>
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
Words LayoutBytes(const char* feature, const std::vector<Lookup>& lookups) {
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
    return words;
}

class PairTableRules : public testing::Test {
protected:
    using FontHandle = std::unique_ptr<hb_font_t, desk::Releaser<hb_font_destroy>>;
    using FaceHandle = std::unique_ptr<hb_face_t, desk::Releaser<hb_face_destroy>>;

    std::uint16_t Glyph(char32_t letter) {
        hb_codepoint_t glyph = 0;
        hb_font_get_nominal_glyph(real_.shaping, letter, &glyph);
        return static_cast<std::uint16_t>(glyph);
    }

    /// The real font with one table in place of its own rules.
    desk::ResolvedFont WithTable(hb_tag_t tag, const Words& words) {
        std::string bytes;
        for (const auto word : words)
            bytes += {static_cast<char>(word >> 8), static_cast<char>(word)};
        face_.reset(hb_face_builder_create());
        hb_face_t* const old = hb_font_get_face(real_.shaping);
        for (const char* kept : {"cmap", "head", "hhea", "hmtx", "maxp", "OS/2", "name"}) {
            const hb_tag_t name = hb_tag_from_string(kept, 4);
            const desk::BlobHandle blob(hb_face_reference_table(old, name));
            hb_face_builder_add_table(face_.get(), name, blob.get());
        }
        const desk::BlobHandle blob(hb_blob_create(bytes.data(),
                                                   static_cast<unsigned>(bytes.size()),
                                                   HB_MEMORY_MODE_DUPLICATE, nullptr, nullptr));
        hb_face_builder_add_table(face_.get(), tag, blob.get());
        const desk::BlobHandle whole(hb_face_reference_blob(face_.get()));
        face_.reset(hb_face_create(whole.get(), 0));
        font_.reset(hb_font_create(face_.get()));
        hb_font_set_scale(font_.get(), 8 * 1024, 8 * 1024);
        desk::ResolvedFont font;
        font.shaping = font_.get();
        font.plain = real_.plain;
        return font;
    }

    /// Sets every line of up to five of the letters both ways. Tells how many took the quick one,
    /// and how many lines there are of which the rule changes the width.
    std::pair<int, int> CompareAllLines(const desk::ResolvedFont& font) {
        desk::DirectShaper direct;
        std::vector<std::string> lines{""};
        int summed = 0;
        int changed = 0;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const std::string line = lines[i];
            const int wanted = direct.ShapedWidth(font, HB_SCRIPT_LATIN, line);
            const auto sum = direct.SumWidth(font, HB_SCRIPT_LATIN, line);
            EXPECT_EQ(sum.value_or(wanted), wanted) << line;
            summed += sum.has_value();
            int plain = 0;
            for (const char letter : line)
                plain += hb_font_get_glyph_h_advance(font.shaping,
                                                     Glyph(static_cast<unsigned char>(letter)));
            changed += plain != wanted;
            if (line.size() < 5)
                for (const char letter : {'a', 'b', 'c', 'd'}) lines.push_back(line + letter);
        }
        return {summed, changed};
    }

    std::uint16_t a() { return Glyph('a'); }
    std::uint16_t b() { return Glyph('b'); }
    std::uint16_t c() { return Glyph('c'); }
    std::uint16_t d() { return Glyph('d'); }
    /// Replaces a letter by the widest one.
    Lookup Widen(std::uint16_t letter) { return {1, {2, 8, 1, Glyph('W'), 1, 1, letter}}; }

private:
    desk::FontCache fonts_;
    const desk::ResolvedFont& real_ = fonts_.Find({"DejaVu Sans", 8, false});
    FaceHandle face_;
    FontHandle font_;
};

TEST_F(PairTableRules, AReplacementBetweenNeighbours) {
    const Lookup chain{6, {3, 1, 20, 1, 26, 1, 32, 1, 0, 1, 1, 1, a(), 1, 1, b(), 1, 1, c()}};
    const auto font = WithTable(HB_OT_TAG_GSUB, LayoutBytes("calt", {chain, Widen(b())}));
    const auto [summed, changed] = CompareAllLines(font);
    EXPECT_GT(changed, 50);
    EXPECT_EQ(summed + changed, 1365);
}

TEST_F(PairTableRules, AReplacementThatReachesOverAnyLetter) {
    // "a", a letter of no class, "d": the letter between is in none of the rule's sets.
    const Lookup context{5,
                         {2,
                          14,
                          20,
                          3,
                          0,
                          36,
                          0,
                          /* coverage */ 1,
                          1,
                          a(),
                          /* classes */ 2,
                          2,
                          a(),
                          a(),
                          1,
                          d(),
                          d(),
                          2,
                          /* set */ 1,
                          4,
                          /* rule */ 3,
                          1,
                          0,
                          2,
                          0,
                          1}};
    const auto font = WithTable(HB_OT_TAG_GSUB, LayoutBytes("calt", {context, Widen(a())}));
    const auto [summed, changed] = CompareAllLines(font);
    EXPECT_GT(changed, 50);
    EXPECT_EQ(summed, 63) << "lines of b and c alone";
}

TEST_F(PairTableRules, AJoinOfThree) {
    const Lookup join{4, {1, 8, 1, 14, 1, 1, a(), /* set */ 1, 4, Glyph('W'), 3, b(), c()}};
    const auto [summed, changed] =
        CompareAllLines(WithTable(HB_OT_TAG_GSUB, LayoutBytes("liga", {join})));
    EXPECT_GT(changed, 50);
    EXPECT_EQ(summed + changed, 1365);
}

TEST_F(PairTableRules, APairThatSwallowsTheNext) {
    // Where both letters of a pair move, the second cannot begin another pair.
    const Lookup pairs{2,
                       {1, 14, 4, 4, 2, 22, 30, /* coverage */ 1, 2, a(), b(),
                        /* a b */ 1, b(), 200, 100, /* b a */ 1, a(), 300, 50}};
    const auto [summed, changed] =
        CompareAllLines(WithTable(HB_OT_TAG_GPOS, LayoutBytes("kern", {pairs})));
    EXPECT_GT(changed, 300);
    EXPECT_EQ(summed, 0);
}

TEST_F(PairTableRules, AMoveBetweenNeighbours) {
    const Lookup chain{8, {3, 1, 20, 1, 26, 1, 32, 1, 0, 1, 1, 1, a(), 1, 1, b(), 1, 1, c()}};
    const Lookup move{1, {1, 8, 4, 300, 1, 1, b()}};
    const auto [summed, changed] =
        CompareAllLines(WithTable(HB_OT_TAG_GPOS, LayoutBytes("kern", {chain, move})));
    EXPECT_GT(changed, 50);
    EXPECT_EQ(summed + changed, 1365);
}

TEST_F(PairTableRules, PairsAloneAreAllSummed) {
    const Lookup pairs{2,
                       {1, 14, 4, 0, 2, 22, 28, /* coverage */ 1, 2, a(), b(),
                        /* a b */ 1, b(), 200, /* b a */ 1, a(), 300}};
    const auto [summed, changed] =
        CompareAllLines(WithTable(HB_OT_TAG_GPOS, LayoutBytes("kern", {pairs})));
    EXPECT_GT(changed, 300);
    EXPECT_EQ(summed, 1365);
}

}  // namespace
