#include "desk/drawing/ElementPainter.h"

#include <array>
#include <optional>
#include <typeinfo>
#include <utility>
#include <vector>

#include "desk/devices/SymbolCanvas.h"
#include "desk/drawing/PaintQueue.h"
#include "host/Geometry.h"
#include "host/KnownCast.h"
#include "host/Symbols.h"

namespace desk {
namespace {

constexpr std::uint32_t kFrameColor = 0xA0A0A0;
constexpr double kFrameNamePoints = 10;

std::optional<PaintBox> BoxOf(const host::IHostElement& element) {
    const auto geometry = element.Geometry();
    if (!geometry) return std::nullopt;
    const auto bounds = geometry->Bounds();
    return PaintBox{bounds->XMin() * kPointsPerInch, -bounds->YMax() * kPointsPerInch,
                    bounds->XMax() * kPointsPerInch, -bounds->YMin() * kPointsPerInch};
}

enum class Kind { Text, Filled, MapFrame, Group, Other };

Kind AskKind(const host::IHostElement& element) {
    if (dynamic_cast<const host::IHostTextElement*>(&element)) return Kind::Text;
    if (dynamic_cast<const host::IHostFilledElement*>(&element)) return Kind::Filled;
    if (dynamic_cast<const host::IHostMapFrame*>(&element)) return Kind::MapFrame;
    if (dynamic_cast<const host::IHostGroupElement*>(&element)) return Kind::Group;
    return Kind::Other;
}

/// Caches the kind of each class, because a failed dynamic_cast costs as much as painting the
/// element. A class known to two libraries may have two type_info addresses and two entries.
class Kinds {
public:
    Kind Of(const host::IHostElement& element) {
        const std::type_info* const type = &typeid(element);
        for (const auto& [known, kind] : known_)
            if (known == type) return kind;
        return known_.emplace_back(type, AskKind(element)).second;
    }

private:
    std::vector<std::pair<const std::type_info*, Kind>> known_;
};

/// How a text symbol paints; without a colour the text is invisible.
struct TextStyle {
    const ResolvedFont* font = nullptr;
    TextPlacement placement;
    std::optional<pdf::Color> color;
};

struct FillStyle {
    std::optional<pdf::Color> fill, outline;
};

/// Caches the styles of the last symbols. Holds the symbols, so that their addresses are not
/// reused. Valid for one pass, during which symbols do not change.
template <class Symbol, class Style>
class StyleCache {
public:
    template <class Reader>
    const Style& Find(const host::Ref<Symbol>& symbol, const Reader& read) {
        for (const auto& known : known_)
            if (known.symbol == symbol) return known.style;
        auto& place = known_[next_++ % known_.size()];
        place = {symbol, read(*symbol)};
        return place.style;
    }

private:
    struct Known {
        host::Ref<Symbol> symbol;
        Style style;
    };
    std::array<Known, 8> known_;  // More than the columns of a usual index.
    std::size_t next_ = 0;
};

/// Does not look up the font of an invisible text.
TextStyle ReadStyle(const host::IHostTextSymbol& symbol, TextEngine& engine) {
    const auto color = VisibleColor(symbol.Color());
    if (!color) return {};
    return {&engine.Find(FontOf(symbol)),
            {symbol.HorizontalPlacement(), symbol.VerticalPlacement(), symbol.Angle()},
            color};
}

FillStyle ReadStyle(const host::IHostFillSymbol& symbol) {
    const auto outline = symbol.Outline();
    return {VisibleColor(symbol.Color()), outline ? VisibleColor(outline->Color()) : std::nullopt};
}

class Pass {
public:
    Pass(Canvas& canvas, TextEngine& engine, TextReader* reader)
        : engine_(engine), reader_(reader), queue_(canvas, engine) {}

    void Paint(const host::IHostElement& element);
    void Finish() { queue_.Flush(); }

private:
    void PaintText(const host::IHostTextElement& element);
    void PaintFilled(const host::IHostFilledElement& element);
    void PaintMapFrame(const host::IHostMapFrame& frame);
    void PaintGroup(const host::IHostGroupElement& group);
    void PaintPlaceholder(const host::IHostGroupElement& group);

