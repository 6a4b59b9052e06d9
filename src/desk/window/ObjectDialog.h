#pragma once

#include <string>

#include "desk/window/DialogParent.h"
#include "host/ObjectDialogs.h"

namespace desk {

/// Picks a dBase table, or a folder and a name in it. A table has the category "dBASE Table"; a
/// name typed at the top level belongs to the "Folder Connection" that is selected there, elsewhere
/// to the "Folder" on show.
class ObjectDialog final : public host::IHostObjectDialog {
public:
    /// Starts in a folder, or at home where that is missing.
    ObjectDialog(ParentWidget parent, std::string startFolder);

    /// The desk has one filter, that for tables; any will do.
    void SetObjectFilter(const host::Ref<host::IHostObjectFilter>& filter) override;
    void SetAllowMultiSelect(bool allow) override { allowMultiSelect_ = allow; }
    void SetTitle(const std::string& title) override { title_ = title; }
    /// Cancelled, the selection stays as it was.
    void DoModal(host::WindowHandle parent, host::Ref<host::IHostObjectSelection>& selection,
                 bool& accepted) override;
    /// Of a table, the name of its file.
    std::string Name() const override { return name_; }

private:
    ParentWidget parent_;
    std::string startFolder_;
    std::string title_;
    std::string name_;
    bool allowMultiSelect_ = false;
};

}  // namespace desk
