#include "desk/documents/ElementWriter.h"

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "desk/devices/InkColor.h"
#include "desk/objects/Depth.h"
#include "desk/objects/PropertySet.h"
#include "desk/text/ItalicFont.h"
#include "host/Failure.h"
#include "host/Symbols.h"
#include "host/Variant.h"
#include "pdf/color/ColorText.h"

namespace desk {

namespace {

[[noreturn]] void Refuse(const std::string& what) {
    throw host::Failure(host::kFailureTypeMismatch, "desk::WriteElement", what);
}

double Finite(double number) {
    if (!std::isfinite(number)) Refuse("a place or a size in it is no finite number");
    return number;
}

void WriteFont(JsonWriter& writer, const host::IHostFont& font) {
    writer.BeginObject();
    writer.Member("name", font.Name());
    writer.Member("size", Finite(font.Size()));
    writer.Member("bold", font.Bold());
    if (IsItalic(font)) writer.Member("italic", true);
    writer.EndObject();
}

void WriteColor(JsonWriter& writer, const host::IHostColor& color) {
    writer.Key("color");
    writer.BeginObject();
    writer.Member("rgb", pdf::RgbText(color.RGB()));
    writer.Member("transparent", color.Transparent());
    if (const pdf::Color own = ColorOf(color); own.ink) writer.Member("ink", pdf::ColorText(own));
    writer.EndObject();
}

void WriteTextSymbol(JsonWriter& writer, const host::IHostTextSymbol& symbol) {
    writer.BeginObject();
    writer.Key("font");
    WriteFont(writer, *symbol.Font());
    WriteColor(writer, *symbol.Color());
    writer.Member("horizontal", symbol.HorizontalPlacement());
    writer.Member("vertical", symbol.VerticalPlacement());
    writer.Member("angle", Finite(symbol.Angle()));
    writer.Member("text", symbol.Text());
    writer.EndObject();
}

void WriteLineSymbol(JsonWriter& writer, const host::IHostLineSymbol& symbol) {
    writer.BeginObject();
    WriteColor(writer, *symbol.Color());
    writer.EndObject();
}

void WriteFillSymbol(JsonWriter& writer, const host::IHostFillSymbol& symbol) {
    writer.BeginObject();
    WriteColor(writer, *symbol.Color());
    if (const auto outline = symbol.Outline()) {
        writer.Key("outline");
        WriteLineSymbol(writer, *outline);
    }
    writer.EndObject();
}

class ValueWriter {
public:
    explicit ValueWriter(JsonWriter& writer) : writer_(writer) {}

    void operator()(host::Empty) {
        writer_.BeginObject();
        writer_.Member("empty", true);
        writer_.EndObject();
    }
    void operator()(host::Null) { writer_.Null(); }
    void operator()(bool value) { writer_.Flag(value); }
    void operator()(std::int16_t value) {
        writer_.BeginObject();
        writer_.Member("integer", value);
        writer_.EndObject();
    }
    void operator()(std::int32_t value) { writer_.Whole(value); }
    void operator()(double value) {
        if (std::isfinite(value)) return writer_.Number(value);
        writer_.BeginObject();
        writer_.Member("double", value);
        writer_.EndObject();
    }
    void operator()(std::string_view value) { writer_.Text(value); }
    void operator()(const host::Ref<host::IHostObject>& object) {
        writer_.BeginObject();
        if (!object) {
            writer_.Key("object");
            writer_.Null();
        } else if (const auto set = host::As<host::IHostPropertySet>(object)) {
            Set(*set);
        } else if (const auto text = host::As<host::IHostTextSymbol>(object)) {
            writer_.Key("textSymbol");
            WriteTextSymbol(writer_, *text);
        } else if (const auto fill = host::As<host::IHostFillSymbol>(object)) {
            writer_.Key("fillSymbol");
            WriteFillSymbol(writer_, *fill);
        } else if (const auto line = host::As<host::IHostLineSymbol>(object)) {
            writer_.Key("lineSymbol");
            WriteLineSymbol(writer_, *line);
        } else {
            throw host::Failure(host::kFailureTypeMismatch, "desk::WriteValue",
                                "an object in it is of a kind that a document cannot hold");
        }
        writer_.EndObject();
    }

private:
    void Set(const host::IHostPropertySet& set) {
        if (depth_ >= kDeepestNesting) {
            throw host::Failure(host::kFailureOverflow, "desk::WriteValue",
                                "property sets stand inside one another without end");
        }
        ++depth_;
        writer_.Key("set");
        writer_.BeginArray();
        SetItems(set);
        writer_.EndArray();
        --depth_;
    }
    void SetItems(const host::IHostPropertySet& set) {
        if (const auto* own = dynamic_cast<const PropertySet*>(&set)) {
            own->Visit([this](std::string_view name, const auto& value) { Item(name, value); });
            return;
        }
        const auto items = set.AllItems();
        for (std::size_t i = 0; i < items.names.size(); ++i) Item(items.names[i], items.values[i]);
    }
    void Item(std::string_view name, const auto& value) {
        writer_.NewLine();
        writer_.BeginArray();
        writer_.Text(name);
        Value(value);
        writer_.EndArray();
    }
    void Value(std::string_view value) { (*this)(value); }
    void Value(const host::Variant& value) { std::visit(*this, value); }

    JsonWriter& writer_;
    int depth_ = 0;
};

void WriteValue(JsonWriter& writer, const host::Variant& value) {
    std::visit(ValueWriter(writer), value);
}

void WriteNumbers(JsonWriter& writer, const char* kind, std::initializer_list<double> numbers) {
    writer.BeginObject();
    writer.Key(kind);
    writer.BeginArray();
    for (const double number : numbers) writer.Number(Finite(number));
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
