#pragma once

#include "desk/window/DialogParent.h"
#include "host/Dialogs.h"

namespace desk {

/// Messages and questions as modal windows. Texts are shown as they are, never as markup. A message
/// about a failure, or one that is long, scrolls and can be copied.
class WindowDialogs final : public host::IHostDialogs {
public:
    explicit WindowDialogs(ParentWidget parent);

    /// Escape and the window's close button count as OK, or as No.
    host::MessageAnswer MessageBox(const host::MessageBoxRequest& request) override;
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& initial) override;
    void Beep() override;

private:
    ParentWidget parent_;
};

}  // namespace desk
