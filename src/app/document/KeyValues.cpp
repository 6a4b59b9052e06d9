#include "app/document/KeyValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "app/document/Errors.h"
#include "desk/devices/InkColor.h"
#include "desk/text/ItalicFont.h"
#include "model/DefaultSymbols.h"
#include "model/Keys.h"
#include "pdf/color/ColorText.h"
#include "support/Text.h"

namespace app {
namespace {

using gazetteer::ValueKind;

[[noreturn]] void FailForm(const std::string& key, const std::string& value, const char* form) {
    throw UsageError(key + "=" + Shown(value) + ": the value must be " + form + ".");
}

// Returns the number in a text; nothing if the text contains anything else.
template <class Number>
std::optional<Number> ParseNumber(std::string_view text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

// Points. Drawing libraries fail above some thousand points; Pango stores sizes in 1/1024 point and
// files in 1/100 point.
constexpr double kLargestType = 1000;
constexpr double kSmallestType = 0.1;

// Splits at commas; an ink at the end has some of its own.
std::vector<std::string> SymbolPieces(const std::string& value) {
    auto pieces = gazetteer::Split(value, ',');
    const auto ink = std::ranges::find_if(pieces, pdf::BeginsAsInk);
    if (ink == pieces.end()) return pieces;
    for (auto next = ink + 1; next != pieces.end(); ++next) *ink += ',' + *next;
    pieces.erase(ink + 1, pieces.end());
    return pieces;
}

// Parses "FAMILY,SIZE[,bold][,italic][,COLOR]"; the default is black, upright and not bold.
// Returns null for another form. A family name cannot contain a comma.
host::Ref<host::IHostTextSymbol> ParseTextSymbol(host::IHost& host, const std::string& value) {
    const auto pieces = SymbolPieces(value);
    if (pieces.size() < 2 || pieces.size() > 5 || pieces[0].empty()) return nullptr;
    const auto points = ParseDecimal(pieces[1]);
    if (!points || *points < kSmallestType || *points > kLargestType) return nullptr;
    std::size_t next = 2;
    const auto has = [&](const char* style) {
        const bool isNext = next < pieces.size() && pieces[next] == style;
        if (isNext) ++next;
        return isNext;
    };
    const bool bold = has("bold");
    const bool italic = has("italic");
    std::optional<pdf::Color> color = pdf::Color();
    if (next < pieces.size()) color = pdf::ParseColor(pieces[next++]);
    if (next < pieces.size() || !color) return nullptr;

    auto symbol = gazetteer::MakeTextSymbol(host, *points, bold);
    symbol->Font()->SetName(pieces[0]);
    desk::SetItalic(*symbol->Font(), italic);
    desk::SetColor(*symbol->Color(), *color);
    symbol->SetText(gazetteer::SampleText(host, pieces[0], *points));
    return symbol;
}

host::Ref<host::IHostFillSymbol> ParseFillSymbol(host::IHost& host, const std::string& value) {
    const auto color = pdf::ParseColor(value);
    if (!color) return nullptr;
    auto symbol = gazetteer::MakeFillSymbol(host, color->rgb);
    desk::SetColor(*symbol->Color(), *color);
    return symbol;
}

std::string TextSymbolText(host::IHostTextSymbol& symbol) {
    std::string text = symbol.Font()->Name() + ',' + NumberText(symbol.Size());
    if (symbol.Font()->Bold()) text += ",bold";
    if (desk::IsItalic(*symbol.Font())) text += ",italic";
    const pdf::Color color = desk::ColorOf(*symbol.Color());
    if (color != pdf::Color()) text += ',' + pdf::ColorText(color);
    return text;
}

}  // namespace

std::optional<double> ParseDecimal(const std::string& text) {
    const auto value = ParseNumber<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

host::Variant ItemOf(host::IHostPropertySet& set, std::string_view name) {
    const auto items = set.AllItems();
    const auto found = std::ranges::find(items.names, name);
    if (found == items.names.end()) return {};
    return items.values[static_cast<std::size_t>(found - items.names.begin())];
}

std::string NumberText(double value) {
    std::array<char, 32> text{};
    char* const end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
    return {text.data(), end};
}

Assignment ParseAssignment(const std::string& text) {
    const auto equals = text.find('=');
    if (equals == std::string::npos)
        throw UsageError("\"" + text + "\" is not of the form KEY=VALUE.");
    Assignment assignment{"", text.substr(0, equals), text.substr(equals + 1)};
    const auto dot = assignment.key.rfind('.');
    if (dot != std::string::npos) {
        assignment.column = assignment.key.substr(0, dot);
        assignment.key.erase(0, dot + 1);
        if (assignment.column.empty())
            throw UsageError("\"" + text + "\" names no column before the dot.");
    }
    return assignment;
}

host::Variant ParseValue(host::IHost& host, const std::string& key, ValueKind kind,
                         const std::string& value) {
    switch (kind) {
        case ValueKind::Boolean:
            if (value != "true" && value != "false") FailForm(key, value, "true or false");
            return value == "true";
        case ValueKind::Integer:
        case ValueKind::Long: {
            const auto number = ParseNumber<std::int32_t>(value);
            if (!number) FailForm(key, value, "a whole number");
            return *number;
        }
        case ValueKind::Double: {
            const auto number = ParseDecimal(value);
            if (!number) FailForm(key, value, "a number of inches such as 1.75");
            if (!gazetteer::IsLength(*number))
                FailForm(key, value, "a number of inches from -1000 to 1000");
            return *number;
        }
        case ValueKind::TextSymbol: {
            const auto symbol = ParseTextSymbol(host, value);
            if (!symbol)
                FailForm(
                    key, value,
                    "a font such as \"DejaVu Sans,10,bold,#B00000\" (FAMILY,SIZE[,bold]"
                    "[,italic][,COLOUR], SIZE at most 1000 and at least 0.1; COLOUR is #RRGGBB, "
                    "cmyk(C,M,Y,K) or spot(NAME))");
            return host::Ref<host::IHostObject>(symbol);
        }
        case ValueKind::FillSymbol: {
            const auto symbol = ParseFillSymbol(host, value);
            if (!symbol)
                FailForm(key, value,
                         "a colour such as #E1E1E1, cmyk(0,100,80,10) or spot(Reflex Blue)");
            return host::Ref<host::IHostObject>(symbol);
        }
        case ValueKind::String:
        case ValueKind::Set:
            break;
    }
    return value;
}

host::Variant ParseTypesettingValue(host::IHost& host, const gazetteer::TypesettingKey& key,
                                    const std::string& name, const std::string& value) {
    const auto choices = key.Choices();
    if (!choices.empty() && std::ranges::find(choices, value) == choices.end()) {
        std::string form = "one of";
        for (const char* const choice : choices)
            form += (choice == choices.front() ? " \"" : ", \"") + std::string(choice) + '"';
        FailForm(name, value, form.c_str());
    }
    auto parsed = ParseValue(host, name, key.kind, value);
    const auto* const number = std::get_if<std::int32_t>(&parsed);
    if (number && (*number < 0 || *number > key.most))
        FailForm(name, value, ("a whole number from 0 to " + std::to_string(key.most)).c_str());
    return parsed;
}

std::string ValueText(const host::Variant& value) {
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "true" : "false";
    if (const auto* number = std::get_if<std::int16_t>(&value)) return std::to_string(*number);
    if (const auto* number = std::get_if<std::int32_t>(&value)) return std::to_string(*number);
    if (const auto* number = std::get_if<double>(&value)) return NumberText(*number);
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* object = std::get_if<host::Ref<host::IHostObject>>(&value)) {
        if (const auto symbol = host::As<host::IHostTextSymbol>(*object))
            return TextSymbolText(*symbol);
        if (const auto fill = host::As<host::IHostFillSymbol>(*object))
            return pdf::ColorText(desk::ColorOf(*fill->Color()));
    }
    return {};
}

}  // namespace app
