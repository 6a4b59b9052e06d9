#include "app/commands/ElementTree.h"

#include "app/work/SymbolValues.h"
#include "layout/RowElements.h"

namespace app {
namespace {

using Json = nlohmann::ordered_json;

const char* KindOf(const host::Ref<host::IHostElement>& element) {
    if (host::As<host::IHostGroupElement>(element)) return "group";
    if (host::As<host::IHostTextElement>(element)) return "text";
    if (host::As<host::IHostFilledElement>(element)) return "rectangle";
    if (host::As<host::IHostMapFrame>(element)) return "mapFrame";
    return "other";
}

Json TextJson(const std::string& tag, host::IHostTextElement& element) {
    const auto at = host::As<host::IHostPoint>(element.Geometry());
    auto& symbol = *element.Symbol();
    return {{"tag", tag},
            {"at", {{"x", at->X()}, {"y", at->Y()}}},
            {"text", element.Text()},
            {"font", symbol.Font()->Name()},
            {"size", symbol.Size()},
            {"bold", symbol.Font()->Bold()},
            {"color", ColorText(symbol.Color()->RGB())},
            {"horizontal", symbol.HorizontalPlacement()},
            {"vertical", symbol.VerticalPlacement()},
            {"angle", symbol.Angle()}};
}

Json FillJson(const std::string& tag, const host::IHostFilledElement& element) {
    const auto& color = element.Symbol()->Color();
    return {{"tag", tag},
            {"bounds", BoxJson(*element.Geometry()->Bounds())},
            {"fill", color->Transparent() ? Json(nullptr) : Json(ColorText(color->RGB()))}};
}

Json MembersJson(host::IHost& host, const host::IHostGroupElement& group);

Json GroupJson(host::IHost& host, const std::string& tag, host::IHostGroupElement& group) {
    Json json = {{"tag", tag}};
    if (tag != gazetteer::kColumnElementTag) {
        const auto box = host.NewEnvelope();
        group.MeasureBounds(host.NewApplication()->Document()->ActiveView()->Display(), box);
        json["bounds"] = BoxJson(*box);
    }
    json["members"] = MembersJson(host, group);
    return json;
}

Json MemberJson(host::IHost& host, const host::Ref<host::IHostElement>& member) {
    const std::string tag = gazetteer::TagOf(member);
    const auto is = [&](std::initializer_list<const char*> tags) {
        for (const char* known : tags)
            if (tag == known) return true;
        return false;
    };
    if (is({gazetteer::kTitleGroupTag, gazetteer::kBreakGroupTag, gazetteer::kRowGroupTag,
            gazetteer::kColumnElementTag}))
        if (const auto group = host::As<host::IHostGroupElement>(member))
            return GroupJson(host, tag, *group);
    if (is({gazetteer::kColumnTextTag, gazetteer::kSampleLabelTag}))
        if (const auto text = host::As<host::IHostTextElement>(member)) return TextJson(tag, *text);
    if (is({gazetteer::kColumnBackgroundTag}))
        if (const auto fill = host::As<host::IHostFilledElement>(member))
            return FillJson(tag, *fill);
    return {{"tag", tag}, {"kind", KindOf(member)}};
}

Json MembersJson(host::IHost& host, const host::IHostGroupElement& group) {
    Json members = Json::array();
    for (std::int32_t i = 0; i < group.Count(); ++i)
        members.push_back(MemberJson(host, group.Item(i)));
    return members;
}

}  // namespace

Json BoxJson(const host::IHostEnvelope& box) {
    return {{"xmin", box.XMin()}, {"ymin", box.YMin()}, {"xmax", box.XMax()}, {"ymax", box.YMax()}};
}

Json ElementTree(host::IHost& host, const host::IHostGroupElement& element) {
    return MembersJson(host, element);
}

}  // namespace app
