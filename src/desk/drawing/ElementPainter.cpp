#include "desk/drawing/ElementPainter.h"

#include <optional>
#include <typeinfo>
#include <utility>
#include <vector>

#include "desk/drawing/CairoHandles.h"
#include "host/Geometry.h"
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

void PaintFilled(PaintQueue& queue, const host::IHostFilledElement& element) {
    const auto symbol = element.Symbol();
    const auto box = BoxOf(element);
    if (!symbol || !box) return;
    if (const auto color = VisibleColor(symbol->Color())) queue.Fill(*box, *color);
    if (const auto outline = symbol->Outline())
        if (const auto color = VisibleColor(outline->Color()))
            queue.Draw(PaintOutline{*box, *color});
}

void PaintTextElement(PaintQueue& queue, const host::IHostTextElement& element) {
    const auto symbol = element.Symbol();
    const auto geometry = element.Geometry();
    const auto* const point = dynamic_cast<const host::IHostPoint*>(geometry.get());
    if (!symbol || !point) return;
    const auto color = VisibleColor(symbol->Color());
    if (!color) return;
    queue.Draw(PlacedText{FontOf(*symbol), element.Text(),
                          TextPlacement{symbol->HorizontalPlacement(), symbol->VerticalPlacement(),
                                        symbol->Angle()},
                          point->X() * kPointsPerInch, -point->Y() * kPointsPerInch},
               *color);
}

void PaintMapFrame(PaintQueue& queue, const host::IHostMapFrame& frame) {
    const auto box = BoxOf(frame);
    if (!box) return;
    queue.Draw(PaintOutline{*box, kFrameColor});
    if (const auto* const name = dynamic_cast<const host::IHostElementName*>(&frame))
        queue.Draw(PlacedText{FontSpec{"sans-serif", kFrameNamePoints, false}, name->Name(),
                              TextPlacement{1, 1, 0}, (box->left + box->right) / 2,
                              (box->top + box->bottom) / 2},
                   kFrameColor);
}

/// A crossed frame: something stands here and is not shown.
void PaintPlaceholder(PaintQueue& queue, const host::IHostGroupElement& group) {
    const auto box = BoxOf(group);
    if (!box) return;
    queue.Draw(PaintOutline{*box, kFrameColor, true});
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

void PaintElement(PaintQueue& queue, Kinds& kinds, const host::IHostElement& element);

void PaintGroup(PaintQueue& queue, Kinds& kinds, const host::IHostGroupElement& group) {
    const auto* const state = dynamic_cast<const host::IHostFrameElement*>(&group);
    if (state && state->Draft()) return PaintPlaceholder(queue, group);
    for (std::int32_t i = 0; i < group.Count(); ++i)
        if (const auto member = group.Item(i)) PaintElement(queue, kinds, *member);
}

void PaintElement(PaintQueue& queue, Kinds& kinds, const host::IHostElement& element) {
    switch (kinds.Of(element)) {
        case Kind::Text:
            return PaintTextElement(queue, dynamic_cast<const host::IHostTextElement&>(element));
        case Kind::Filled:
            return PaintFilled(queue, dynamic_cast<const host::IHostFilledElement&>(element));
        case Kind::MapFrame:
            return PaintMapFrame(queue, dynamic_cast<const host::IHostMapFrame&>(element));
        case Kind::Group:
            return PaintGroup(queue, kinds, dynamic_cast<const host::IHostGroupElement&>(element));
        case Kind::Other:
            return;
    }
}

}  // namespace

void ElementPainter::Paint(cairo_t* context, const host::Ref<host::IHostElement>& element) {
    if (!element) return;
    PaintQueue queue(context, engine_);
    Kinds kinds;
    PaintElement(queue, kinds, *element);
    queue.Flush();
}

}  // namespace desk
