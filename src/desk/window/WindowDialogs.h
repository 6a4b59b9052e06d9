#pragma once

#include "desk/window/DialogParent.h"
#include "host/Dialogs.h"

namespace desk {

/// Messages and questions as modal dialogs. Texts are shown verbatim, never as markup. A long
/// message or one about a failure can be scrolled and copied.
class WindowDialogs final : public host::IHostDialogs {
public:
    explicit WindowDialogs(ParentWidget parent);

    /// Escape and the close button count as OK, or as No.
    host::MessageAnswer MessageBox(const host::MessageBoxRequest& request) override;
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& initial) override;
    void Beep() override;

private:
    ParentWidget parent_;
};

}  // namespace desk
