#include <algorithm>
#include <array>
#include <cctype>
#include <vector>

#include "app/document/Errors.h"
#include "app/document/FindFindings.h"
#include "app/document/NewDocument.h"
#include "app/document/RunTexts.h"
#include "app/document/Tokens.h"
#include "characters/Utf8.h"
#include "desk/expressions/ExpressionEngine.h"
#include "listings/PageCorrection.h"
#include "model/KeyNames.h"
#include "model/Results.h"
#include "support/Conversions.h"
#include "support/Status.h"
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
    std::int32_t most = 0;  // Rows or columns of the grid that names its values; 0: no grid.
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

// Returns how many rows or columns the grid has that names the values of a field; 0 without one.
std::int32_t GridSize(const host::Ref<host::IHostIndexGrid>& grid, const std::string& field) {
    if (!grid) return 0;
    return field == "Row" ? grid->RowCount() : field == "Column" ? grid->ColumnCount() : 0;
}

std::vector<PrintedField> PrintedFields(OpenDocument& open, const Table& table) {
    const auto& settings = open.Manager().BoundSettings();
    const auto frame = open.Manager().SeriesMapFrame();
    const auto grid = frame ? gazetteer::FindIndexGrid(frame) : nullptr;
    std::vector<PrintedField> fields;
    for (const auto& column : gazetteer::NamesOf(*settings.columnNames)) {
        const auto set = gazetteer::SetUnder(*settings.columnsProperties, column);
        const bool fromDatabase = gazetteer::ToBoolean(set->Item(keys::kFromDatabase));
        const auto text = gazetteer::ToText(set->Item(keys::kExpression), open.Host().Locale());
        for (const Part& part : desk::ParseExpression(table, text).parts)
            for (const auto& name : FieldsOf(part, fromDatabase, table))
                if (std::ranges::find(fields, name, &PrintedField::name) == fields.end())
                    fields.push_back({table->FindField(name), name, column,
                                      fromDatabase ? 0 : GridSize(grid, name)});
    }
    return fields;
}

Finding MissingField(const PrintedField& field, const Table& table,
                     const host::Ref<host::IHostElement>& gazetteer) {
    constexpr std::int32_t kFieldsTold = 10;
    Finding finding;
    finding.element = gazetteer;
    finding.column = field.column;
    finding.text = "the listing database has no field \"" + field.name +
                   "\", so that the column \"" + field.column + "\" prints 0 for " +
                   (field.name == "Page" ? "the page" : "row and column") + "; its fields are " +
                   FieldNames(*table->Fields(), kFieldsTold) + '.';
    return finding;
}

// Blanks of Unicode that print nothing, the no-break space among them.
bool IsBlank(char32_t character) {
    return character <= ' ' || character == 0xA0 || character == 0x1680 ||
           (character >= 0x2000 && character <= 0x200B) || character == 0x202F ||
           character == 0x205F || character == 0x3000;
}

// Whether a text prints nothing but what its tokens bring, such as dots.
bool PrintsNothing(const std::string& stored) {
    const std::string text = WithoutTokens(stored);
    for (std::size_t at = 0; at < text.size();)
        if (!IsBlank(characters::NextCodePoint(text, at))) return false;
    return true;
}

bool IsEmpty(const host::Variant& value) {
    // Most texts begin with a letter or a digit.
    if (const auto* const text = std::get_if<std::string>(&value))
        return (text->empty() || std::isalnum(static_cast<unsigned char>(text->front())) == 0) &&
               PrintsNothing(*text);
    return std::holds_alternative<host::Null>(value) || std::holds_alternative<host::Empty>(value);
}

std::string ListingOf(const host::Ref<host::IHostRow>& row, const Table& table,
                      host::IHostLocale& locale) {
    const std::int32_t index = table->FindField("Listing");
    if (index < 0 || IsEmpty(row->Value(index))) return {};
    return gazetteer::ToText(row->Value(index), locale);
}

