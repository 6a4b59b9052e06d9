#pragma once

#include "desk/window/DialogParent.h"
#include "host/Host.h"

namespace desk {

/// Edits a text symbol or a fill symbol, on a copy of its own. What it does not show, such as
/// placements and angle, stays as it is.
class SymbolDialog final : public host::IHostSymbolDialog {
public:
    SymbolDialog(host::IHost& host, ParentWidget parent);

    void AddSymbol(const host::Ref<host::IHostSymbol>& symbol, bool& ok) override;
    /// Without a symbol, ok is false and nothing is shown.
    void Show(host::WindowHandle parent, bool& ok) override;
    /// Unless the user confirmed, the symbol as it came. Fails for an index other than 0.
    host::Ref<host::IHostSymbol> Symbol(std::int32_t index) override;

private:
    host::IHost& host_;
    ParentWidget parent_;
    host::Ref<host::IHostSymbol> symbol_;
};

}  // namespace desk
