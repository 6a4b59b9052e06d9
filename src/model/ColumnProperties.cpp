#include "model/ColumnProperties.h"

#include "model/DefaultSymbols.h"
#include "model/Keys.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

using TextSymbolField = host::Ref<host::IHostTextSymbol> ColumnProperties::*;
using FillSymbolField = host::Ref<host::IHostFillSymbol> ColumnProperties::*;

}  // namespace

host::Variant ValueOf(const ColumnKey& key, const ColumnProperties& column) {
    if (key.kind == ValueKind::Integer) return static_cast<std::int16_t>(column.version);
    return std::visit([&](auto field) { return AsVariant(column.*field); }, key.field);
}

ColumnProperties WithOwnSymbols(ColumnProperties column) {
    for (const ColumnKey& key : ColumnKeys()) {
        if (const auto* text = std::get_if<TextSymbolField>(&key.field))
            column.** text = host::As<host::IHostTextSymbol>((column.**text)->Copy());
        else if (const auto* fill = std::get_if<FillSymbolField>(&key.field))
            column.** fill = host::As<host::IHostFillSymbol>((column.**fill)->Copy());
    }
    return column;
}

ColumnProperties ReadColumnProperties(const host::IHostPropertySet& properties,
                                      host::IHostLocale& locale, ColumnKeyScope scope) {
    ColumnProperties column;
    for (const ColumnKey& key : ColumnKeys()) {
        if (key.writer == Writer::Run || (scope == ColumnKeyScope::Run && key.storedOnly)) continue;
        const host::Variant value = properties.Item(key.name);
        try {
            std::visit(
                [&](auto field) {
                    column.*field =
                        ValueAs<std::remove_reference_t<decltype(column.*field)>>(value, locale);
                },
                key.field);
        } catch (host::Failure& failure) {
            failure.AddFact("key", key.name);
            throw;
        }
    }
    return column;
}

host::Ref<host::IHostPropertySet> NewColumnSet(host::IHostPropertySetFactory& host,
                                               const ColumnProperties& properties) {
    auto set = host.NewPropertySet();
    for (const ColumnKey& key : ColumnKeys()) set->SetItem(key.name, ValueOf(key, properties));
    return set;
}

host::Ref<host::IHostPropertySet> MakeColumnProperties(host::IHost& host, const std::string& title,
                                                       const std::string& expression,
                                                       bool fromDatabase, bool breakColumn,
                                                       const ColumnProperties* current) try {
    ColumnProperties column;
    if (current) {
        column = WithOwnSymbols(*current);
        column.showMissingLetters = false;
        column.showTitle = true;
    } else {
        SetDefaultSymbols(host, column);
    }
    column.title = title;
    column.expression = expression;
    column.fromDatabase = fromDatabase;
    column.breakColumn = breakColumn;
    column.breakHeading = breakColumn;
    return NewColumnSet(host, column);
} catch (...) {
    PassOn("MakeColumnProperties", kFormLabel);
}

}  // namespace gazetteer