// Returns a finding of a record, with the beginning of its sentence.
Finding AtRecord(OpenDocument& open, const Table& table, const host::Ref<host::IHostRow>& row,
                 std::int64_t number) {
    Finding finding;
    finding.listing = ListingOf(row, table, open.Host().Locale());
    finding.record = row->OID();
    finding.row = std::to_string(number);
    finding.element = open.Gazetteer();
    finding.text = "record " + std::to_string(finding.record) +
                   (finding.listing.empty() ? "" : ", \"" + Shown(finding.listing) + '"') + ": ";
    return finding;
}

// The empty fields of a record, which stand in the order of their columns.
std::string Phrase(const std::vector<const PrintedField*>& empty) {
    std::string phrase;
    for (std::size_t i = 0; i < empty.size(); ++i) {
        const auto isSameColumn = [&](std::size_t other) {
            return other < empty.size() && empty[other]->column == empty[i]->column;
        };
        const bool begins = i == 0 || !isSameColumn(i - 1);
        phrase += i == 0 ? "" : begins ? ", and " : " and ";
        if (begins) phrase += isSameColumn(i + 1) ? "the fields " : "the field ";
        phrase += '"' + empty[i]->name + '"';
        if (!isSameColumn(i + 1))
            phrase += ", which the column \"" + empty[i]->column + "\" prints";
    }
    return phrase + (empty.size() == 1 ? ", is empty." : ", are empty.");
}

// The values of a linked gazetteer are numbers; those beyond the grid are printed as they stand.
void AddOutsideGrid(OpenDocument& open, const Table& table, const host::Ref<host::IHostRow>& row,
                    std::int64_t number, const PrintedField& field, FindingList& list) {
    const auto value = row->Value(field.index);
    if (IsEmpty(value)) return;
    const auto index = gazetteer::ToText(value, open.Host().Locale());
    const auto parsed = open.Host().Locale().ParseNumber(index);
    if (!parsed || *parsed <= field.most) return;
    list.Add(findings::kOutsideGrid, [&] {
        Finding finding = AtRecord(open, table, row, number);
        finding.column = field.column;
        finding.text += "the field \"" + field.name + "\" is " + Shown(index) +
                        ", but the grid of the map has " + std::to_string(field.most) +
                        (field.name == "Row" ? " rows." : " columns.");
        return finding;
    });
}

void AddFieldFindings(OpenDocument& open, const Table& table, FindingList& list) {
    auto fields = PrintedFields(open, table);
    for (const auto& field : fields)
        if (field.index < 0)
            list.Add(findings::kMissingField,
                     [&] { return MissingField(field, table, open.Gazetteer()); });
    std::erase_if(fields, [](const auto& field) { return field.index < 0; });
    if (fields.empty()) return;
    const auto rows = table->Search(open.Host().NewQueryFilter(), true);
    gazetteer::Status status(open.Host());
    const std::int64_t count = gazetteer::CountRows(*table);
    // A run numbers the records that it reads, and names the listings by these numbers.
    std::int64_t number = 0;
    while (const auto row = rows->NextRow()) {
        ++number;
        status.Show("Checking record ", number, number, count);
        std::vector<const PrintedField*> empty;
        for (const auto& field : fields)
            if (IsEmpty(row->Value(field.index))) empty.push_back(&field);
        for (const auto& field : fields)
            if (field.most > 0) AddOutsideGrid(open, table, row, number, field, list);
        if (empty.empty()) continue;
        list.Add(findings::kEmptyValue, [&] {
            Finding finding = AtRecord(open, table, row, number);
            finding.column = empty.front()->column;
            finding.text += Phrase(empty);
            return finding;
        });
    }
    status.Clear();
}

}  // namespace

// Faults of values are known when the records have been read.
void AddTableFindings(OpenDocument& open, FindingList& list) {
    const auto table = open.Manager().DatabaseTable();
    if (!table) return;
    AddFieldFindings(open, table, list);
    for (const auto& fault : TableFaults(open.Manager()))
        list.Add(findings::kTableFault, [&] {
            Finding finding{{}, fault};
            finding.element = open.Gazetteer();
            return finding;
        });
}

}  // namespace app
