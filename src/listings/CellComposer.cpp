#include "listings/CellComposer.h"

#include "model/ColumnProperties.h"
#include "model/KeyNames.h"
#include "support/Conversions.h"

namespace gazetteer {
namespace {

constexpr std::int32_t kNoNumber = 0;  // What a field that is not there counts as.

// A value as messages show it.
std::string Shown(const host::Variant& value, host::IHostLocale& locale) {
    return std::holds_alternative<host::Null>(value) ? "(none)" : ToText(value, locale);
}

}  // namespace

CellComposer::CellComposer(host::IHost& host, const Settings& settings,
                           const SiblingObjects& siblings, const ListingSource& source)
    : host_(host), siblings_(siblings), source_(source) {
    if (source.linkValid) {
        correction_ = MakePageCorrection(settings, siblings, source.seriesMapFrame, host.Locale());
        grid_ = FindIndexGrid(source.seriesMapFrame);
    }
    for (const std::string& name : NamesOf(*settings.columnNames)) {
        const auto set = SetUnder(*settings.columnsProperties, name);
        columns_.push_back({name, ToText(set->Item(keys::kExpression), host.Locale()),
                            ToBoolean(set->Item(keys::kFromDatabase))});
    }
}

void CellComposer::FindFields() {
    pageField_ = source_.databaseTable->FindField("Page");
    rowField_ = source_.databaseTable->FindField("Row");
    columnField_ = source_.databaseTable->FindField("Column");
}

void CellComposer::SetRow(const host::Ref<host::IHostRow>& row) {
    row_ = row;
    page_ = pageField_ >= 0 ? row->Value(pageField_) : host::Variant(kNoNumber);
    gridRow_ = HasGridFields() ? row->Value(rowField_) : host::Variant(kNoNumber);
    gridColumn_ = HasGridFields() ? row->Value(columnField_) : host::Variant(kNoNumber);
}

std::string CellComposer::Text(std::size_t columnIndex) {
    const Column& column = columns_[columnIndex];
    try {
        return column.fromDatabase ? TextFromDatabase(column) : TextFromIndexLayer(column);
    } catch (host::Failure& failure) {
        failure.AddFact("column", column.name);
        failure.AddFact("record", std::to_string(row_->OID()));
        throw;
    }
}

std::string CellComposer::TextFromDatabase(const Column& column) {
    return siblings_.expressionEngine->Evaluate(source_.databaseTable, row_, column.expression,
                                                rawTokens_);
}

std::string CellComposer::TextFromIndexLayer(const Column& column) {
    const std::int32_t page = Number(page_, "Page");
    // A missing field counts as 0, which is neither corrected nor looked up on the grid.
    const bool labelled = grid_ && HasGridFields();
    bookTokens_["PAGE_NUMBER"] = pageField_ >= 0 ? correction_.Corrected(page) : kNoNumber;
    bookTokens_["ROW"] = labelled ? Label(gridRow_, true) : gridRow_;
    bookTokens_["COLUMN"] = labelled ? Label(gridColumn_, false) : gridColumn_;
    const auto feature = siblings_.seriesManager->PageFeature(page);
    return siblings_.expressionEngine->Evaluate(source_.indexLayerTable, feature, column.expression,
                                                bookTokens_);
}

host::Variant CellComposer::Label(const host::Variant& value, bool isRow) {
    const std::int32_t index = Number(value, isRow ? "Row" : "Column");
    const std::int32_t count = isRow ? grid_->RowCount() : grid_->ColumnCount();
    if (index > count) return value;
    return isRow ? grid_->RowLabel(index) : grid_->ColumnLabel(index);
}

std::int32_t CellComposer::Number(const host::Variant& value, const char* field) {
    try {
        return ToLong(value, host_.Locale());
    } catch (host::Failure& failure) {
        failure.AddFact("field", field);
        failure.AddFact("value", Shown(value, host_.Locale()));
        throw;
    }
}

}  // namespace gazetteer
