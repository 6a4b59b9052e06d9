#include "desk/text/FontCache.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <pango/pangocairo.h>
#include <string_view>

#include "characters/FoldCase.h"
#include "host/Failure.h"
#include "host/Geometry.h"

namespace desk {
namespace {

/// Points; files store sizes in 1/100 point.
constexpr double kSmallestType = 0.01;

GObjectHandle<PangoFontMap> NewFontMap() {
    GObjectHandle<PangoFontMap> map(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT));
    if (!map) throw host::Failure(host::kFailureUnspecified, "FontCache", "No fonts can be used.");
    // One dot per point.
    pango_cairo_font_map_set_resolution(PANGO_CAIRO_FONT_MAP(map.get()), host::kPointsPerInch);
    return map;
}

GObjectHandle<PangoContext> NewContext(PangoFontMap* map) {
    GObjectHandle<PangoContext> context(pango_font_map_create_context(map));
    const FontOptionsHandle options(cairo_font_options_create());
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    pango_cairo_context_set_font_options(context.get(), options.get());
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    pango_context_set_language(context.get(), pango_language_from_string(kTextLanguage));
    return context;
}

/// Returns the size in Pango units. Size 0 would mean unset, and drawing libraries fail above some
/// thousand points; documents may contain any size.
int PangoSize(double points) {
    constexpr double kLargestType = 20'000;
    const double known = std::clamp(points, kSmallestType, kLargestType);
    return static_cast<int>(std::lround(known * PANGO_SCALE));
}

FontDescriptionHandle Describe(const FontSpec& spec) {
    FontDescriptionHandle description(pango_font_description_new());
    pango_font_description_set_family(description.get(), spec.family.c_str());
    pango_font_description_set_size(description.get(), PangoSize(spec.points));
    pango_font_description_set_weight(description.get(),
                                      spec.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_style(description.get(),
                                     spec.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    return description;
}

/// Names of kinds of fonts; any installed font of the kind is a match, not a substitution.
bool IsGenericFamily(const std::string& family) {
    static constexpr std::array<std::string_view, 7> kGeneric = {
        "", "sans", "sans-serif", "serif", "monospace", "mono", "system-ui"};
    return std::ranges::find(kGeneric, characters::FoldCase(family)) != kGeneric.end();
}

bool IsInstalled(const std::string& family) {
    const PatternHandle pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    const ObjectSetHandle wanted(FcObjectSetCreate());
    const FontSetHandle found(FcFontList(nullptr, pattern.get(), wanted.get()));
    return found && found->nfont > 0;
}

std::string FamilyOf(PangoFont* font) {
    const FontDescriptionHandle description(pango_font_describe(font));
    const char* family = pango_font_description_get_family(description.get());
    return family ? family : "";
}

void ReadMetrics(ResolvedFont& font) {
    hb_font_extents_t extents{};
    hb_font_get_extents_for_direction(font.shaping, HB_DIRECTION_LTR, &extents);
    font.ascent = static_cast<double>(extents.ascender) / PANGO_SCALE;
    font.lineHeight = static_cast<double>(extents.ascender - extents.descender) / PANGO_SCALE;
}

void ReadCoverage(ResolvedFont& font) {
    const PlainClasses& all = AllPlainClasses();
    for (hb_codepoint_t character = 0; character < kPlainTextLimit; ++character) {
        hb_codepoint_t glyph = 0;
        if (all[character] != PlainClass::None &&
            hb_font_get_nominal_glyph(font.shaping, character, &glyph))
            font.plain[character] = all[character];
    }
}

}  // namespace

FontCache::FontCache() : map_(NewFontMap()), context_(NewContext(map_.get())) {}

const ResolvedFont& FontCache::Find(const FontSpec& spec) {
    if (last_ && last_->spec == spec) return *last_;
    const auto known = std::find_if(fonts_.begin(), fonts_.end(),
                                    [&](const ResolvedFont& font) { return font.spec == spec; });
    last_ = known != fonts_.end() ? &*known : &Resolve(spec);
    return *last_;
}

const ResolvedFont& FontCache::Resolve(const FontSpec& spec) {
    ResolvedFont font;
    font.spec = spec;
    font.number = static_cast<std::uint32_t>(fonts_.size());
    font.description = Describe(spec);
    font.font.reset(pango_font_map_load_font(map_.get(), context_.get(), font.description.get()));
    if (!font.font)
        throw host::Failure(host::kFailureNotFound, "FontCache",
                            "No font can be found for \"" + spec.family + "\".");
    font.shaping = pango_font_get_hb_font(font.font.get());
    font.drawing = pango_cairo_font_get_scaled_font(PANGO_CAIRO_FONT(font.font.get()));
    ReadMetrics(font);
    ReadCoverage(font);
    NoteSubstitution(font);
    return fonts_.emplace_back(std::move(font));
}

void FontCache::NoteSubstitution(const ResolvedFont& font) {
    const std::string& wanted = font.spec.family;
    const bool known = std::any_of(
        substitutions_.begin(), substitutions_.end(),
        [&](const FontSubstitution& substitution) { return substitution.wanted == wanted; });
    if (known || IsGenericFamily(wanted) || IsInstalled(wanted)) return;
    substitutions_.push_back({wanted, FamilyOf(font.font.get())});
}

}  // namespace desk
