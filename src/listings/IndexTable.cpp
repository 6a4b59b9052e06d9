#include "listings/IndexTable.h"

#include <algorithm>

#include "listings/NumberAwareSort.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "support/Status.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using host::Ref;

constexpr char kTableName[] = "CVNGazetteerTmp";
constexpr char kIdentifierField[] = "OID";
constexpr char kFieldSeparator[] = ",";
constexpr std::int32_t kTextFieldLength = 255;

Ref<host::IHostFields> IndexFields(host::IHostTableFactory& host,
                                   const std::vector<std::string>& columns) {
    auto fields = host.NewFields();
    fields->SetFieldCount(static_cast<std::int32_t>(columns.size()) + 1);
    auto identifier = host.NewField();
    identifier->SetName(kIdentifierField);
    identifier->SetType(host::kFieldTypeObjectId);
    fields->SetField(0, identifier);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        auto field = host.NewField();
        field->SetLength(kTextFieldLength);
        field->SetName(columns[i]);
        field->SetType(host::kFieldTypeText);
        fields->SetField(static_cast<std::int32_t>(i) + 1, field);
    }
    return fields;
}

void DeleteOldTable(host::IHostWorkspace& workspace) {
    const auto tables = workspace.Datasets(host::kDatasetTypeTable);
    for (auto table = tables->Next(); table; table = tables->Next()) {
        if (table->Name() != kTableName) continue;
        table->Delete();
        return;
    }
}

Ref<host::IHostCursor> SortedRows(host::IHost& host, const Settings& settings,
                                  const Ref<host::IHostTable>& indexTable) {
    const auto sort = host.NewTableSort();
    const auto order = settings.columnSortOrder->AllItems();
    std::vector<std::string> names;
    std::string fields;
    for (std::size_t i = 0; i < order.names.size(); ++i) {
        if (!ToBoolean(order.values[i])) continue;
        fields += (fields.empty() ? "" : kFieldSeparator) + order.names[i];
        names.push_back(order.names[i]);
    }
    sort->SetFields(fields);
    for (const std::string& name : names) {
        sort->SetAscending(name, settings.sortAscending);
        sort->SetFieldOption(name, false);
    }
    sort->SetQueryFilter(host.NewQueryFilter());
    sort->SetCallback(std::make_shared<clsTableSortNumberAware>(host));
    sort->SetTable(indexTable);
    sort->Sort(nullptr);
    return sort->Rows();
}

// Runs after a failure that the user is told; a second failure must not replace it.
void Rest(host::IHostProgressAnimation& animation) try {
    animation.Hide();
    animation.Stop();
} catch (...) {
}

Ref<host::IHostCursor> SortIndexTable(host::IHost& host, const Settings& settings,
                                      const Ref<host::IHostTable>& indexTable) {
    Status status(host);
    status.Show("Sorting Listings (Please be patient. This can take a while)...");
    const auto animation = status.Animation();
    animation->Show();
    animation->Play();
    Ref<host::IHostCursor> rows;
    try {
        rows = SortedRows(host, settings, indexTable);
    } catch (...) {
        Rest(*animation);
        throw;
    }
    animation->Hide();
    animation->Stop();
    return rows;
}

std::int64_t RowsToCompose(const Settings& settings, const host::IHostTable& table) {
    const std::int64_t count = CountRows(table);
    return settings.samplePage ? std::min<std::int64_t>(count, kSampleRows + 1) : count;
}

}  // namespace

std::string IndexTableRefusal(const std::string& name, bool sorted) {
    if (EqualsInAnyCase(name, kIdentifierField))
        return "A column cannot be named \"" + name +
               "\": the index table keeps its row numbers under that name.";
    if (sorted && name.find(kFieldSeparator) != std::string::npos)
        return "Listings cannot be sorted by a column named \"" + name +
               "\", as commas separate the names of sort columns.";
    return {};
}

Ref<host::IHostTable> MakeIndexTempTable(host::IHost& host, const Settings& settings) try {
    const auto workspace = host.NewScratchWorkspaceFactory()->CreateWorkspace();
    const auto fields = IndexFields(host, NamesOf(*settings.columnNames));
    DeleteOldTable(*workspace);
    auto rowClass = host.NewIdentifier();
    // The host's class of rows that have an identifier.
    rowClass->SetValue("zorvexGeoDatabase.Object");
    return workspace->CreateTable(kTableName, fields, rowClass, nullptr, "");
} catch (...) {
    PassOn("MakeIndexTempTable", kManagerLabel);
}

std::int64_t ComposeIndexTable(host::IHost& host, const Settings& settings,
                               const SiblingObjects& siblings, const ListingSource& source,
                               host::IHostTable& indexTable) {
    const auto insert = indexTable.Insert(true);
    CellComposer composer(host, settings, siblings, source);
    std::vector<std::int32_t> fields;
    for (std::size_t i = 0; i < composer.ColumnCount(); ++i)
        fields.push_back(indexTable.FindField(composer.ColumnName(i)));

    Status status(host);
    const std::int64_t count = RowsToCompose(settings, *source.databaseTable);
    std::int64_t cells = 0;
    std::int64_t records = 0;
    const auto rows = source.databaseTable->Search(host.NewQueryFilter(), true);
    auto row = rows->NextRow();
    if (!row) return 0;
    composer.FindFields();
    for (; row; row = rows->NextRow()) {
        composer.SetRow(row);
        const auto buffer = indexTable.CreateRowBuffer();
        for (std::size_t i = 0; i < fields.size(); ++i) {
            buffer->SetValue(fields[i], composer.Text(i));
            status.Show("Generating column text for listing: ", cells++, records + 1, count);
        }
        insert->InsertRow(buffer);
        ++records;
        if (settings.samplePage && records > kSampleRows) break;
    }
    insert->Flush();
    return records;
}

Ref<host::IHostCursor> OrderIndexTable(host::IHost& host, const Settings& settings,
                                       const Ref<host::IHostTable>& indexTable) {
    if (settings.sortColumns) return SortIndexTable(host, settings, indexTable);
    return indexTable->Search(host.NewQueryFilter(), false);
}

}  // namespace gazetteer
