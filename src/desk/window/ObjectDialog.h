#pragma once

#include <string>

#include "desk/window/DialogParent.h"
#include "host/ObjectDialogs.h"

namespace desk {

/// Selects a table, or a folder and a name in it. A table has the category "dBASE Table", or
/// "Table" if it is of another format. A name typed in the list of folder connections gets the
/// category "Folder Connection" and the connection selected there; in a folder it gets the category
/// "Folder".
class ObjectDialog final : public host::IHostObjectDialog {
public:
    /// Starts in the given folder, or in the user's home if it does not exist.
    ObjectDialog(ParentWidget parent, std::string startFolder);

    /// Ignores the filter: the desk has only one, for tables.
    void SetObjectFilter(const host::Ref<host::IHostObjectFilter>& filter) override;
    void SetAllowMultiSelect(bool allow) override { allowMultiSelect_ = allow; }
    void SetTitle(const std::string& title) override { title_ = title; }
    /// Leaves the selection unchanged if the user cancels.
    void DoModal(host::WindowHandle parent, host::Ref<host::IHostObjectSelection>& selection,
                 bool& accepted) override;
    /// Returns the typed name, or the file name of the selected table.
    std::string Name() const override { return name_; }

private:
    ParentWidget parent_;
    std::string startFolder_;
    std::string title_;
    std::string name_;
    bool allowMultiSelect_ = false;
};

}  // namespace desk
