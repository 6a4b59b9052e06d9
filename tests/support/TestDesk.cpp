#include "support/TestDesk.h"

#include "support/DbfBuilder.h"

namespace support {
namespace {

host::Ref<host::IHost> NewDesk(desk::DeskOptions options) {
    if (options.locale.empty()) options.locale = "en_US";
    options.dialogs = std::make_shared<RecordingDialogs>();
    return std::make_shared<desk::Desk>(std::move(options));
}

}  // namespace

TestDesk::TestDesk(const desk::DeskOptions& options)
    : TestHost(NewDesk(options)), desk_(host::As<desk::Desk>(HostRef())) {}

std::string TestDesk::NewTable(const std::vector<std::string>& fields, std::size_t texts,
                               const Rows& rows) {
    std::vector<DbfColumn> columns;
    for (const auto& field : fields)
        columns.push_back(columns.size() < texts ? DbfColumn{field, 'C', 60}
                                                 : DbfColumn{field, 'N', 6});
    DbfBuilder table(columns);
    for (const auto& row : rows) table.Row(row);
    const std::string name = "table" + std::to_string(++tables_);
    folder_.Write(name + ".cpg", "UTF-8");
    table.Write(folder_.File(name + ".dbf"));
    return folder_.File(name + ".dbf");
}

void TestDesk::UseBook(const std::string& path) {
    desk::Document document;
    document.mapBook = path;
    desk_->Start(std::move(document), folder_.File("document.json"));
}

void TestDesk::StoreLink(const Group& element, const std::string& section) {
    Store(element, {{"LinkToMapSeries", true},
                    {"MapSeriesSectionKey", section},
                    {"MapSeriesTemplateKey", "sheet"},
                    {"MapSeriesFrameName", "Main map"}});
}

}  // namespace support
