#include "app/tables/ImportedTable.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include "app/document/Errors.h"
#include "characters/FoldCase.h"
#include "desk/tables/TablePath.h"
#include "support/Conversions.h"

namespace app {
namespace {

std::shared_ptr<gis::SourceTable> Open(const ImportOptions& options) {
    auto path = desk::FindTable(options.source);
    if (!options.layer.empty()) path.layer = options.layer;
    return desk::OpenTable(path, options.where);
}

}  // namespace

ImportedTable::ImportedTable(const ImportOptions& options,
                             const host::Ref<host::IHostLocale>& locale,
                             const std::string& localeName)
    : table_(Open(options)), locale_(locale) {
    Add("--listing", "Listing", options.listing);
    if (!columns_.empty()) listing_ = 0;
    Add("--page", "Page", options.page);
    if (columns_.empty() || columns_.back().output.name != "Page")
        throw UsageError(table_->Path() +
                         " has no field \"Page\"; --page names the one that holds the page. Its "
                         "fields are " +
                         FieldsOf(*table_) + '.');
    Add("--row", "Row", options.row);
    Add("--column", "Column", options.column);
    for (const auto& field : options.keep) Add("--keep", field, field);
    if (!options.initial) return;
    if (!listing_)
        throw UsageError("--initial: " + table_->Path() +
                         " has no field \"Listing\"; --listing names the one that holds it.");
    letters_ = std::make_unique<desk::IndexLetters>(localeName);
}

void ImportedTable::Add(const std::string& option, const std::string& name,
                        const std::string& given) {
    if (given.empty() && table_->FindField(name) < 0) return;
    FieldText text(option, given.empty() ? name : given, table_, locale_);
    const auto fields = table_->SourceFields();
    OutputField output{name, gis::FieldKind::Text};
    if (!text.IsExpression()) {
        const auto& field = fields[static_cast<std::size_t>(text.Field())];
        output.kind = field.kind;
        if (option == "--keep") output.name = field.name;
    }
    const bool isTaken = std::ranges::any_of(columns_, [&](const Column& column) {
        return characters::FoldCase(column.output.name) == characters::FoldCase(output.name);
    });
    if (isTaken) {
        if (option == "--keep" && characters::FoldCase(name) == characters::FoldCase(output.name))
            return;
        throw UsageError(option + ": the table would have two fields \"" + output.name + "\".");
    }
    columns_.push_back({std::move(output), std::move(text)});
}

std::vector<OutputField> ImportedTable::Fields() const {
    std::vector<OutputField> fields;
    for (const auto& column : columns_) fields.push_back(column.output);
    if (letters_) fields.push_back({"Initial", gis::FieldKind::Text});
    return fields;
}

void ImportedTable::ForEach(const RowTaker& take) const {
    const auto cursor = table_->Search(nullptr, true);
    Values values(Fields().size());
    while (const auto row = cursor->NextRow()) {
        for (std::size_t i = 0; i < columns_.size(); ++i)
            values[i] = columns_[i].text.IsExpression() ? host::Variant(columns_[i].text.Of(row))
                                                        : row->Value(columns_[i].text.Field());
        if (letters_)
            values.back() =
                desk::InitialOf(*letters_, gazetteer::ToText(values[*listing_], *locale_));
        take(values);
    }
}

}  // namespace app
