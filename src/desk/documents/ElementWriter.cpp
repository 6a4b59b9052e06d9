#include "desk/documents/ElementWriter.h"

#include "desk/documents/ValueWriter.h"
#include "desk/objects/Depth.h"
#include "host/Failure.h"

namespace desk {

namespace {

[[noreturn]] void Refuse(const std::string& what) {
    throw host::Failure(host::kFailureTypeMismatch, "desk::WriteElement", what);
}

void WriteNumbers(JsonWriter& writer, const char* kind, std::initializer_list<double> numbers) {
    writer.BeginObject();
    writer.Key(kind);
    writer.BeginArray();
    for (const double number : numbers) WriteNumber(writer, number);
    writer.EndArray();
    writer.EndObject();
}

void WriteGeometry(JsonWriter& writer, const host::Ref<host::IHostGeometry>& geometry) {
    if (!geometry) return;
    writer.Key("geometry");
    if (const auto point = host::As<host::IHostPoint>(geometry)) {
        WriteNumbers(writer, "point", {point->X(), point->Y()});
    } else if (const auto box = host::As<host::IHostEnvelope>(geometry)) {
        WriteNumbers(writer, "envelope", {box->XMin(), box->YMin(), box->XMax(), box->YMax()});
    } else {
        Refuse("an element in it has a geometry of a kind that a document cannot hold");
    }
}

void WriteCommon(JsonWriter& writer, const char* kind,
                 const host::Ref<host::IHostElement>& element) {
    writer.Member("kind", kind);
    const auto tagged = host::As<host::IHostElementName>(element);
    writer.Member("tag", tagged ? tagged->Name() : std::string());
    WriteGeometry(writer, element->Geometry());
    const auto owner = host::As<host::IHostCustomProperty>(element);
    if (!owner) return;
    const auto custom = owner->CustomProperty();
    if (std::holds_alternative<host::Empty>(custom)) return;
    writer.Key("custom");
    WriteValue(writer, custom);
}

void WriteGroup(JsonWriter& writer, const host::IHostGroupElement& group, int depth) {
    if (depth >= kDeepestNesting) Refuse("groups stand inside one another without end");
    const auto* frame = dynamic_cast<const host::IHostFrameElement*>(&group);
    writer.Member("draft", frame != nullptr && frame->Draft());
    writer.Key("members");
    writer.BeginArray();
    for (std::int32_t i = 0; i < group.Count(); ++i) {
        writer.NewLine();
        WriteElement(writer, group.Item(i), depth + 1);
    }
    writer.EndArray();
}

void WriteText(JsonWriter& writer, const host::IHostTextElement& text) {
    writer.Member("text", text.Text());
    writer.Member("scaleWithPage", text.ScaleWithPage());
    writer.Key("symbol");
    WriteTextSymbol(writer, *text.Symbol());
}

}  // namespace

void WriteElement(JsonWriter& writer, const host::Ref<host::IHostElement>& element, int depth) {
    writer.BeginObject();
    if (const auto group = host::As<host::IHostGroupElement>(element)) {
        WriteCommon(writer, "group", element);
        WriteGroup(writer, *group, depth);
    } else if (const auto text = host::As<host::IHostTextElement>(element)) {
        WriteCommon(writer, "text", element);
        WriteText(writer, *text);
    } else if (const auto rectangle = host::As<host::IHostFilledElement>(element)) {
        WriteCommon(writer, "rectangle", element);
        writer.Key("symbol");
        WriteFillSymbol(writer, *rectangle->Symbol());
    } else if (host::As<host::IHostMapFrame>(element)) {
        WriteCommon(writer, "mapFrame", element);
    } else {
        Refuse("an element in it is of a kind that a document cannot hold");
    }
    writer.EndObject();
}

}  // namespace desk
