#include "desk/documents/ValueWriter.h"

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "desk/objects/Depth.h"
#include "desk/objects/PropertySet.h"
#include "host/Failure.h"

namespace desk {

namespace {

std::string ColorText(std::uint32_t rgb) {
    constexpr const char* kHexDigits = "0123456789ABCDEF";
    std::string text = "#";
    for (const unsigned shift : {4U, 0U, 12U, 8U, 20U, 16U})  // Red stands in the lowest byte.
        text += kHexDigits[(rgb >> shift) & 0xFU];
    return text;
}

void WriteFont(JsonWriter& writer, const host::IHostFont& font) {
    writer.BeginObject();
    writer.Member("name", font.Name());
    writer.Key("size");
    WriteNumber(writer, font.Size());
    writer.Member("bold", font.Bold());
    writer.EndObject();
}

void WriteColor(JsonWriter& writer, const host::IHostColor& color) {
    writer.BeginObject();
    writer.Member("rgb", ColorText(color.RGB()));
    writer.Member("transparent", color.Transparent());
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
        writer_.Key("double");
        WriteNumber(writer_, value);
        writer_.EndObject();
    }
    void operator()(std::string_view value) { writer_.Text(value); }
    void operator()(const host::Ref<host::IHostObject>& object);

private:
    void Set(const host::IHostPropertySet& set);
    void SetItems(const host::IHostPropertySet& set);
    void Item(std::string_view name, const auto& value);
    void Value(std::string_view value) { (*this)(value); }
    void Value(const host::Variant& value) { std::visit(*this, value); }

    JsonWriter& writer_;
    int depth_ = 0;
};

void ValueWriter::operator()(const host::Ref<host::IHostObject>& object) {
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

void ValueWriter::Set(const host::IHostPropertySet& set) {
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

void ValueWriter::SetItems(const host::IHostPropertySet& set) {
    if (const auto* own = dynamic_cast<const PropertySet*>(&set)) {
        own->Visit([this](std::string_view name, const auto& value) { Item(name, value); });
        return;
    }
    const auto items = set.AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i) Item(items.names[i], items.values[i]);
}

void ValueWriter::Item(std::string_view name, const auto& value) {
    writer_.NewLine();
    writer_.BeginArray();
    writer_.Text(name);
    Value(value);
    writer_.EndArray();
}

}  // namespace

void WriteNumber(JsonWriter& writer, double number) {
    if (std::isfinite(number)) return writer.Number(number);
    if (std::isnan(number)) return writer.Text("nan");
    writer.Text(number > 0 ? "inf" : "-inf");
}

void WriteTextSymbol(JsonWriter& writer, const host::IHostTextSymbol& symbol) {
    writer.BeginObject();
    writer.Key("font");
    WriteFont(writer, *symbol.Font());
    writer.Key("color");
    WriteColor(writer, *symbol.Color());
    writer.Member("horizontal", symbol.HorizontalPlacement());
    writer.Member("vertical", symbol.VerticalPlacement());
    writer.Key("angle");
    WriteNumber(writer, symbol.Angle());
    writer.Member("text", symbol.Text());
    writer.EndObject();
}

void WriteLineSymbol(JsonWriter& writer, const host::IHostLineSymbol& symbol) {
    writer.BeginObject();
    writer.Key("color");
    WriteColor(writer, *symbol.Color());
    writer.EndObject();
}

void WriteFillSymbol(JsonWriter& writer, const host::IHostFillSymbol& symbol) {
    writer.BeginObject();
    writer.Key("color");
    WriteColor(writer, *symbol.Color());
    if (const auto outline = symbol.Outline()) {
        writer.Key("outline");
        WriteLineSymbol(writer, *outline);
    }
    writer.EndObject();
}

void WriteValue(JsonWriter& writer, const host::Variant& value) {
    std::visit(ValueWriter(writer), value);
}

}  // namespace desk
