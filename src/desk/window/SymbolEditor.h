#pragma once

#include <QDialog>

#include "host/Host.h"

namespace desk {

/// The window of the symbol dialog. Edits the symbol that it is given, also where it is cancelled.
class SymbolEditor : public QDialog {
public:
    /// The symbol is a text symbol or a fill symbol.
    SymbolEditor(host::IHost& host, const host::Ref<host::IHostSymbol>& symbol, QWidget* parent);
};

}  // namespace desk
