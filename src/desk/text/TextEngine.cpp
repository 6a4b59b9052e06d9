#include "desk/text/TextEngine.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "desk/text/DirectShaper.h"
#include "desk/text/FontCache.h"
#include "desk/text/LayoutShaper.h"
#include "desk/text/WidthMemo.h"

namespace desk {
namespace {

constexpr double kUnitsPerPoint = PANGO_SCALE;

std::string WithoutReturns(std::string_view text) {
    std::string rest(text);
    std::erase(rest, '\r');
    return rest;
}

/// Calls for each line of a text that holds no CR.
template <class Visit>
void ForEachLine(std::string_view text, const Visit& visit) {
    for (std::size_t start = 0;;) {
        const std::size_t end = text.find('\n', start);
        visit(text.substr(start, end - start));
        if (end == std::string_view::npos) return;
        start = end + 1;
    }
}

double LineCount(std::string_view text) {
    return 1 + static_cast<double>(std::count(text.begin(), text.end(), '\n'));
}

/// Share of the free width that stands left of a line or a box.
double LeftShare(int horizontal) {
    return horizontal == 1 ? 0.5 : horizontal == 2 ? 1.0 : 0.0;
}

/// Distance from the point down to the first baseline of a text.
double FirstBaseline(const ResolvedFont& font, double height, int vertical) {
    switch (vertical) {
        case 1:
            return font.ascent - height / 2;
        case 2:
            return font.lineHeight - height;
        case 3:
            return font.ascent - height;
        default:
            return font.ascent;
    }
}

double Radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

/// The box around a box that is turned about the origin.
TextBox Turned(const TextBox& box, double degrees) {
    const double c = std::cos(Radians(degrees));
    const double s = std::sin(Radians(degrees));
    const auto xs = {box.left * c + box.top * s, box.right * c + box.top * s,
                     box.left * c + box.bottom * s, box.right * c + box.bottom * s};
    const auto ys = {box.top * c - box.left * s, box.top * c - box.right * s,
                     box.bottom * c - box.left * s, box.bottom * c - box.right * s};
    return {std::min(xs), std::min(ys), std::max(xs), std::max(ys)};
}

}  // namespace

struct TextEngine::State {
    explicit State(Ways chosen) : ways(chosen) {}

    Ways ways;
    FontCache fonts;
    DirectShaper direct;
    LayoutShaper layout{fonts.Context()};
    WidthMemo memo;
    std::size_t measurements = 0;
    std::vector<int> prefixSums;  ///< Kept for its storage.

    /// The text measured last: who lays out a text asks for its size, and then its element for its
    /// bounds.
    std::string lastText;
    const ResolvedFont* lastFont = nullptr;
    host::TextExtent lastExtent;

    /// Width of a line in points.
    double Width(const ResolvedFont& font, std::string_view line) {
        if (ways == Ways::Plain) return layout.Shape(font, line) / kUnitsPerPoint;
        if (const auto sum = direct.SumWidthAsBefore(font, line)) return *sum / kUnitsPerPoint;
        const auto script = PlainScript(line, font.plain);
        if (script)
            if (const auto sum = direct.SumWidth(font, *script, line)) return *sum / kUnitsPerPoint;
        return memo.Find(font.number, line, [&] {
            return (script ? direct.ShapedWidth(font, *script, line) : layout.Shape(font, line)) /
                   kUnitsPerPoint;
        });
    }

    host::TextExtent Extent(const ResolvedFont& font, std::string_view text) {
        host::TextExtent extent{0, LineCount(text) * font.lineHeight};
        ForEachLine(text, [&](std::string_view line) {
            extent.xSize = std::max(extent.xSize, Width(font, line));
        });
        return extent;
    }

