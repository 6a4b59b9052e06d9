// The six symbols of the open column: their previews, and the host's dialog that edits them.

#include <QImage>

#include "model/DefaultSymbols.h"
#include "page/SymbolPreview.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "support/basDrawSymbol.h"
#include "ui_frmGazetteerPropertyPage.h"

namespace gazetteer {

using Form = frmGazetteerPropertyPage;

void Form::DrawPreview(SymbolPreview& preview, const host::Ref<host::IHostSymbol>& symbol) {
    const QSize size = preview.PixelSize();
    if (size.isEmpty()) return;  // Not laid out yet: the paint comes.
    const auto surface =
        host_->NewPixelSurface(size.width(), size.height(), preview.DotsPerInch());
    if (!DrawToDC(*host_, surface->Device(), size.width(), size.height(), symbol, 0)) return;
    const auto pixels = surface->Pixels();
    const QImage picture(reinterpret_cast<const uchar*>(pixels.data()), size.width(), size.height(),
                         size.width() * static_cast<int>(sizeof(std::uint32_t)),
                         QImage::Format_ARGB32_Premultiplied);
    preview.SetPicture(picture.copy());
}

void Form::PaintPreview(SymbolPreview& preview, const host::Ref<host::IHostSymbol>& symbol) {
    if (!currentColumn_.empty()) DrawPreview(preview, symbol);
}

// The edited symbol; null where the user cancelled or the dialog cannot take the symbol.
host::Ref<host::IHostSymbol> Form::AskForSymbol(const host::Ref<host::IHostSymbol>& symbol) {
    const auto dialog = host_->NewSymbolDialog();
    bool ok = false;
    dialog->AddSymbol(symbol, ok);
    if (!ok) return nullptr;
    dialog->Show(static_cast<host::WindowHandle>(winId()), ok);
    return ok ? dialog->Symbol(0) : nullptr;
}

template <class T>
void Form::EditSymbol(SymbolField<T> field, SymbolPreview& preview) {
    if (!(editors_.*field)) return;
    const auto edited = AskForSymbol(editors_.*field);
    if (!edited) return;
    const auto symbol = Require<T>(edited);
    editors_.*field = symbol;
    if constexpr (std::is_same_v<T, host::IHostTextSymbol>)
        symbol->SetText(SampleText(*host_, symbol->Font()->Name(), symbol->Size()));
    DrawPreview(preview, symbol);
    UpdateColumnProperties();
}

void Form::cmdColumnFont_Click() try {
    EditSymbol(&ColumnProperties::columnFontSymbol, *ui_->picColumnFont);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdColumnFont_Click", kFormLabel);
}

void Form::cmdColumnBackgroundsymbol_Click() try {
    EditSymbol(&ColumnProperties::backgroundSymbol, *ui_->picBackgroundSymbol);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdColumnBackgroundsymbol_Click", kFormLabel);
}

void Form::cmdAlternateBackgroundSymbol_Click() try {
    EditSymbol(&ColumnProperties::alternateBackgroundSymbol, *ui_->picAlternateBackgroundSymbol);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdAlternateBackgroundSymbol_Click", kFormLabel);
}

void Form::cmdBreakFont_Click() try {
    EditSymbol(&ColumnProperties::breakFontSymbol, *ui_->picBreakFont);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdBreakFont_Click", kFormLabel);
}

void Form::cmdTitleFont_Click() try {
    EditSymbol(&ColumnProperties::titleFontSymbol, *ui_->picTitleFont);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdTitleFont_Click", kFormLabel);
}

void Form::cmdTitleBackground_Click() try {
    EditSymbol(&ColumnProperties::titleBackgroundSymbol, *ui_->picTitleBackground);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "cmdTitleBackground_Click", kFormLabel);
}

void Form::picColumnFont_Paint() try {
    PaintPreview(*ui_->picColumnFont, editors_.columnFontSymbol);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "picColumnFont_Paint", kFormLabel);
}

void Form::picBackgroundSymbol_Paint() try {
    PaintPreview(*ui_->picBackgroundSymbol, editors_.backgroundSymbol);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "picBackgroundSymbol_Paint", kFormLabel);
}

void Form::picAlternateBackgroundSymbol_Paint() try {
    PaintPreview(*ui_->picAlternateBackgroundSymbol, editors_.alternateBackgroundSymbol);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "picAlternateBackgroundSymbol_Paint", kFormLabel);
}

void Form::picBreakFont_Paint() try {
    PaintPreview(*ui_->picBreakFont, editors_.breakFontSymbol);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "picBreakFont_Paint", kFormLabel);
}

void Form::picTitleFont_Paint() try {
    PaintPreview(*ui_->picTitleFont, editors_.titleFontSymbol);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "picTitleFont_Paint", kFormLabel);
}

void Form::picTitleBackground_Paint() try {
    PaintPreview(*ui_->picTitleBackground, editors_.titleBackgroundSymbol);
} catch (...) {
    ShowAtTop(host_->Dialogs(), "picTitleBackground_Paint", kFormLabel);
}

}  // namespace gazetteer
