#pragma once

#include <cstdint>
#include <string>

#include "host/Application.h"
#include "host/Host.h"
#include "host/StepCounts.h"

namespace gazetteer {

/// Pane 0 of the host's status bar, which shows the progress of a long run.
class Status {
public:
    explicit Status(host::IHostServices& host)
        : bar_(host.NewApplication()->StatusBar()),
          counts_(host::As<host::IHostStepCounts>(bar_)) {}

    /// Shows a text and, behind it, a number. The step is that of IHostStepCounts.
    void Show(const char* text, std::int64_t number, std::int64_t step, std::int64_t steps);
    void Show(const std::string& text) { bar_->SetText(0, text); }
    void Clear() { bar_->SetText(0, {}); }
    host::Ref<host::IHostProgressAnimation> Animation() { return bar_->ProgressAnimation(); }

private:
    host::Ref<host::IHostStatusBar> bar_;
    host::Ref<host::IHostStepCounts> counts_;  ///< Null where the host does not take them.
    std::string text_;  ///< Reuses its storage: a run shows a text for every cell.
};

/// The number of a table's rows; 0 where the host does not tell it.
std::int64_t CountRows(const host::IHostTable& table);

}  // namespace gazetteer
