#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/TestHost.h"
#include "texthost/TextHost.h"

namespace support {

/// Keeps the texts of the status bar, and the calls of its animation in brackets.
struct RecordingBar : texthost::Application {
    void SetText(std::int32_t, const std::string& text) override { told.push_back(text); }
    void Show() override { told.emplace_back("(show)"); }
    void Play() override { told.emplace_back("(play)"); }
    void Hide() override { told.emplace_back("(hide)"); }
    void Stop() override { told.emplace_back("(stop)"); }

    std::vector<std::string> told;
};

struct RecordingHost : texthost::TextHost {
    host::Ref<host::IHostApplication> NewApplication() override { return bar; }
    host::IHostDialogs& Dialogs() override { return dialogs; }

    std::shared_ptr<RecordingBar> bar = std::make_shared<RecordingBar>();
    RecordingDialogs dialogs;
};

/// The host of examples/embed, with tables in memory. Each character is 0.6 of the size of its font
/// wide, each line 1.2 high, so that widths can be told: 12 letters of 10 points to the inch.
class SmallHost : public TestHost {
public:
    SmallHost()
        : TestHost(std::make_shared<RecordingHost>()), host_(host::As<RecordingHost>(HostRef())) {}

    texthost::Workspace& Tables() { return host_->Tables(); }

    /// Works with a map book of these sections.
    void UseBook(std::vector<texthost::Section> sections, const std::string& currentTemplate) {
        host_->UseBook(std::make_shared<texthost::MapBook>(std::move(sections), currentTemplate));
    }
    std::vector<std::string>& Progress() { return host_->bar->told; }

private:
    std::string NewTable(const std::vector<std::string>& fields, std::size_t texts,
                         const Rows& rows) override;

    std::shared_ptr<RecordingHost> host_;
    int tables_ = 0;
};

}  // namespace support
