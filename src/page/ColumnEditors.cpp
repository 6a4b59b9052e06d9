#include "page/ColumnEditors.h"

#include <QImage>
#include <algorithm>
#include <utility>
#include <variant>

#include "model/DefaultSymbols.h"
#include "page/ControlValues.h"
#include "page/SymbolPreview.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "support/basDrawSymbol.h"

namespace gazetteer {
namespace {

using Column = ColumnProperties;

template <class T>
using Symbol = host::Ref<T> Column::*;

struct SymbolControls {
    const char* button;
    const char* preview;
    std::variant<Symbol<host::IHostTextSymbol>, Symbol<host::IHostFillSymbol>> field;
};

constexpr SymbolControls kSymbols[] = {
    {"cmdColumnFont", "picColumnFont", &Column::columnFontSymbol},
    {"cmdColumnBackgroundsymbol", "picBackgroundSymbol", &Column::backgroundSymbol},
    {"cmdAlternateBackgroundSymbol", "picAlternateBackgroundSymbol",
     &Column::alternateBackgroundSymbol},
    {"cmdBreakFont", "picBreakFont", &Column::breakFontSymbol},
    {"cmdTitleFont", "picTitleFont", &Column::titleFontSymbol},
    {"cmdTitleBackground", "picTitleBackground", &Column::titleBackgroundSymbol},
};

// The values that a button copies to all columns.
const std::pair<const char*, std::vector<ColumnField>> kToAll[] = {
    {"cmdColumnFontToAll_Click", {&Column::columnFontSymbol}},
    {"cmdBackgroundToAll_Click",
     {&Column::colorBackground, &Column::backgroundSymbol, &Column::alternateBackground,
      &Column::alternateBackgroundSymbol}},
    {"cmdMarginsToAll_Click",
     {&Column::marginTop, &Column::marginBottom, &Column::marginLeft, &Column::marginRight}},
    {"cmdTitleSymbolsToAll_Click", {&Column::titleFontSymbol, &Column::titleBackgroundSymbol}},
};

SymbolPreview& PreviewNamed(const QWidget& form, const char* name) {
    return dynamic_cast<SymbolPreview&>(ControlNamed(form, name));
}

}  // namespace

ColumnEditors::ColumnEditors(QWidget& form, host::IHost& host, FormEvents& events,
                             const Settings& settings, FormEvents::Handler updateProperties)
    : form_(form),
      host_(host),
      events_(events),
      settings_(settings),
      updateProperties_(std::move(updateProperties)),
      controls_(form, host) {
    controls_.Connect(events, [this] { UpdateColumnProperties(); });
    for (const auto& [button, preview, field] : kSymbols)
        std::visit([&](auto symbol) { ConnectSymbol(button, preview, column_.*symbol); }, field);
    for (const auto& [event, fields] : kToAll)
        events.Connect(event, [this, &fields] { SetInAllColumns(fields); });
}

template <class T>
void ColumnEditors::ConnectSymbol(const char* button, const char* preview, host::Ref<T>& symbol) {
    auto& picture = PreviewNamed(form_, preview);
    events_.Connect(button + std::string("_Click"),
                    [this, &symbol, &picture] { EditSymbol(symbol, picture); });
    events_.Connect(preview + std::string("_Paint"), [this, &symbol, &picture] {
        if (!currentColumn_.empty()) DrawPreview(picture, symbol);
    });
}

void ColumnEditors::PopulateColumnProperties(const std::string& name) try {
    const Populating populating(events_);
    column_ = WithOwnSymbols(ReadColumnProperties(*SetUnder(*settings_.columnsProperties, name),
                                                  host_.Locale(), ColumnKeyScope::All));
    controls_.Fill(column_);
    for (const auto& controls : kSymbols)
        std::visit(
            [&](auto symbol) {
                DrawPreview(PreviewNamed(form_, controls.preview), column_.*symbol);
            },
            controls.field);
    currentColumn_ = name;
    ControlNamed(form_, "SSTabColumnProps").setEnabled(true);
} catch (...) {
    Close();
    PassOn("PopulateColumnProperties", kFormLabel);
}

void ColumnEditors::UpdateColumnProperties() try {
    if (!currentColumn_.empty()) {
        ColumnProperties column = WithOwnSymbols(Shown());
        column.version = 1;
        settings_.columnsProperties->SetItem(
            currentColumn_, host::Ref<host::IHostObject>(NewColumnSet(host_, column)));
    }
    updateProperties_();
} catch (...) {
    PassOn("UpdateColumnProperties", kFormLabel);
}

void ColumnEditors::Close() {
    column_ = {};
    currentColumn_.clear();
    for (const auto& controls : kSymbols) PreviewNamed(form_, controls.preview).Clear();
    ControlNamed(form_, "SSTabColumnProps").setEnabled(false);
}

ColumnProperties ColumnEditors::Shown() const {
    ColumnProperties column = column_;
    controls_.Read(column);
    return column;
}

// Each column gets its own copy of the symbols.
void ColumnEditors::SetInAllColumns(const std::vector<ColumnField>& fields) {
    if (currentColumn_.empty()) return;
    const ColumnProperties shown = Shown();
    for (const std::string& name : NamesOf(*settings_.columnNames)) {
        const ColumnProperties own = WithOwnSymbols(shown);
        const auto column = SetUnder(*settings_.columnsProperties, name);
        for (const ColumnKey& key : ColumnKeys())
            if (std::ranges::find(fields, key.field) != fields.end())
                column->SetItem(key.name, ValueOf(key, own));
    }
    updateProperties_();
}

template <class T>
void ColumnEditors::EditSymbol(host::Ref<T>& symbol, SymbolPreview& preview) {
    if (!symbol) return;
    const auto edited = AskForSymbol(symbol);
    if (!edited || currentColumn_.empty()) return;  // Closed while the dialog was open.
    const auto own = Require<T>(edited);
    if constexpr (std::is_same_v<T, host::IHostTextSymbol>)
        own->SetText(SampleText(host_, own->Font()->Name(), own->Size()));
    symbol = own;
    UpdateColumnProperties();
    DrawPreview(preview, own);
}

// Returns the edited symbol; null if the user cancelled or the dialog rejects the symbol.
host::Ref<host::IHostSymbol> ColumnEditors::AskForSymbol(
    const host::Ref<host::IHostSymbol>& symbol) {
    const auto dialog = host_.NewSymbolDialog();
    bool ok = false;
    dialog->AddSymbol(symbol, ok);
    if (!ok) return nullptr;
    // The window's handle: requesting the form's own would make the form native.
    dialog->Show(static_cast<host::WindowHandle>(form_.window()->winId()), ok);
    return ok ? dialog->Symbol(0) : nullptr;
}

void ColumnEditors::DrawPreview(SymbolPreview& preview,
                                const host::Ref<host::IHostSymbol>& symbol) {
    // A hidden preview requests its picture when it is shown.
    if (!preview.isVisible()) return preview.Clear();
    const QSize size = preview.PixelSize();
    const auto surface = host_.NewPixelSurface(size.width(), size.height(), preview.DotsPerInch());
    if (!DrawToDC(host_, surface->Device(), size.width(), size.height(), symbol, 0)) {
        // An empty picture, which is not requested again: the failure has been shown.
        QImage empty(size, QImage::Format_ARGB32_Premultiplied);
        empty.fill(Qt::transparent);
        return preview.SetPicture(empty);
    }
    const auto pixels = surface->Pixels();
    const QImage picture(reinterpret_cast<const uchar*>(pixels.data()), size.width(), size.height(),
                         size.width() * static_cast<qsizetype>(sizeof(std::uint32_t)),
                         QImage::Format_ARGB32_Premultiplied);
    preview.SetPicture(picture.copy());
}

}  // namespace gazetteer
