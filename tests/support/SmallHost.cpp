#include "support/SmallHost.h"

namespace support {
namespace {

bool IsNumber(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

host::Variant Number(const std::string& text) {
    if (!IsNumber(text)) return host::Null{};
    return std::stoi(text);
}

}  // namespace

class SmallHost::RecordingBar : public texthost::Application {
public:
    void SetText(std::int32_t, const std::string& text) override { told.push_back(text); }
    void Show() override { told.emplace_back("(show)"); }
    void Play() override { told.emplace_back("(play)"); }
    void Hide() override { told.emplace_back("(hide)"); }
    void Stop() override { told.emplace_back("(stop)"); }

    std::vector<std::string> told;
};

class SmallHost::RecordingHost : public texthost::TextHost {
public:
    host::Ref<host::IHostApplication> NewApplication() override { return bar; }
    host::IHostDialogs& Dialogs() override { return *dialogs; }

    std::shared_ptr<RecordingBar> bar = std::make_shared<RecordingBar>();
    std::shared_ptr<RecordingDialogs> dialogs = std::make_shared<RecordingDialogs>();
};

SmallHost::SmallHost() : SmallHost(std::make_shared<RecordingHost>()) {}

SmallHost::SmallHost(const std::shared_ptr<RecordingHost>& host)
    : TestHost(host, host->dialogs), host_(host) {}

texthost::Workspace& SmallHost::Tables() {
    return host_->Tables();
}

std::vector<std::string>& SmallHost::Progress() {
    return host_->bar->told;
}

void SmallHost::UseBook(std::vector<texthost::Section> sections,
                        const std::string& currentTemplate) {
    host_->UseBook(std::make_shared<texthost::MapBook>(std::move(sections), currentTemplate));
}

std::string SmallHost::ListingTable(const Rows& rows) {
    std::vector<texthost::Values> values;
    for (const auto& row : rows) values.push_back({row[0], row[1], Number(row[1])});
    return Put({"Listing", "Ref", "Page"}, values);
}

std::string SmallHost::GridTable(const Rows& rows) {
    std::vector<texthost::Values> values;
    for (const auto& row : rows)
        values.push_back({row[0], Number(row[1]), Number(row[2]), Number(row[3])});
    return Put({"Listing", "Page", "Row", "Column"}, values);
}

std::string SmallHost::Put(const std::vector<std::string>& fields,
                           const std::vector<texthost::Values>& rows) {
    const std::string name = "table " + std::to_string(++tables_);
    Tables().Put(name, std::make_shared<texthost::Table>(fields, rows));
    return name;
}

}  // namespace support
