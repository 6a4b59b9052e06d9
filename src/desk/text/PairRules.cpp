#include "desk/text/PairRules.h"

#include <algorithm>
#include <hb-aat.h>
#include <hb-ot.h>
#include <utility>

#include "desk/text/LayoutTable.h"

namespace desk {
namespace {

/// Features that the shaper turns on for every line of plain text. It plans those of fractions as
/// well, but they act only beside U+2044, which no plain text holds.
constexpr hb_tag_t kOrdinaryFeatures[] = {
    HB_TAG('r', 'v', 'r', 'n'), HB_TAG('l', 't', 'r', 'a'), HB_TAG('l', 't', 'r', 'm'),
    HB_TAG('r', 'a', 'n', 'd'), HB_TAG('c', 'c', 'm', 'p'), HB_TAG('l', 'o', 'c', 'l'),
    HB_TAG('r', 'l', 'i', 'g'), HB_TAG('c', 'a', 'l', 't'), HB_TAG('c', 'l', 'i', 'g'),
    HB_TAG('l', 'i', 'g', 'a'), HB_TAG('r', 'c', 'l', 't'), HB_TAG_NONE};
constexpr hb_tag_t kFractionFeatures[] = {HB_TAG('f', 'r', 'a', 'c'), HB_TAG('n', 'u', 'm', 'r'),
                                          HB_TAG('d', 'n', 'o', 'm'), HB_TAG_NONE};

SetHandle NewSet() {
    return SetHandle(hb_set_create());
}

SetHandle LookupsOfFeatures(hb_face_t* face, const hb_tag_t* features) {
    SetHandle lookups = NewSet();
    hb_ot_layout_collect_lookups(face, HB_OT_TAG_GSUB, nullptr, nullptr, features, lookups.get());
    return lookups;
}

/// Lookups of a table that the shaper applies to a line.
SetHandle PlannedLookups(hb_face_t* face, const Writing& writing, hb_tag_t table) {
    hb_segment_properties_t properties = HB_SEGMENT_PROPERTIES_DEFAULT;
    properties.direction = HB_DIRECTION_LTR;
    properties.script = writing.script;
    properties.language = writing.language;
    const ShapePlanHandle plan(hb_shape_plan_create_cached(face, &properties, nullptr, 0, nullptr));
    SetHandle lookups = NewSet();
    hb_ot_shape_plan_collect_lookups(plan.get(), table, lookups.get());
    return lookups;
}

template <class Visit>
void ForEachMember(const SetHandle& set, const Visit& visit) {
    for (hb_codepoint_t member = HB_SET_VALUE_INVALID; hb_set_next(set.get(), &member);)
        visit(member);
}

/// Whether the font brings rules other than those of OpenType. The version of a table of kerning
/// tells whether it may hold rules beyond pairs.
bool HasForeignRules(hb_face_t* face) {
    const BlobHandle kerning(hb_face_reference_table(face, HB_TAG('k', 'e', 'r', 'n')));
    unsigned length = 0;
    const char* const data = hb_blob_get_data(kerning.get(), &length);
    const bool extendedKerning = length >= 2 && (data[0] != 0 || data[1] != 0);
    return extendedKerning || hb_aat_layout_has_substitution(face) ||
           hb_aat_layout_has_positioning(face) || hb_aat_layout_has_tracking(face);
}

/// What is known of a face while its rules are read.
struct Reading {
    hb_face_t* face;
    const Writing& writing;
    SetHandle plain;  ///< Glyphs that a plain line may ever hold, replaced ones included.
    PairRules rules;
};

/// Glyphs that a lookup asks for, at whatever place of its rules.
SetHandle AskedGlyphs(hb_face_t* face, hb_tag_t table, unsigned lookup, hb_set_t* outputs) {
    SetHandle glyphs = NewSet();
    hb_ot_layout_lookup_collect_glyphs(face, table, lookup, glyphs.get(), glyphs.get(),
                                       glyphs.get(), outputs);
    return glyphs;
}

bool IsInContext(hb_tag_t table, const LayoutTable::Subtable& subtable) {
    return table == HB_OT_TAG_GSUB ? subtable.kind == LayoutTable::kSubstituteInContext ||
                                         subtable.kind == LayoutTable::kSubstituteInChain
                                   : subtable.kind == LayoutTable::kPositionInContext ||
                                         subtable.kind == LayoutTable::kPositionInChain;
}

/// A rule by classes of glyphs may ask for "any glyph that is in none", which no set tells.
bool MayMatchAnyGlyph(hb_tag_t table, const LayoutTable::Subtable& subtable) {
    return IsInContext(table, subtable) && subtable.format == LayoutTable::kByClasses;
}

/// Takes note of one lookup of positions. Those of marks do not count: plain text has no marks.
void ReadPositions(Reading& reading, const LayoutTable& table, unsigned lookup) {
    const SetHandle asked = AskedGlyphs(reading.face, HB_OT_TAG_GPOS, lookup, nullptr);
    for (const auto& subtable : table.Subtables(lookup)) {
        const bool ofMarks = subtable.kind >= LayoutTable::kPositionMarkFirst &&
                             subtable.kind <= LayoutTable::kPositionMarkLast;
        if (ofMarks || subtable.kind == LayoutTable::kPositionSingle) continue;
        if (table.SkipsBases(lookup) || MayMatchAnyGlyph(HB_OT_TAG_GPOS, subtable) ||
            (subtable.kind == LayoutTable::kPositionPair && table.MovesSecond(subtable)))
            reading.rules.positionsByPairs = false;
        else if (subtable.kind != LayoutTable::kPositionPair)
            hb_set_union(reading.rules.joining.get(), asked.get());
    }
}

/// Whether a lookup can replace anything in a plain line: whether it still brings about one of its
/// outputs once that glyph is taken away. Many lookups act beside combining marks alone.
bool Replaces(const Reading& reading, unsigned lookup, hb_set_t* asked, hb_set_t* outputs) {
    bool replaces = false;
    hb_set_intersect(outputs, reading.plain.get());
    const SetHandle line = NewSet();
    for (hb_codepoint_t glyph = HB_SET_VALUE_INVALID; hb_set_next(outputs, &glyph);) {
        hb_set_set(line.get(), reading.plain.get());
        hb_set_del(line.get(), glyph);
        hb_ot_layout_lookup_substitute_closure(reading.face, lookup, line.get());
        replaces = replaces || hb_set_has(asked, glyph) || hb_set_has(line.get(), glyph);
    }
    return replaces;
}

void ReadReplacements(Reading& reading, const LayoutTable& table, unsigned lookup) {
    const SetHandle outputs = NewSet();
    const SetHandle asked = AskedGlyphs(reading.face, HB_OT_TAG_GSUB, lookup, outputs.get());
    if (!Replaces(reading, lookup, asked.get(), outputs.get())) return;
    const auto subtables = table.Subtables(lookup);
    const bool anyGlyph = table.SkipsBases(lookup) ||
                          std::any_of(subtables.begin(), subtables.end(), [](const auto& subtable) {
                              return MayMatchAnyGlyph(HB_OT_TAG_GSUB, subtable);
                          });
    hb_set_union(anyGlyph ? reading.rules.unsteady.get() : reading.rules.joining.get(),
                 asked.get());
}

void ReadAllReplacements(Reading& reading) {
    const LayoutTable table(reading.face, HB_OT_TAG_GSUB);
    const SetHandle fractions = LookupsOfFeatures(reading.face, kFractionFeatures);
    hb_set_subtract(fractions.get(), LookupsOfFeatures(reading.face, kOrdinaryFeatures).get());
    const SetHandle lookups = PlannedLookups(reading.face, reading.writing, HB_OT_TAG_GSUB);
    hb_set_subtract(lookups.get(), fractions.get());
    hb_ot_layout_lookups_substitute_closure(reading.face, lookups.get(), reading.plain.get());
    ForEachMember(lookups, [&](unsigned lookup) { ReadReplacements(reading, table, lookup); });
}

void ReadAllPositions(Reading& reading) {
    const LayoutTable table(reading.face, HB_OT_TAG_GPOS);
    ForEachMember(PlannedLookups(reading.face, reading.writing, HB_OT_TAG_GPOS),
                  [&](unsigned lookup) { ReadPositions(reading, table, lookup); });
}

}  // namespace

PairRules ReadPairRules(hb_face_t* face, const Writing& writing, const hb_set_t* plain) {
    Reading reading{face, writing, NewSet(), {!HasForeignRules(face), NewSet(), NewSet()}};
    hb_set_set(reading.plain.get(), plain);
    if (reading.rules.positionsByPairs) ReadAllPositions(reading);
    if (reading.rules.positionsByPairs) ReadAllReplacements(reading);
    return std::move(reading.rules);
}

}  // namespace desk
