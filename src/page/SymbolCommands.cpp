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
    if (!preview.isVisible()) return preview.Clear();  // It asks for its picture once it is seen.
    const QSize size = preview.PixelSize();
    const auto surface = host_->NewPixelSurface(size.width(), size.height(), preview.DotsPerInch());
    if (!DrawToDC(*host_, surface->Device(), size.width(), size.height(), symbol, 0)) {
        preview.Clear();
        return;
    }
    const auto pixels = surface->Pixels();
    const QImage picture(reinterpret_cast<const uchar*>(pixels.data()), size.width(), size.height(),
                         size.width() * static_cast<qsizetype>(sizeof(std::uint32_t)),
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
    // The window that the form stands in: asking for a handle of its own would make it native.
    dialog->Show(static_cast<host::WindowHandle>(window()->winId()), ok);
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
    UpdateColumnProperties();
    DrawPreview(preview, symbol);
}

void Form::cmdColumnFont_Click() {
    Top(__func__, [&] { EditSymbol(&ColumnProperties::columnFontSymbol, *ui_->picColumnFont); });
}
void Form::cmdColumnBackgroundsymbol_Click() {
    Top(__func__,
        [&] { EditSymbol(&ColumnProperties::backgroundSymbol, *ui_->picBackgroundSymbol); });
}
void Form::cmdAlternateBackgroundSymbol_Click() {
    Top(__func__, [&] {
        EditSymbol(&ColumnProperties::alternateBackgroundSymbol,
                   *ui_->picAlternateBackgroundSymbol);
    });
}
void Form::cmdBreakFont_Click() {
    Top(__func__, [&] { EditSymbol(&ColumnProperties::breakFontSymbol, *ui_->picBreakFont); });
}
void Form::cmdTitleFont_Click() {
    Top(__func__, [&] { EditSymbol(&ColumnProperties::titleFontSymbol, *ui_->picTitleFont); });
}
void Form::cmdTitleBackground_Click() {
    Top(__func__,
        [&] { EditSymbol(&ColumnProperties::titleBackgroundSymbol, *ui_->picTitleBackground); });
}

void Form::picColumnFont_Paint() {
    Top(__func__, [&] { PaintPreview(*ui_->picColumnFont, editors_.columnFontSymbol); });
}
void Form::picBackgroundSymbol_Paint() {
    Top(__func__, [&] { PaintPreview(*ui_->picBackgroundSymbol, editors_.backgroundSymbol); });
}
void Form::picAlternateBackgroundSymbol_Paint() {
    Top(__func__, [&] {
        PaintPreview(*ui_->picAlternateBackgroundSymbol, editors_.alternateBackgroundSymbol);
    });
}
void Form::picBreakFont_Paint() {
    Top(__func__, [&] { PaintPreview(*ui_->picBreakFont, editors_.breakFontSymbol); });
}
void Form::picTitleFont_Paint() {
    Top(__func__, [&] { PaintPreview(*ui_->picTitleFont, editors_.titleFontSymbol); });
}
void Form::picTitleBackground_Paint() {
    Top(__func__, [&] { PaintPreview(*ui_->picTitleBackground, editors_.titleBackgroundSymbol); });
}

}  // namespace gazetteer
