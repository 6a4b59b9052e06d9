#include "support/SetDump.h"

#include <array>
#include <charconv>
#include <cmath>

#include "desk/devices/InkColor.h"
#include "desk/text/ItalicFont.h"
#include "host/Symbols.h"
#include "pdf/color/ColorText.h"

namespace support {
namespace {

using host::IHostObject;
using host::Ref;

std::string NumberText(double number) {
    if (std::isnan(number)) return "nan";
    std::array<char, 32> digits{};
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr};
}

std::string ColorText(const host::IHostColor& color) {
    const auto own = desk::ColorOf(color);
    return std::to_string(color.RGB()) + (color.Transparent() ? " none" : "") +
           (own.ink ? ' ' + pdf::ColorText(own) : std::string());
}

std::string SymbolText(const host::IHostTextSymbol& symbol) {
    return symbol.Font()->Name() + ' ' + NumberText(symbol.Size()) +
           (symbol.Font()->Bold() ? " bold " : " ") +
           (desk::IsItalic(*symbol.Font()) ? "italic " : "") + ColorText(*symbol.Color()) + ' ' +
           std::to_string(symbol.HorizontalPlacement()) +
           std::to_string(symbol.VerticalPlacement()) + ' ' + NumberText(symbol.Angle()) + " '" +
           symbol.Text() + "'\n";
}

std::string ObjectText(const Ref<IHostObject>& object, const std::string& indent) {
    if (!object) return "no object\n";
    if (const auto set = host::As<host::IHostPropertySet>(object))
        return "\n" + Dump(*set, indent + "  ");
    if (const auto text = host::As<host::IHostTextSymbol>(object)) return SymbolText(*text);
    if (const auto fill = host::As<host::IHostFillSymbol>(object))
        return "fill " + ColorText(*fill->Color()) + ' ' + ObjectText(fill->Outline(), indent);
    if (const auto line = host::As<host::IHostLineSymbol>(object))
        return "line " + ColorText(*line->Color()) + '\n';
    return "object\n";
}

std::string ValueText(const host::Variant& value, const std::string& indent) {
    return std::visit(
        [&](const auto& held) -> std::string {
            using T = std::decay_t<decltype(held)>;
            const std::string type = " t" + std::to_string(value.index()) + '\n';
            if constexpr (std::is_same_v<T, Ref<IHostObject>>)
                return ObjectText(held, indent);
            else if constexpr (std::is_same_v<T, std::string>)
                return '"' + held + "\"\n";
            else if constexpr (std::is_floating_point_v<T>)
                return NumberText(held) + type;
            else if constexpr (std::is_arithmetic_v<T>)
                return std::to_string(held) + type;
            else
                return "nothing" + type;
        },
        value);
}

}  // namespace

std::string Dump(const host::IHostPropertySet& set, const std::string& indent) {
    std::string text;
    const auto items = set.AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i)
        text += indent + items.names[i] + ": " + ValueText(items.values[i], indent);
    return text;
}

std::set<const IHostObject*> ObjectsIn(const host::IHostPropertySet& set) {
    std::set<const IHostObject*> found;
    for (const auto& value : set.AllItems().values) {
        const auto* object = std::get_if<Ref<IHostObject>>(&value);
        if (object == nullptr) continue;
        found.insert(object->get());
        if (const auto inner = host::As<host::IHostPropertySet>(*object))
            found.merge(ObjectsIn(*inner));
        if (const auto text = host::As<host::IHostTextSymbol>(*object))
            found.insert({text->Font().get(), text->Color().get()});
        if (const auto fill = host::As<host::IHostFillSymbol>(*object))
            found.insert({fill->Color().get(), fill->Outline().get()});
    }
    found.erase(nullptr);  // A fill need not have an outline.
    return found;
}

}  // namespace support
