#include "desk/window/SymbolDialog.h"

#include <utility>

#include "desk/window/SymbolEditor.h"
#include "host/Failure.h"

namespace desk {

namespace {

host::Ref<host::IHostSymbol> CopyOf(const host::Ref<host::IHostSymbol>& symbol) {
    return host::As<host::IHostSymbol>(symbol->Copy());
}

}  // namespace

SymbolDialog::SymbolDialog(host::IHost& host, ParentWidget parent)
    : host_(host), parent_(std::move(parent)) {}

void SymbolDialog::AddSymbol(const host::Ref<host::IHostSymbol>& symbol, bool& ok) {
    ok = host::As<host::IHostTextSymbol>(symbol) || host::As<host::IHostFillSymbol>(symbol);
    if (ok) symbol_ = CopyOf(symbol);
}

void SymbolDialog::Show(host::WindowHandle parent, bool& ok) {
    ok = false;
    if (!symbol_) return;
    const auto edited = CopyOf(symbol_);
    ok = SymbolEditor(host_, edited, DialogParent(parent_, parent)).exec() == QDialog::Accepted;
    if (ok) symbol_ = edited;
}

host::Ref<host::IHostSymbol> SymbolDialog::Symbol(std::int32_t index) {
    if (index == 0 && symbol_) return symbol_;
    throw host::Failure(host::kFailureNotFound, "desk::SymbolDialog",
                        "The symbol dialog has no symbol " + std::to_string(index) + ".");
}

}  // namespace desk
