#include <algorithm>
#include <vector>

#include "app/document/Errors.h"
#include "app/document/FindFindings.h"
#include "desk/expressions/ExpressionEngine.h"
#include "model/KeyNames.h"
#include "support/Conversions.h"
#include "support/Text.h"

namespace app {
namespace {

namespace keys = gazetteer::keys;
using Part = desk::ExpressionPart;

// A field of the listing database, and a column that prints it.
struct PrintedField {
    std::int32_t index;
    std::string name;
    std::string column;
};

// Returns the name of the field that an expression's part prints; empty if it may be empty.
std::string RequiredField(const Part& part) {
    if (part.kind == Part::Kind::Token) {
        if (part.text == "PAGE_NUMBER") return "Page";
        return part.text == "ROW" ? "Row" : "Column";
    }
    for (const char* name : {"Listing", "Page", "Row", "Column"})
        if (part.kind == Part::Kind::Field && gazetteer::EqualsInAnyCase(part.text, name))
            return name;
    return {};
}

std::vector<PrintedField> PrintedFields(OpenDocument& open,
                                        const host::Ref<host::IHostTable>& table) {
    const auto& settings = open.Manager().BoundSettings();
    std::vector<PrintedField> fields;
    for (const auto& column : gazetteer::NamesOf(*settings.columnNames)) {
        const auto set = gazetteer::SetUnder(*settings.columnsProperties, column);
        if (!gazetteer::ToBoolean(set->Item(keys::kFromDatabase))) continue;
        const auto text = gazetteer::ToText(set->Item(keys::kExpression), open.Host().Locale());
        for (const Part& part : desk::ParseExpression(table, text).parts) {
            const std::string name = RequiredField(part);
            const std::int32_t index = name.empty() ? -1 : table->FindField(name);
            if (index >= 0 &&
                std::ranges::find(fields, index, &PrintedField::index) == fields.end())
                fields.push_back({index, name, column});
        }
    }
    return fields;
}

bool IsEmpty(const host::Variant& value) {
    const auto* const text = std::get_if<std::string>(&value);
    if (text) return text->find_first_not_of(' ') == std::string::npos;
    return std::holds_alternative<host::Null>(value) || std::holds_alternative<host::Empty>(value);
}

}  // namespace

void AddEmptyValues(OpenDocument& open, FindingList& list) {
    const auto table = open.Manager().DatabaseTable();
    if (!table) return;
    const auto fields = PrintedFields(open, table);
    if (fields.empty()) return;
    const std::int32_t listing = table->FindField("Listing");
    const auto rows = table->Search(open.Host().NewQueryFilter(), true);
    while (const auto row = rows->NextRow())
        for (const auto& field : fields) {
            if (!IsEmpty(row->Value(field.index)) || !list.Count(findings::kEmptyValue)) continue;
            Finding finding{findings::kEmptyValue, {}};
            if (listing >= 0 && listing != field.index && !IsEmpty(row->Value(listing)))
                finding.listing = gazetteer::ToText(row->Value(listing), open.Host().Locale());
            finding.column = field.column;
            finding.record = row->OID();
            finding.text = "record " + std::to_string(finding.record) +
                           (finding.listing.empty() ? "" : ", \"" + Shown(finding.listing) + "\"") +
                           ": the field \"" + field.name + "\", which the column \"" +
                           field.column + "\" prints, is empty.";
            list.Add(std::move(finding));
        }
}

}  // namespace app
