#pragma once

#include <string>
#include <vector>

#include "host/Host.h"
#include "listings/PageCorrection.h"
#include "model/Results.h"
#include "model/Settings.h"

namespace gazetteer {

/// Where listings come from: the opened listing database and, with a valid link, the series frame
/// and the table of its index layer.
struct ListingSource {
    host::Ref<host::IHostTable> databaseTable;
    bool linkValid = false;
    host::Ref<host::IHostMapFrame> seriesMapFrame;
    host::Ref<host::IHostTable> indexLayerTable;
};

/// Composes the texts of the columns from the rows of a listing source. A column that takes its
/// text from the database sees the row's raw page, row and column; one that takes it from the index
/// layer sees the corrected page and the grid's labels, and reads the attributes of the map page,
/// not of the listing.
class CellComposer {
public:
    CellComposer(host::IHost& host, const Settings& settings, const SiblingObjects& siblings,
                 const ListingSource& source);
    CellComposer(const CellComposer&) = delete;
    CellComposer& operator=(const CellComposer&) = delete;

    /// Finds the page, row and column fields of the listing database.
    void FindFields();

    /// Sets the row of the listing database that Text composes. It must outlive the calls of Text.
    void SetRow(const host::Ref<host::IHostRow>& row);

    std::size_t ColumnCount() const { return columns_.size(); }
    const std::string& ColumnName(std::size_t column) const { return columns_[column].name; }

    /// Text of one cell of the row. A failure has column, record, field and value as facts.
    std::string Text(std::size_t columnIndex);

private:
    struct Column {
        std::string name;
        std::string expression;
        bool fromDatabase = true;
    };

    std::string TextFromDatabase(const Column& column);
    std::string TextFromIndexLayer(const Column& column);
    std::int32_t Number(const host::Variant& value, const char* field);
    bool HasGridFields() const { return rowField_ >= 0 && columnField_ >= 0; }
    host::Variant Label(const host::Variant& value, bool isRow);

    host::IHost& host_;
    const SiblingObjects& siblings_;
    const ListingSource& source_;
    std::vector<Column> columns_;
    PageCorrection correction_;
    host::Ref<host::IHostIndexGrid> grid_;
    std::int32_t pageField_ = -1;
    std::int32_t rowField_ = -1;
    std::int32_t columnField_ = -1;

    host::Ref<host::IHostRow> row_;
    /// The tokens of columns from the database are the row's raw values, the same for all.
    host::TokenValues rawTokens_;
    host::Variant& page_ = rawTokens_["PAGE_NUMBER"];
    host::Variant& gridRow_ = rawTokens_["ROW"];
    host::Variant& gridColumn_ = rawTokens_["COLUMN"];
    host::TokenValues bookTokens_;
};

}  // namespace gazetteer
