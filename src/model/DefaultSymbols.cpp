#include "model/DefaultSymbols.h"

namespace gazetteer {

std::string SampleText(host::IHost& host, const std::string& fontName, double points) {
    const std::string number = host.Locale().FormatNumber(points);
    return fontName + ' ' + (points < 0 ? number : ' ' + number);
}

host::Ref<host::IHostTextSymbol> MakeTextSymbol(host::IHost& host, double points, bool bold) {
    auto font = host.NewFont();
    font->SetName("Helvetica");
    font->SetSize(points);
    font->SetBold(bold);
    auto color = host.NewColor();
    color->SetRGB(RGB(0, 0, 0));
    auto symbol = host.NewTextSymbol();
    symbol->SetFont(font);
    symbol->SetColor(color);
    symbol->SetText(SampleText(host, "Helvetica", points));
    symbol->SetVerticalPlacement(1);
    symbol->SetHorizontalPlacement(0);
    return symbol;
}

host::Ref<host::IHostFillSymbol> MakeFillSymbol(host::IHostSymbolFactory& host, std::uint32_t rgb) {
    auto color = host.NewColor();
    color->SetRGB(rgb);
    auto symbol = host.NewFillSymbol();
    symbol->SetColor(color);
    return symbol;
}

void SetDefaultSymbols(host::IHost& host, ColumnProperties& column) {
    column.columnFontSymbol = MakeTextSymbol(host, 10, false);
    column.backgroundSymbol = MakeFillSymbol(host, RGB(255, 255, 255));
    column.alternateBackgroundSymbol = MakeFillSymbol(host, RGB(225, 225, 225));
    column.breakFontSymbol = MakeTextSymbol(host, 10, true);
    column.titleFontSymbol = MakeTextSymbol(host, 12, true);
    column.titleBackgroundSymbol = MakeFillSymbol(host, RGB(225, 225, 225));
}

}  // namespace gazetteer
