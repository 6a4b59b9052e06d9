// An index of eight listings to three maps of a book, printed to the terminal, first by the manager
// that this program links and then by the one out of the component's library, if it is installed.

#include <cmath>
#include <cstdio>
#include <dlfcn.h>
#include <map>

#include "manager/CVNGazetteerManager.h"
#include "model/EditRules.h"
#include "model/GeneralFunctions.h"
#include "model/Paths.h"
#include "texthost/TextHost.h"

namespace {

using host::Ref;
using texthost::Table;
using texthost::TextHost;
using texthost::Values;
using Names = std::vector<std::string>;

constexpr char kListings[] = "listings";
constexpr double kColumnWidth = 1.8;  // Inches; 18 characters of 12 points.
constexpr double kGroupGap = 0.3;

// A book with a map on page 4 and the two pages behind it, and the index at its end.
Ref<texthost::MapBook> Book() {
    const auto sheets = std::make_shared<Table>(
        Names{"Sheet"}, std::vector<Values>{{"North"}, {"Middle"}, {"South"}});
    const auto grid = std::make_shared<texthost::IndexGrid>(
        Names{"A", "B", "C", "D"}, Names{"1", "2", "3", "4", "5", "6", "7"});
    const auto frame =
        std::make_shared<texthost::MapFrame>("Main map", sheets, texthost::MapFrame::Grids{grid});
    const texthost::Section maps{
        "maps", 4, {"sheet$1", "sheet$2", "sheet$3"}, {{"sheet", {frame}}}};
    const texthost::Section back{"back", 7, {"index$1"}, {{"index", {}}}};
    return std::make_shared<texthost::MapBook>(std::vector{maps, back}, "index");
}

// Each listing with its sheet, and with row and column of the sheet's grid.
Ref<Table> Listings() {
    return std::make_shared<Table>(Names{"Listing", "Page", "Row", "Column"},
                                   std::vector<Values>{{"Main St", 1, 2, 3},
                                                       {"10th St", 1, 1, 1},
                                                       {"2nd St", 2, 3, 2},
                                                       {"Abbey Road", 3, 2, 7},
                                                       {"Main St", 2, 2, 1},
                                                       {"Old Mill Lane", 1, 4, 5},
                                                       {"Quay", 3, 1, 2},
                                                       {"Zoo Way", 2, 4, 4}});
}

// Where the pages of the index come from.
void Link(gazetteer::Settings& settings) {
    settings.linkToMapSeries = true;
    settings.mapSeriesSectionKey = "maps";
    settings.mapSeriesTemplateKey = "sheet";
    settings.mapSeriesFrameName = "Main map";
}

// The frame of an index with the default columns of the table, a dot leader and grid squares.
Ref<host::IHostGroupElement> NewIndex(host::IHost& host) {
    auto element = host.NewGroupElement();
    auto frame = host.NewEnvelope();
    frame->SetCoords(0, 0, 2 * 2 * kColumnWidth + 2 * kGroupGap, 1.6);
    element->SetGeometry(frame);

    const auto properties = gazetteer::NewGazetteerProperties(host);
    gazetteer::SetGazetteerProperties(host, element, properties);
    gazetteer::Settings settings;
    gazetteer::ReadSettings(host, *properties, settings);
    Link(settings);
    settings.indexDatabaseFile = kListings;
    settings.combineWithNewLine = false;
    settings.combineFirstAndLast = false;
    settings.repeatSpacing = kGroupGap;
    const auto table = gazetteer::OpenTableFile(host, kListings);
    gazetteer::DefineColumns(host, *table->Fields(), settings);
    for (const auto& name : gazetteer::NamesOf(*settings.columnNames)) {
        const auto column = gazetteer::SetUnder(*settings.columnsProperties, name);
        auto symbol = host.NewTextSymbol();
        symbol->SetSize(12);
        for (const char* key : {"ColumnFontSymbol", "BreakFontSymbol", "TitleFontSymbol"})
            column->SetItem(key, Ref<host::IHostObject>(symbol));
        column->SetItem("ColumnWidth", kColumnWidth);
        column->SetItem("FromDatabase", name != "Page");
        column->SetItem("Expression", std::string(name == "Page" ? "$$PAGE_NUMBER $$ROW-$$COLUMN"
                                                                 : "[Listing]$$DOTS"));
    }
    gazetteer::StoreEdit(host, settings, true, *properties);
    return element;
}

using Canvas = std::map<long, std::string, std::greater<>>;  // Lines by height, the highest first.

void Paint(host::IHost& host, const Ref<host::IHostElement>& element, Canvas& canvas) {
    if (const auto group = host::As<host::IHostGroupElement>(element))
        for (std::int32_t i = 0; i < group->Count(); ++i) Paint(host, group->Item(i), canvas);
    const auto text = host::As<host::IHostTextElement>(element);
    if (!text) return;
    const double em = text->Symbol()->Size() / host::kPointsPerInch;
    auto bounds = host.NewEnvelope();
    text->MeasureBounds(host.NewApplication()->Document()->ActiveView()->Display(), bounds);
    auto& line = canvas[std::lround(bounds->YMin() / (em * texthost::TextSymbol::kLineHeight))];
    const auto at = static_cast<std::size_t>(
        bounds->XMin() / (em * texthost::TextSymbol::kCharacterWidth) + 0.5);
    if (line.size() < at + text->Text().size()) line.resize(at + text->Text().size(), ' ');
    line.replace(at, text->Text().size(), text->Text());
}

bool Print(host::IHost& host, gazetteer::ICVNGazetteerManager& manager) {
    const auto element = NewIndex(host);
    manager.SetIndexElement(element);
    const auto count = manager.PageCount();
    const auto* const pages = std::get_if<std::int32_t>(&count);
    if (pages == nullptr || *pages == 0) return false;
    for (std::int32_t page = 1; page <= *pages; ++page) {
        manager.SetIndexToPageNumber(page);
        std::printf("Page %d of %d\n", page, *pages);
        Canvas canvas;
        Paint(host, element, canvas);
        for (const auto& [height, line] : canvas) std::printf("  %s\n", line.c_str());
    }
    return true;
}

#ifdef COMPONENT_FILE
// The manager by its class name, as a host finds it that was built without the component.
Ref<gazetteer::ICVNGazetteerManager> LoadManager(const Ref<host::IHost>& host) {
    void* const library = ::dlopen(COMPONENT_FILE, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) texthost::Fail(::dlerror());
    const auto entry =
        reinterpret_cast<host::CreateClassObjectEntry>(::dlsym(library, host::kCreateClassObject));
    Ref<host::IHostClassFactory> factory;
    entry("CVNGazetteer.CVNGazetteerManager", &factory);
    return host::As<gazetteer::ICVNGazetteerManager>(factory->CreateInstance(host));
}
#endif

}  // namespace

int main() {
    const auto host = std::make_shared<TextHost>();
    host->Tables().Put(kListings, Listings());
    host->UseBook(Book());
    gazetteer::CVNGazetteerManager linked(host);
    bool done = Print(*host, linked);
#ifdef COMPONENT_FILE
    std::puts("The same out of the component's library:");
    done = Print(*host, *LoadManager(host)) && done;
#endif
    return done ? 0 : 1;
}
