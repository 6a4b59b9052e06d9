#include <algorithm>
#include <array>
#include <vector>

#include "app/document/Errors.h"
#include "app/document/FindFindings.h"
#include "app/document/NewDocument.h"
#include "desk/expressions/ExpressionEngine.h"
#include "model/KeyNames.h"
#include "support/Conversions.h"
#include "support/Text.h"

namespace app {
namespace {

namespace keys = gazetteer::keys;
using Part = desk::ExpressionPart;
using Table = host::Ref<host::IHostTable>;

constexpr std::array kNames{"Listing", "Page", "Row", "Column"};

// A field of the listing database, and the first column that prints it.
struct PrintedField {
    std::int32_t index;  // Negative: the table has no such field.
    std::string name;
    std::string column;
};

// Returns the fields of the listing database that an expression's part prints and that should not
// be empty. Row and column are read only from a table that has both.
std::vector<std::string> FieldsOf(const Part& part, bool fromDatabase, const Table& table) {
    if (part.kind == Part::Kind::Token) {
        if (part.text == "PAGE_NUMBER") return {"Page"};
        const std::string name = part.text == "ROW" ? "Row" : "Column";
        const std::string other = part.text == "ROW" ? "Column" : "Row";
        return table->FindField(other) < 0 ? std::vector{name, other} : std::vector{name};
    }
    if (part.kind == Part::Kind::Field && fromDatabase)
        for (const char* name : kNames)
            if (gazetteer::EqualsInAnyCase(part.text, name)) return {name};
    return {};
}

std::vector<PrintedField> PrintedFields(OpenDocument& open, const Table& table) {
    const auto& settings = open.Manager().BoundSettings();
    std::vector<PrintedField> fields;
    for (const auto& column : gazetteer::NamesOf(*settings.columnNames)) {
        const auto set = gazetteer::SetUnder(*settings.columnsProperties, column);
        const bool fromDatabase = gazetteer::ToBoolean(set->Item(keys::kFromDatabase));
        const auto text = gazetteer::ToText(set->Item(keys::kExpression), open.Host().Locale());
        for (const Part& part : desk::ParseExpression(table, text).parts)
            for (const auto& name : FieldsOf(part, fromDatabase, table))
                if (std::ranges::find(fields, name, &PrintedField::name) == fields.end())
                    fields.push_back({table->FindField(name), name, column});
    }
    return fields;
}

void AddMissing(const PrintedField& field, const Table& table, FindingList& list) {
    constexpr std::int32_t kFieldsTold = 10;
    if (!list.Count(findings::kMissingField)) return;
    Finding finding{findings::kMissingField, {}};
    finding.column = field.column;
    finding.text = "the listing database has no field \"" + field.name +
                   "\", so that the column \"" + field.column + "\" prints 0 for " +
                   (field.name == "Page" ? "the page" : "row and column") + "; its fields are " +
                   FieldNames(*table->Fields(), kFieldsTold) + '.';
    list.Add(std::move(finding));
}

bool IsEmpty(const host::Variant& value) {
    const auto* const text = std::get_if<std::string>(&value);
    if (text) return text->find_first_not_of(' ') == std::string::npos;
    return std::holds_alternative<host::Null>(value) || std::holds_alternative<host::Empty>(value);
}

std::string ListingOf(const host::Ref<host::IHostRow>& row, const Table& table,
                      host::IHostLocale& locale) {
    const std::int32_t index = table->FindField("Listing");
    if (index < 0 || IsEmpty(row->Value(index))) return {};
    return gazetteer::ToText(row->Value(index), locale);
}

// The fields that a record's finding names, with their columns.
std::string Phrase(const std::vector<const PrintedField*>& empty) {
    std::string phrase;
    for (const auto* field : empty)
        phrase += std::string(phrase.empty() ? "" : ", and ") + "the field \"" + field->name +
                  "\", which the column \"" + field->column + "\" prints";
    return phrase + (empty.size() == 1 ? ", is empty." : ", are empty.");
}

}  // namespace

void AddTableFindings(OpenDocument& open, FindingList& list) {
    const auto table = open.Manager().DatabaseTable();
    if (!table) return;
    auto fields = PrintedFields(open, table);
    for (const auto& field : fields)
        if (field.index < 0) AddMissing(field, table, list);
    std::erase_if(fields, [](const auto& field) { return field.index < 0; });
    if (fields.empty()) return;
    const auto rows = table->Search(open.Host().NewQueryFilter(), true);
    while (const auto row = rows->NextRow()) {
        std::vector<const PrintedField*> empty;
        for (const auto& field : fields)
            if (IsEmpty(row->Value(field.index))) empty.push_back(&field);
        if (empty.empty() || !list.Count(findings::kEmptyValue)) continue;
        Finding finding{findings::kEmptyValue,
                        {},
                        ListingOf(row, table, open.Host().Locale()),
                        empty.front()->column};
        finding.record = row->OID();
        finding.text = "record " + std::to_string(finding.record) +
                       (finding.listing.empty() ? "" : ", \"" + Shown(finding.listing) + '"') +
                       ": " + Phrase(empty);
        list.Add(std::move(finding));
    }
}

}  // namespace app
