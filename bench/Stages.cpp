#include "Stages.h"

#include <cstdlib>
#include <variant>

#include "ListingTable.h"
#include "app/document/NewDocument.h"
#include "desk/drawing/ElementPainter.h"
#include "layout/PageDrawing.h"
#include "layout/PageGroups.h"
#include "listings/Combine.h"
#include "listings/IndexTable.h"
#include "model/ColumnProperties.h"
#include "model/Paths.h"

namespace bench {
namespace {

using namespace gazetteer;

std::string TablePath(const support::TemporaryFolder& folder) {
    if (const char* given = std::getenv("GAZETTEER_BENCH_TABLE")) return given;
    const char* records = std::getenv("GAZETTEER_BENCH_RECORDS");
    auto path = folder.File("listings.dbf");
    WriteListingTable(path, records ? std::strtoul(records, nullptr, 10) : 100'000);
    return path;
}

CellTexts TextsOf(const Settings& settings, host::IHostLocale& locale,
                  const host::IHostPropertySet& listings, const std::string& column) {
    const auto properties =
        ReadColumnProperties(*SetUnder(*settings.columnsProperties, column), locale);
    CellTexts cells{column,
                    {},
                    properties.columnFontSymbol,
                    properties.columnWidth - properties.marginLeft - properties.marginRight};
    for (const auto& value : SetUnder(listings, column)->AllItems().values)
        cells.texts.push_back(std::get<std::string>(value));
    return cells;
}

}  // namespace

Stages::Stages() : session_({.locale = "en_US"}), siblings_(SiblingObjects::Create(Host())) {
    const std::string path = TablePath(folder_);
    app::NewDocumentOptions options;
    options.listingDatabase = path;
    app::StartNewDocument(session_.Document(), options, folder_.File("index.json"));
    app::ApplyPrintDefaults(session_.Document());
    ReadSettings(Host(), *session_.Document().Properties(), settings_);
    source_.databaseTable = OpenTableFile(Host(), path);
    transparent_ = Host().NewFillSymbol();
}

std::int64_t Stages::Read() {
    std::int64_t records = 0;
    const auto rows = source_.databaseTable->Search(Host().NewQueryFilter(), true);
    for (auto row = rows->NextRow(); row; row = rows->NextRow())
        if (!std::holds_alternative<host::Null>(row->Value(0))) ++records;
    return records;
}

host::Ref<host::IHostTable> Stages::Compose() {
    auto table = MakeIndexTempTable(Host(), settings_);
    ComposeIndexTable(Host(), settings_, siblings_, source_, *table);
    return table;
}

host::Ref<host::IHostCursor> Stages::Sort() {
    return OrderIndexTable(Host(), settings_, Composed());
}

host::Ref<host::IHostPropertySet> Stages::Combine(host::IHostCursor& rows) {
    RunReport report;
    return PopulateRowValuesPropertySet(Host(), settings_, rows, *Composed(), report);
}

std::vector<CellTexts> Stages::Cells() {
    const auto listings = Combine(*Sort());
    std::vector<CellTexts> cells;
    for (const auto& column : NamesOf(*settings_.columnDisplayOrder))
        cells.push_back(TextsOf(settings_, Host().Locale(), *listings, column));
    return cells;
}

void Stages::NumberPages(WorkingResults& results) {
    RunReport report;
    PopulatePageGroups(Host(), settings_, *session_.Document().Gazetteer(), transparent_, results,
                       report);
}

void Stages::Draw(std::int32_t page) {
    DrawPage(Host(), settings_, Results(), transparent_, session_.Document().Gazetteer(), page);
}

void Stages::Write(desk::PageWriter& writer) {
    const auto& document = session_.Document().TheDesk().CurrentDocument();
    writer.BeginPage(document.pageWidth, document.pageHeight);
    desk::ElementPainter(*session_.Document().TheDesk().Text())
        .Paint(writer.Sheet(), session_.Document().Gazetteer());
    writer.EndPage("page");
}

const host::Ref<host::IHostTable>& Stages::Composed() {
    if (!composed_) composed_ = Compose();
    return composed_;
}

WorkingResults& Stages::Results() {
    if (!results_.listings) {
        results_.listings = Combine(*Sort());
        NumberPages(results_);
    }
    return results_;
}

host::Ref<host::IHostDisplay> Stages::Display() {
    return Host().NewApplication()->Document()->ActiveView()->Display();
}

}  // namespace bench
