#include "desk/documents/ElementReader.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "desk/json/Coordinates.h"
#include "desk/objects/Depth.h"
#include "desk/objects/Elements.h"
#include "desk/objects/Geometry.h"
#include "desk/objects/PropertySet.h"
#include "desk/objects/Symbols.h"
#include "pdf/color/ColorText.h"

namespace desk {

namespace {

using simdjson::dom::element_type;
using Element = host::Ref<host::IHostElement>;
using Engine = const std::shared_ptr<TextEngine>&;
using Object = host::Ref<host::IHostObject>;

std::uint32_t ColorValue(const JsonNode& node) {
    const auto rgb = pdf::ParseRgb(node.Text());
    if (!rgb) node.Fail("a colour is expected, such as \"#B00000\"");
    return *rgb;
}

std::shared_ptr<const pdf::Ink> InkIn(const JsonNode& node) {
    const auto color = pdf::ParseColor(node.Text());
    if (!color || !color->ink) node.Fail("an ink is expected, such as \"cmyk(0,100,80,10)\"");
    return color->ink;
}

Object NoObject(const JsonNode& node) {
    if (node.Type() != element_type::NULL_VALUE) node.Fail("null is expected");
    return nullptr;
}

/// Calls the visitor with each entry of a set: the item, the name and the value.
template <class Visitor>
void EachEntry(const JsonNode& set, Visitor&& visitor) {
    set.Each([&](const JsonNode& item) {
        if (item.Count() != 2) item.Fail("a name and a value are expected");
        std::string_view name;
        item.Each([&](const JsonNode& part) {
            if (name.data() == nullptr)
                name = part.Text();
            else
                visitor(item, name, part);
        });
    });
}

[[noreturn]] void FailRepeated(const JsonNode& item, std::string_view name) {
    item.Fail("the name \"" + std::string(name) + "\" stands in the set twice");
}

/// Returns the entries of a set that holds only texts, else null. Texts are copied directly from
/// the parser's memory into the set's.
std::shared_ptr<TextItems> TextsIn(const JsonNode& node) {
    auto texts = std::make_shared<TextItems>();
    EachEntry(node, [&](const JsonNode&, std::string_view name, const JsonNode& value) {
        if (!texts) return;
        if (value.Type() == element_type::STRING && texts->HasRoomFor(name, value.Text()))
            texts->Add(name, value.Text());
        else
            texts = nullptr;
    });
    const auto repeated = texts ? texts->IndexNames() : std::nullopt;
    if (!repeated) return texts;
    std::size_t position = 0;
    EachEntry(node, [&](const JsonNode& item, std::string_view name, const JsonNode&) {
        if (position++ == repeated) FailRepeated(item, name);
    });
    return nullptr;
}

double FiniteIn(const JsonNode& node) {
    const double number = node.Number();
    if (!std::isfinite(number)) node.Fail("a finite number is expected");
    return number;
}

host::Ref<host::IHostFont> FontIn(const JsonNode& node) {
    auto font = std::make_shared<desk::Font>();
    font->SetName(std::string(node.Member("name").Text()));
    font->SetSize(FiniteIn(node.Member("size")));
    font->SetBold(node.Member("bold").Flag());
    if (const auto italic = node.Optional("italic")) font->SetItalic(italic->Flag());
    return font;
}

host::Ref<host::IHostColor> ColorIn(const JsonNode& node) {
    auto color = std::make_shared<desk::Color>(ColorValue(node.Member("rgb")));
    color->SetTransparent(node.Member("transparent").Flag());
    if (const auto ink = node.Optional("ink")) color->SetInk(InkIn(*ink));
    return color;
}

host::Variant ReadValue(const JsonNode& node, Engine engine);

host::Ref<host::IHostTextSymbol> ReadTextSymbol(const JsonNode& node, Engine engine) {
    auto symbol = std::make_shared<desk::TextSymbol>(engine);
    symbol->SetFont(FontIn(node.Member("font")));
    symbol->SetColor(ColorIn(node.Member("color")));
    symbol->SetHorizontalPlacement(node.Member("horizontal").Whole(0, 3));
    symbol->SetVerticalPlacement(node.Member("vertical").Whole(0, 3));
    symbol->SetAngle(FiniteIn(node.Member("angle")));
    symbol->SetText(std::string(node.Member("text").Text()));
    return symbol;
}

host::Ref<host::IHostLineSymbol> ReadLineSymbol(const JsonNode& node) {
    auto symbol = std::make_shared<desk::LineSymbol>();
    symbol->SetColor(ColorIn(node.Member("color")));
    return symbol;
}

host::Ref<host::IHostFillSymbol> ReadFillSymbol(const JsonNode& node) {
    auto symbol = std::make_shared<desk::FillSymbol>();
    symbol->SetColor(ColorIn(node.Member("color")));
    if (const auto outline = node.Optional("outline")) symbol->SetOutline(ReadLineSymbol(*outline));
    return symbol;
}

Object ReadSet(const JsonNode& node, Engine engine) {
    node.CheckNesting(kDeepestNesting, "sets");
    if (auto texts = TextsIn(node)) return std::make_shared<PropertySet>(std::move(texts));
    auto set = std::make_shared<PropertySet>();
    EachEntry(node, [&](const JsonNode& item, std::string_view name, const JsonNode& value) {
        if (!set->Append(name, ReadValue(value, engine))) FailRepeated(item, name);
    });
    return set;
}

host::Variant ReadTagged(const JsonNode& node, Engine engine) {
    const JsonNode content = node.OnlyMember();
    const std::string_view kind = content.Key();
    if (kind == "set") return ReadSet(content, engine);
    if (kind == "textSymbol") return Object(ReadTextSymbol(content, engine));
    if (kind == "fillSymbol") return Object(ReadFillSymbol(content));
    if (kind == "lineSymbol") return Object(ReadLineSymbol(content));
    if (kind == "integer") {
        using Limits = std::numeric_limits<std::int16_t>;
        return static_cast<std::int16_t>(content.Whole(Limits::min(), Limits::max()));
    }
    if (kind == "double") return content.Number();
    if (kind == "empty") return host::Empty{};
    if (kind == "object") return NoObject(content);
    content.Fail("no kind of value has this name");
}

host::Variant ReadValue(const JsonNode& node, Engine engine) {
    switch (node.Type()) {
        case element_type::STRING:
            return std::string(node.Text());
        case element_type::BOOL:
            return node.Flag();
        case element_type::INT64:
            return node.Whole();
        case element_type::DOUBLE:
            return node.Number();
        case element_type::NULL_VALUE:
            return host::Null{};
        case element_type::OBJECT:
            return ReadTagged(node, engine);
        case element_type::ARRAY:
        case element_type::UINT64:
            break;
    }
    node.Fail("this is no value");
}

host::Ref<host::IHostPoint> PointIn(const JsonNode& node) {
    const auto point = node.Member("point");
    const auto [x, y] = Coordinates<2>(point);
    return std::make_shared<Point>(x, y);
}

host::Ref<host::IHostEnvelope> EnvelopeIn(const JsonNode& node) {
    const auto envelope = node.Member("envelope");
    const auto [xmin, ymin, xmax, ymax] = Coordinates<4>(envelope);
    return std::make_shared<Envelope>(xmin, ymin, xmax, ymax);
}

host::Ref<host::IHostGeometry> AnyGeometryIn(const JsonNode& node) {
    if (node.Optional("point")) return PointIn(node);
    return EnvelopeIn(node);
}

/// Reads the members that all kinds have into a new element.
template <class Kind, class GeometryReader>
std::shared_ptr<Kind> ReadCommon(const JsonNode& node, Engine engine, std::shared_ptr<Kind> element,
                                 GeometryReader readGeometry) {
    element->SetName(std::string(node.Member("tag").Text()));
    if (const auto custom = node.Optional("custom"))
        element->SetCustomProperty(ReadValue(*custom, engine));
    if (const auto geometry = node.Optional("geometry"))
        element->SetGeometry(readGeometry(*geometry));
    return element;
}

Element ReadGroup(const JsonNode& node, Engine engine) {
    const auto group = ReadCommon(node, engine, std::make_shared<GroupElement>(), AnyGeometryIn);
    group->SetDraft(node.Member("draft").Flag());
    const auto members = node.Member("members");
    members.CheckNesting(kDeepestNesting, "groups");
    members.Each([&](const JsonNode& member) { group->Add(ReadElement(member, engine)); });
    return group;
}

Element ReadText(const JsonNode& node, Engine engine) {
    const auto text = ReadCommon(node, engine, std::make_shared<TextElement>(engine), PointIn);
    text->SetText(std::string(node.Member("text").Text()));
    text->SetScaleWithPage(node.Member("scaleWithPage").Flag());
    text->SetSymbol(ReadTextSymbol(node.Member("symbol"), engine));
    return text;
}

Element ReadRectangle(const JsonNode& node, Engine engine) {
    const auto rectangle =
        ReadCommon(node, engine, std::make_shared<RectangleElement>(), EnvelopeIn);
    rectangle->SetSymbol(ReadFillSymbol(node.Member("symbol")));
    return rectangle;
}

}  // namespace

host::Ref<host::IHostElement> ReadElement(const JsonNode& node,
                                          const std::shared_ptr<TextEngine>& engine) {
    const auto kind = node.Member("kind");
    const std::string_view name = kind.Text();
    if (name == "group") return ReadGroup(node, engine);
    if (name == "text") return ReadText(node, engine);
    if (name == "rectangle") return ReadRectangle(node, engine);
    if (name == "mapFrame")
        return ReadCommon(node, engine, std::make_shared<MapFrame>(), AnyGeometryIn);
    kind.Fail("no kind of element has this name");
}

}  // namespace desk
