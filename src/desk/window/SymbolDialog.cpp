#include "desk/window/SymbolDialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>
#include <utility>

#include "desk/window/SymbolPanels.h"
#include "desk/window/SymbolSwatch.h"
#include "host/Failure.h"

namespace desk {
namespace {

host::Ref<host::IHostSymbol> CopyOf(const host::Ref<host::IHostSymbol>& symbol) {
    return host::As<host::IHostSymbol>(symbol->Copy());
}

/// Edits a text or fill symbol in place. Returns true if the user confirmed.
bool Edit(host::IHost& host, const host::Ref<host::IHostSymbol>& symbol, QWidget* parent) {
    QDialog dialog(parent);
    auto* swatch = new SymbolSwatch(host, &dialog);
    swatch->setObjectName("preview");
    swatch->SetSymbol(symbol);
    auto* caption = new QLabel("Preview", &dialog);
    caption->setObjectName("previewCaption");
    QObject::connect(swatch, &SymbolSwatch::Described, caption, &QLabel::setText);
    auto* layout = new QVBoxLayout(&dialog);
    if (const auto text = host::As<host::IHostTextSymbol>(symbol)) {
        dialog.setWindowTitle("Text Symbol");
        auto* panel = new TextSymbolPanel(text, &dialog);
        QObject::connect(panel, &TextSymbolPanel::Edited, swatch, &SymbolSwatch::Redraw);
        layout->addWidget(panel);
    } else {
        dialog.setWindowTitle("Fill Symbol");
        auto* panel = new FillSymbolPanel(host, host::As<host::IHostFillSymbol>(symbol), &dialog);
        QObject::connect(panel, &FillSymbolPanel::Edited, swatch, &SymbolSwatch::Redraw);
        layout->addWidget(panel);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    layout->addWidget(caption);
    layout->addWidget(swatch, 1);
    layout->addWidget(buttons);
    ResizeToScreen(dialog, dialog.sizeHint());
    return dialog.exec() == QDialog::Accepted;
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
    ok = Edit(host_, edited, DialogParent(parent_, parent));
    if (ok) symbol_ = edited;
}

host::Ref<host::IHostSymbol> SymbolDialog::Symbol(std::int32_t index) {
    if (index == 0 && symbol_) return symbol_;
    throw host::Failure(host::kFailureNotFound, "desk::SymbolDialog",
                        "The symbol dialog has no symbol " + std::to_string(index) + ".");
}

}  // namespace desk
