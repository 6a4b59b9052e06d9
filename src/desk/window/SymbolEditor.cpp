#include "desk/window/SymbolEditor.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

#include "desk/window/DialogParent.h"
#include "desk/window/SymbolPanels.h"
#include "desk/window/SymbolSwatch.h"

namespace desk {

SymbolEditor::SymbolEditor(host::IHost& host, const host::Ref<host::IHostSymbol>& symbol,
                           QWidget* parent)
    : QDialog(parent) {
    auto* swatch = new SymbolSwatch(host, this);
    swatch->setObjectName("preview");
    swatch->SetSymbol(symbol);
    auto* caption = new QLabel("Preview", this);
    caption->setObjectName("previewCaption");
    connect(swatch, &SymbolSwatch::Described, caption, &QLabel::setText);
    auto* layout = new QVBoxLayout(this);
    if (const auto text = host::As<host::IHostTextSymbol>(symbol)) {
        setWindowTitle("Text Symbol");
        auto* panel = new TextSymbolPanel(text, this);
        connect(panel, &TextSymbolPanel::Edited, swatch, &SymbolSwatch::Redraw);
        layout->addWidget(panel);
    } else {
        setWindowTitle("Fill Symbol");
        auto* panel = new FillSymbolPanel(host, host::As<host::IHostFillSymbol>(symbol), this);
        connect(panel, &FillSymbolPanel::Edited, swatch, &SymbolSwatch::Redraw);
        layout->addWidget(panel);
    }
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(caption);
    layout->addWidget(swatch, 1);
    layout->addWidget(buttons);
    ResizeToScreen(*this, sizeHint());
}

}  // namespace desk
