#include "support/TestDesk.h"

#include "support/DbfBuilder.h"

namespace support {
namespace {

bool IsNumber(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

std::shared_ptr<desk::Desk> NewDesk(desk::DeskOptions options,
                                    const std::shared_ptr<RecordingDialogs>& dialogs) {
    options.locale = "en_US";
    options.dialogs = dialogs;
    return std::make_shared<desk::Desk>(std::move(options));
}

}  // namespace

TestDesk::TestDesk(const desk::DeskOptions& options)
    : TestDesk(options, std::make_shared<RecordingDialogs>()) {}

TestDesk::TestDesk(desk::DeskOptions options, const std::shared_ptr<RecordingDialogs>& dialogs)
    : TestHost(NewDesk(std::move(options), dialogs), dialogs),
      desk_(host::As<desk::Desk>(HostRef())) {}

std::string TestDesk::NewTable(const DbfBuilder& table) {
    const std::string path = folder_.File("table" + std::to_string(++tables_) + ".dbf");
    table.Write(path);
    return path;
}

std::string TestDesk::ListingTable(const Rows& rows) {
    DbfBuilder table({{"Listing", 'C', 60}, {"Ref", 'C', 20}, {"Page", 'N', 6}});
    for (const auto& row : rows) table.Row({row[0], row[1], IsNumber(row[1]) ? row[1] : ""});
    return NewTable(table);
}

std::string TestDesk::GridTable(const Rows& rows) {
    DbfBuilder table({{"Listing", 'C', 60}, {"Page", 'N', 6}, {"Row", 'N', 4}, {"Column", 'N', 4}});
    for (const auto& row : rows) table.Row(row);
    return NewTable(table);
}

void TestDesk::UseBook(const std::string& json,
                       const std::pair<std::vector<std::string>, Rows>& sheets) {
    std::vector<DbfColumn> columns;
    for (const auto& name : sheets.first) columns.push_back({name, 'C', 20});
    DbfBuilder table(columns);
    for (const auto& row : sheets.second) table.Row(row);
    table.Write(folder_.File("sheets.dbf"));
    folder_.Write("book.json", json);
    desk::Document document;
    document.mapBook = "book.json";
    desk_->Start(std::move(document), folder_.File("document.json"));
}

}  // namespace support
