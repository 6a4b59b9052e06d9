#include "desk/documents/ElementReader.h"

#include <array>

#include "desk/objects/Depth.h"
#include "desk/objects/Elements.h"
#include "desk/objects/Geometry.h"

namespace desk {

namespace {

template <std::size_t Size>
std::array<double, Size> Numbers(const JsonNode& node) {
    if (node.Count() != Size) node.Fail(std::to_string(Size) + " numbers are expected");
    std::array<double, Size> numbers{};
    std::size_t next = 0;
    node.Each([&](const JsonNode& number) { numbers[next++] = number.Number(); });
    return numbers;
}

host::Ref<host::IHostPoint> PointIn(const JsonNode& node) {
    const auto point = node.Member("point");
    const auto [x, y] = Numbers<2>(point);
    return std::make_shared<Point>(x, y);
}

host::Ref<host::IHostEnvelope> EnvelopeIn(const JsonNode& node) {
    const auto envelope = node.Member("envelope");
    const auto [xmin, ymin, xmax, ymax] = Numbers<4>(envelope);
    return std::make_shared<Envelope>(xmin, ymin, xmax, ymax);
}

host::Ref<host::IHostGeometry> AnyGeometryIn(const JsonNode& node) {
    if (node.Optional("point")) return PointIn(node);
    return EnvelopeIn(node);
}

template <class Element>
void ReadCommon(const JsonNode& node, const ValueReader& values, Element& element) {
    element.SetName(std::string(node.Member("tag").Text()));
    if (const auto custom = node.Optional("custom"))
        element.SetCustomProperty(values.Value(*custom));
}

host::Ref<host::IHostElement> ReadGroup(const JsonNode& node, const ValueReader& values) {
    auto group = std::make_shared<GroupElement>();
    ReadCommon(node, values, *group);
    if (const auto geometry = node.Optional("geometry"))
        group->SetGeometry(AnyGeometryIn(*geometry));
    group->SetDraft(node.Member("draft").Flag());
    const auto members = node.Member("members");
    if (members.Nesting() > kDeepestNesting)
        members.Fail("groups stand too deep inside one another");
    members.Each([&](const JsonNode& member) { group->Add(ReadElement(member, values)); });
    return group;
}

host::Ref<host::IHostElement> ReadText(const JsonNode& node, const ValueReader& values) {
    auto text = std::make_shared<TextElement>(values.Engine());
    ReadCommon(node, values, *text);
    if (const auto geometry = node.Optional("geometry")) text->SetGeometry(PointIn(*geometry));
    text->SetText(std::string(node.Member("text").Text()));
    text->SetScaleWithPage(node.Member("scaleWithPage").Flag());
    text->SetSymbol(values.TextSymbol(node.Member("symbol")));
    return text;
}

host::Ref<host::IHostElement> ReadRectangle(const JsonNode& node, const ValueReader& values) {
    auto rectangle = std::make_shared<RectangleElement>();
    ReadCommon(node, values, *rectangle);
    if (const auto geometry = node.Optional("geometry"))
        rectangle->SetGeometry(EnvelopeIn(*geometry));
    rectangle->SetSymbol(values.FillSymbol(node.Member("symbol")));
    return rectangle;
}

host::Ref<host::IHostElement> ReadMapFrame(const JsonNode& node, const ValueReader& values) {
    auto frame = std::make_shared<MapFrame>();
    ReadCommon(node, values, *frame);
    if (const auto geometry = node.Optional("geometry"))
        frame->SetGeometry(AnyGeometryIn(*geometry));
    return frame;
}

}  // namespace

host::Ref<host::IHostElement> ReadElement(const JsonNode& node, const ValueReader& values) {
    const auto kind = node.Member("kind");
    const std::string_view name = kind.Text();
    if (name == "group") return ReadGroup(node, values);
    if (name == "text") return ReadText(node, values);
    if (name == "rectangle") return ReadRectangle(node, values);
    if (name == "mapFrame") return ReadMapFrame(node, values);
    kind.Fail("no kind of element has this name");
}

}  // namespace desk
