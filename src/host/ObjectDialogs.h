#pragma once

#include <cstdint>
#include <string>

#include "host/PropertyPages.h"
#include "host/Symbols.h"

namespace host {

/// What an object dialog offers.
struct IHostObjectFilter : virtual IHostObject {};

/// Something that can be picked in an object dialog.
struct IHostCatalogObject : virtual IHostObject {
    virtual std::string FullName() const = 0;  ///< Its path.
    /// Its kind: "Folder", "Folder Connection", or another word for what is no folder.
    virtual std::string Category() const = 0;
};

/// What was picked. Next gives null at the end.
struct IHostObjectSelection : virtual IHostObject {
    virtual void Reset() = 0;
    virtual Ref<IHostCatalogObject> Next() = 0;
};

/// A modal dialog in which the user picks an object, or a folder and types a name.
struct IHostObjectDialog : virtual IHostObject {
    virtual void SetObjectFilter(const Ref<IHostObjectFilter>& filter) = 0;
    virtual void SetAllowMultiSelect(bool allow) = 0;
    virtual void SetTitle(const std::string& title) = 0;
    virtual void DoModal(WindowHandle parent, Ref<IHostObjectSelection>& selection,
                         bool& accepted) = 0;
    virtual std::string Name() const = 0;  ///< The name typed.
};

/// A modal dialog that edits a symbol.
struct IHostSymbolDialog : virtual IHostObject {
    /// Loads the dialog. ok is false for a symbol that it cannot take.
    virtual void AddSymbol(const Ref<IHostSymbol>& symbol, bool& ok) = 0;
    /// ok is true when the user confirmed.
    virtual void Show(WindowHandle parent, bool& ok) = 0;
    /// With index 0, the edited symbol; of the same kind as the one added.
    virtual Ref<IHostSymbol> Symbol(std::int32_t index) = 0;
};

/// Makes dialogs, which fail in a host without a window.
struct IHostDialogFactory : virtual IHostObject {
    virtual Ref<IHostObjectDialog> NewObjectDialog() = 0;
    virtual Ref<IHostObjectFilter> NewTableFilter() = 0;
    virtual Ref<IHostSymbolDialog> NewSymbolDialog() = 0;
};

}  // namespace host
