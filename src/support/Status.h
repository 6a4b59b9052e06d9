#pragma once

#include <cstdint>
#include <string>

#include "host/Application.h"
#include "host/Host.h"

namespace gazetteer {

/// Pane 0 of the host's status bar, which shows the progress of a long run.
class Status {
public:
    explicit Status(host::IHostServices& host) : bar_(host.NewApplication()->StatusBar()) {}

    /// Shows a text and, behind it, a number.
    void Show(const char* text, std::int64_t number);
    void Show(const std::string& text) { bar_->SetText(0, text); }
    void Clear() { bar_->SetText(0, {}); }
    host::Ref<host::IHostProgressAnimation> Animation() { return bar_->ProgressAnimation(); }

private:
    host::Ref<host::IHostStatusBar> bar_;
    std::string text_;  ///< Reuses its storage: a run shows a text for every cell.
};

}  // namespace gazetteer
