#include "desk/text/TextEngine.h"

#include <algorithm>
#include <cmath>

#include "desk/text/DirectShaper.h"
#include "desk/text/FontCache.h"
#include "desk/text/LayoutShaper.h"
#include "desk/text/TextBlock.h"
#include "desk/text/TextSetter.h"

namespace desk {
namespace {

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
    explicit State(Measuring chosen) : measuring(chosen) {}

    Measuring measuring;
    FontCache fonts;
    ShapedRunCache cache;
    DirectShaper direct{cache};
    LayoutShaper layout{fonts.Context()};
    TextSetter setter{direct, layout};

    /// Measured last. A text that is fitted is measured again as soon as it stands on the page.
    const ResolvedFont* lastFont = nullptr;
    std::string lastText;
    host::TextExtent lastExtent;

    /// Width of a line in points.
    double Width(const ResolvedFont& font, std::string_view line) {
        if (measuring == Measuring::FullLayout) return Points(layout.Shape(font, line));
        if (const auto sum = direct.Width(font, line)) return Points(*sum);
        const auto layOut = [&] {
            ShapedRun run;
            run.width = layout.Shape(font, line);
            return run;
        };
        return Points(cache.Find({font.number, PlainClass::None, line}, layOut).width);
    }

    host::TextExtent Extent(const ResolvedFont& font, std::string_view text) {
        double widest = 0;
        double lines = 0;
        ForEachLine(text, [&](std::string_view line) {
            widest = std::max(widest, Width(font, line));
            ++lines;
        });
        return {widest, lines * font.lineHeight};
    }
};

TextEngine::TextEngine(Measuring measuring) : state_(std::make_unique<State>(measuring)) {}
TextEngine::~TextEngine() = default;

const ResolvedFont& TextEngine::Find(const FontSpec& spec) {
    return state_->fonts.Find(spec);
}

host::TextExtent TextEngine::Measure(const ResolvedFont& font, std::string_view text) {
    State& state = *state_;
    if (state.lastFont == &font && state.lastText == text) return state.lastExtent;
    const bool hasReturns = text.find('\r') != std::string_view::npos;
    state.lastExtent = state.Extent(font, hasReturns ? WithoutReturns(text) : text);
    state.lastFont = &font;
    state.lastText = text;
    return state.lastExtent;
}

TextBox TextEngine::Set(const PlacedText& text, PlacedGlyphs& into) {
    const host::TextExtent size = state_->setter.Set(text, into);
    const ResolvedFont& font = *text.font;
    const TextPlacement& placement = text.placement;
    const double left = -LeftShare(placement.horizontal) * size.xSize;
    const double top = FirstBaseline(font, size.ySize, placement.vertical) - font.ascent;
    const TextBox box{left, top, left + size.xSize, top + size.ySize};
    return placement.angle == 0 ? box : Turned(box, placement.angle);
}

void TextEngine::Draw(GlyphCanvas& canvas, const PlacedText& text) {
    PlacedGlyphs texts;
    Set(text, texts);
    texts.Show(canvas, 0, texts.LineCount());
}

std::vector<FontSubstitution> TextEngine::Substitutions() const {
    return state_->fonts.Substitutions();
}

const std::set<char32_t>& TextEngine::MissingCharacters() const {
    return state_->layout.Missing();
}

}  // namespace desk
