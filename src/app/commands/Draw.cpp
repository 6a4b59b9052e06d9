#include <algorithm>
#include <ranges>

#include "app/commands/Commands.h"
#include "app/commands/JsonAnswer.h"
#include "app/document/Errors.h"
#include "app/document/KeyValues.h"
#include "app/document/PageFurniture.h"
#include "app/document/Sheets.h"
#include "desk/text/ItalicFont.h"
#include "layout/RowElements.h"
#include "pdf/color/ColorText.h"

namespace app {
namespace {

const char* KindOf(const host::Ref<host::IHostElement>& element) {
    if (host::As<host::IHostGroupElement>(element)) return "group";
    if (host::As<host::IHostTextElement>(element)) return "text";
    if (host::As<host::IHostFilledElement>(element)) return "rectangle";
    if (host::As<host::IHostMapFrame>(element)) return "mapFrame";
    return "other";
}

void WriteBox(JsonAnswer& json, const char* key, const host::IHostEnvelope& box) {
    json.Object(key, [&] {
        json.Member("xmin", box.XMin());
        json.Member("ymin", box.YMin());
        json.Member("xmax", box.XMax());
        json.Member("ymax", box.YMax());
    });
}

void WriteText(JsonAnswer& json, const host::IHostTextElement& element) {
    const auto at = host::As<host::IHostPoint>(element.Geometry());
    auto& symbol = *element.Symbol();
    json.Object("at", [&] {
        json.Member("x", at->X());
        json.Member("y", at->Y());
    });
    json.Member("text", element.Text());
    json.Member("font", symbol.Font()->Name());
    json.Member("size", symbol.Size());
    json.Member("bold", symbol.Font()->Bold());
    json.Member("italic", desk::IsItalic(*symbol.Font()));
    json.Member("color", pdf::RgbText(symbol.Color()->RGB()));
    json.Member("horizontal", symbol.HorizontalPlacement());
    json.Member("vertical", symbol.VerticalPlacement());
    json.Member("angle", symbol.Angle());
}

void WriteFill(JsonAnswer& json, const host::IHostFilledElement& element) {
    const auto& color = element.Symbol()->Color();
    WriteBox(json, "bounds", *element.Geometry()->Bounds());
    json.Key("fill");
    if (color->Transparent())
        json.Null();
    else
        json.Text(pdf::RgbText(color->RGB()));
}

void WriteMembers(JsonAnswer& json, host::IHost& host, const host::IHostGroupElement& group);

void WriteGroup(JsonAnswer& json, host::IHost& host, const std::string& tag,
                host::IHostGroupElement& group) {
    if (tag != gazetteer::kColumnElementTag) {
        const auto box = host.NewEnvelope();
        group.MeasureBounds(host.NewApplication()->Document()->ActiveView()->Display(), box);
        WriteBox(json, "bounds", *box);
    }
    WriteMembers(json, host, group);
}

void WriteMember(JsonAnswer& json, host::IHost& host, const host::Ref<host::IHostElement>& member) {
    const std::string tag = gazetteer::TagOf(member);
    json.Member("tag", tag);
    const auto is = [&](std::initializer_list<const char*> tags) {
        return std::ranges::find(tags, tag) != tags.end();
    };
    if (is({gazetteer::kTitleGroupTag, gazetteer::kBreakGroupTag, gazetteer::kRowGroupTag,
            gazetteer::kColumnElementTag}))
        if (const auto group = host::As<host::IHostGroupElement>(member))
            return WriteGroup(json, host, tag, *group);
    if (is({gazetteer::kColumnTextTag, gazetteer::kSampleLabelTag}))
        if (const auto text = host::As<host::IHostTextElement>(member))
            return WriteText(json, *text);
    if (is({gazetteer::kColumnBackgroundTag}))
        if (const auto fill = host::As<host::IHostFilledElement>(member))
            return WriteFill(json, *fill);
    json.Member("kind", KindOf(member));
}

// Writes the members in order: the gazetteer's with box (inches), text and symbols, others with tag
// and kind only.
void WriteMembers(JsonAnswer& json, host::IHost& host, const host::IHostGroupElement& group) {
    json.Objects("members", std::views::iota(0, group.Count()),
                 [&](std::int32_t i) { WriteMember(json, host, group.Item(i)); });
}

void PrintTree(OpenDocument& document, std::int32_t page) {
    const auto element = document.Gazetteer();
    PrintAnswer(1, [&](JsonAnswer& json) {
        json.Member("page", page);
        json.Member("pageCount", document.PageCount());
        json.Member("draft", host::As<host::IHostFrameElement>(element)->Draft());
        WriteBox(json, "frame", *element->Geometry()->Bounds());
        WriteMembers(json, document.Host(), *element);
    });
}

}  // namespace

int Draw(const Options& options) {
    if (!options.output.empty()) CheckOutputName(options.output);
    CommandSession session(options);
    auto& document = session.Open(options.document);
    CheckApart(document, options.output, options.document);
    session.BindDrawable();
    session.CheckHasPages();
    CheckPage(options.page, document.PageCount());
    session.CheckFindings(PageRange{options.page, options.page}, options.strict);
    DrawPage(document, options.page);
    LabelSheet(document, options.page);

    if (!options.output.empty())
        WriteDrawnPage(document, options.output, options.page, options.written);
    if (options.json) PrintTree(document, options.page);
    if (options.output.empty() && !options.json) document.Save();
    return kDone;
}

}  // namespace app