    /// Draws the lines, each with the share of its width left of the point.
    void DrawLines(cairo_t* context, GlyphRun& run, const ResolvedFont& font, std::string_view text,
                   double leftShare, double x, double baseline) {
        ForEachLine(text, [&](std::string_view line) {
            if (const auto script = PlainScript(line, font.plain)) {
                run.BeginLine(font.drawing);
                const double width = direct.Place(font, *script, line, run) / kUnitsPerPoint;
                run.PlaceLine(x - leftShare * width, baseline);
            } else {
                const double width = layout.Shape(font, line) / kUnitsPerPoint;
                layout.Show(context, run, x - leftShare * width, baseline);
            }
            baseline += font.lineHeight;
        });
    }

    void DrawUpright(cairo_t* context, GlyphRun& run, const PlacedText& placed, double x,
                     double y) {
        const ResolvedFont& font = fonts.Find(placed.font);
        const std::string text = WithoutReturns(placed.text);
        const double height = LineCount(text) * font.lineHeight;
        DrawLines(context, run, font, text, LeftShare(placed.placement.horizontal), x,
                  y + FirstBaseline(font, height, placed.placement.vertical));
    }

    void DrawTurned(cairo_t* context, const PlacedText& placed) {
        cairo_save(context);
        cairo_translate(context, placed.x, placed.y);
        cairo_rotate(context, -Radians(placed.placement.angle));
        GlyphRun run(context);
        DrawUpright(context, run, placed, 0, 0);
        run.Show();
        cairo_restore(context);
    }
};

TextEngine::TextEngine(Ways ways) : state_(std::make_unique<State>(ways)) {}
TextEngine::~TextEngine() = default;

const ResolvedFont& TextEngine::Find(const FontSpec& spec) {
    return state_->fonts.Find(spec);
}

host::TextExtent TextEngine::Measure(const ResolvedFont& font, std::string_view text) {
    ++state_->measurements;
    if (state_->lastFont != &font || state_->lastText != text) {
        state_->lastExtent = text.find('\r') == std::string_view::npos
                                 ? state_->Extent(font, text)
                                 : state_->Extent(font, WithoutReturns(text));
        state_->lastFont = &font;
        state_->lastText = text;
    }
    return state_->lastExtent;
}

bool TextEngine::MeasurePrefixes(const ResolvedFont& font, std::string_view line,
                                 std::span<const std::size_t> ends, host::PrefixExtents& extents) {
    if (state_->ways == Ways::Plain) return false;
    std::vector<int>& sums = state_->prefixSums;
    sums.clear();
    if (!state_->direct.SumPrefixWidths(font, line, ends, sums)) return false;
    ++state_->measurements;
    extents.widths.resize(sums.size());
    std::ranges::transform(sums, extents.widths.begin(),
                           [](int sum) { return sum / kUnitsPerPoint; });
    extents.height = font.lineHeight;
    return true;
}

TextBox TextEngine::Bounds(const FontSpec& spec, std::string_view text,
                           const TextPlacement& placement) {
    const ResolvedFont& font = Find(spec);
    const host::TextExtent size = Measure(font, text);
    const double left = -LeftShare(placement.horizontal) * size.xSize;
    const double top = FirstBaseline(font, size.ySize, placement.vertical) - font.ascent;
    const TextBox box{left, top, left + size.xSize, top + size.ySize};
    return placement.angle == 0 ? box : Turned(box, placement.angle);
}

void TextEngine::Draw(cairo_t* context, const FontSpec& font, std::string_view text,
                      const TextPlacement& placement) {
    const PlacedText placed{font, std::string(text), placement, 0, 0};
    DrawAll(context, {&placed, 1});
}

void TextEngine::DrawAll(cairo_t* context, std::span<const PlacedText> texts) {
    GlyphRun run(context);
    for (const PlacedText& placed : texts) {
        if (placed.placement.angle == 0)
            state_->DrawUpright(context, run, placed, placed.x, placed.y);
        else
            state_->DrawTurned(context, placed);
    }
    run.Show();
}

std::vector<FontSubstitution> TextEngine::Substitutions() const {
    return state_->fonts.Substitutions();
}

std::size_t TextEngine::Measurements() const {
    return state_->measurements;
}

}  // namespace desk
