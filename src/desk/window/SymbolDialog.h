#pragma once

#include "desk/window/DialogParent.h"
#include "host/Host.h"

namespace desk {

/// Edits a copy of a text symbol or a fill symbol. Properties without a control, such as placement
/// and angle, are kept.
class SymbolDialog final : public host::IHostSymbolDialog {
public:
    SymbolDialog(host::IHost& host, ParentWidget parent);

    void AddSymbol(const host::Ref<host::IHostSymbol>& symbol, bool& ok) override;
    /// Sets ok to false and shows nothing if there is no symbol.
    void Show(host::WindowHandle parent, bool& ok) override;
    /// Returns the edited copy, or the original symbol if the user did not confirm. Throws for an
    /// index other than 0.
    host::Ref<host::IHostSymbol> Symbol(std::int32_t index) override;

private:
    host::IHost& host_;
    ParentWidget parent_;
    host::Ref<host::IHostSymbol> symbol_;
};

}  // namespace desk
