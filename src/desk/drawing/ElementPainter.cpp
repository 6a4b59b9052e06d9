#include "desk/drawing/ElementPainter.h"

#include <optional>
#include <typeinfo>
#include <utility>
#include <vector>

#include "desk/drawing/PaintQueue.h"
#include "desk/drawing/PaintStyles.h"
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

/// What an element is painted as.
enum class Kind { Text, Filled, MapFrame, Group, Other };

Kind AskKind(const host::IHostElement& element) {
    if (dynamic_cast<const host::IHostTextElement*>(&element)) return Kind::Text;
    if (dynamic_cast<const host::IHostFilledElement*>(&element)) return Kind::Filled;
    if (dynamic_cast<const host::IHostMapFrame*>(&element)) return Kind::MapFrame;
    if (dynamic_cast<const host::IHostGroupElement*>(&element)) return Kind::Group;
    return Kind::Other;
}

/// Asking an element in vain whether it is of a kind costs as much as painting it, so each class is
/// asked once. A class may come under two addresses if two libraries know it; it is then asked
/// twice.
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

/// One pass over elements.
class Pass {
public:
    Pass(Canvas& canvas, TextEngine& engine)
        : engine_(engine), queue_(canvas, engine), styles_(engine) {}

    void Paint(const host::IHostElement& element);
    void Finish() { queue_.Flush(); }

private:
    void PaintText(const host::IHostTextElement& element);
    void PaintFilled(const host::IHostFilledElement& element);
    void PaintMapFrame(const host::IHostMapFrame& frame);
    void PaintGroup(const host::IHostGroupElement& group);
    void PaintPlaceholder(const host::IHostGroupElement& group);

    TextEngine& engine_;
    PaintQueue queue_;
    PaintStyles styles_;
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
    const TextStyle& style = styles_.Of(symbol);
    if (!style.color) return;
    const std::string text = element.Text();
    queue_.Draw(PlacedText{style.font, text, style.placement, point->X() * kPointsPerInch,
                           -point->Y() * kPointsPerInch},
                *style.color);
}

void Pass::PaintFilled(const host::IHostFilledElement& element) {
    const auto symbol = element.Symbol();
    if (!symbol) return;
    const FillStyle& style = styles_.Of(symbol);
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
    for (std::int32_t i = 0; i < group.Count(); ++i)
        if (const auto member = group.Item(i)) Paint(*member);
}

/// A crossed frame: something stands here and is not shown.
void Pass::PaintPlaceholder(const host::IHostGroupElement& group) {
    const auto box = BoxOf(group);
    if (box) queue_.Draw(PaintOutline{*box, kFrameColor, true});
}

}  // namespace

void ElementPainter::Paint(Canvas& canvas, const host::Ref<host::IHostElement>& element) {
    if (!element) return;
    Pass pass(canvas, engine_);
    pass.Paint(*element);
    pass.Finish();
}

}  // namespace desk