    TextEngine& engine_;
    TextReader* reader_;
    PaintQueue queue_;
    StyleCache<host::IHostTextSymbol, TextStyle> textStyles_;
    StyleCache<host::IHostFillSymbol, FillStyle> fillStyles_;
    Kinds kinds_;
    host::KnownCast<const host::IHostTextElement> asText_;
    host::KnownCast<const host::IHostFilledElement> asFilled_;
    host::KnownCast<const host::IHostGroupElement> asGroup_;
    host::KnownCast<const host::IHostFrameElement> asFrame_;
    host::KnownCast<const host::IHostPoint> asPoint_;
};

void Pass::Paint(const host::IHostElement& element) {
    switch (kinds_.Of(element)) {
        case Kind::Text:
            return PaintText(*asText_(&element));
        case Kind::Filled:
            return PaintFilled(*asFilled_(&element));
        case Kind::MapFrame:
            return PaintMapFrame(dynamic_cast<const host::IHostMapFrame&>(element));
        case Kind::Group:
            return PaintGroup(*asGroup_(&element));
        case Kind::Other:
            return;
    }
}

void Pass::PaintText(const host::IHostTextElement& element) {
    const auto symbol = element.Symbol();
    const auto geometry = element.Geometry();
    const auto* const point = asPoint_(geometry.get());
    if (!symbol || !point) return;
    const TextStyle& style = textStyles_.Find(
        symbol, [this](const host::IHostTextSymbol& read) { return ReadStyle(read, engine_); });
    if (!style.color) return;
    const std::string text = element.Text();
    queue_.Draw(PlacedText{style.font, text, style.placement, point->X() * kPointsPerInch,
                           -point->Y() * kPointsPerInch},
                *style.color, reader_ ? reader_->Read(element, text) : std::span<const TextPart>());
}

void Pass::PaintFilled(const host::IHostFilledElement& element) {
    const auto symbol = element.Symbol();
    if (!symbol) return;
    const FillStyle& style =
        fillStyles_.Find(symbol, [](const host::IHostFillSymbol& read) { return ReadStyle(read); });
    if (!style.fill && !style.outline) return;
    const auto box = BoxOf(element);
    if (!box) return;
    if (style.fill) queue_.Fill(*box, *style.fill);
    if (style.outline) queue_.Draw(PaintOutline{*box, *style.outline});
}

void Pass::PaintMapFrame(const host::IHostMapFrame& frame) {
    const auto box = BoxOf(frame);
    if (!box) return;
    queue_.Draw(PaintOutline{*box, kFrameColor});
    const auto* const named = dynamic_cast<const host::IHostElementName*>(&frame);
    if (!named) return;
    const std::string name = named->Name();
    queue_.Draw(PlacedText{&engine_.Find({"sans-serif", kFrameNamePoints, false}), name,
                           TextPlacement{1, 1, 0}, (box->left + box->right) / 2,
                           (box->top + box->bottom) / 2},
                kFrameColor);
}

void Pass::PaintGroup(const host::IHostGroupElement& group) {
    const auto* const state = asFrame_(&group);
    if (state && state->Draft()) return PaintPlaceholder(group);
    if (reader_) reader_->Enter(group);
    for (std::int32_t i = 0; i < group.Count(); ++i)
        if (const auto member = group.Item(i)) Paint(*member);
    if (reader_) reader_->Leave();
}

/// Draws a crossed frame for a group in draft state.
void Pass::PaintPlaceholder(const host::IHostGroupElement& group) {
    const auto box = BoxOf(group);
    if (box) queue_.Draw(PaintOutline{*box, kFrameColor, true});
}

}  // namespace

void ElementPainter::Paint(Canvas& canvas, const host::Ref<host::IHostElement>& element) {
    if (!element) return;
    Pass pass(canvas, engine_, reader_);
    pass.Paint(*element);
    pass.Finish();
}

}  // namespace desk
