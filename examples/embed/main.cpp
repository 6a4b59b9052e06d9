// An index of eight listings, printed to the terminal, first by the manager that this program links
// and then by the one out of the component's library, if it is installed.

#include <cmath>
#include <cstdio>
#include <dlfcn.h>
#include <map>

#include "TextHost.h"
#include "manager/CVNGazetteerManager.h"
#include "model/EditRules.h"
#include "model/GeneralFunctions.h"

namespace {

using host::Ref;
using texthost::TextHost;

constexpr double kColumnWidth = 1.8;  // Inches; 18 characters of 12 points.
constexpr double kGroupGap = 0.3;

Ref<host::IHostTable> Listings() {
    auto fields = std::make_shared<texthost::Fields>();
    const std::vector<std::string> names{"Listing", "Page", "Row", "Column"};
    fields->SetFieldCount(static_cast<std::int32_t>(names.size()));
    for (std::size_t i = 0; i < names.size(); ++i)
        fields->SetField(static_cast<std::int32_t>(i), std::make_shared<texthost::Field>(names[i]));
    auto table = std::make_shared<texthost::Table>(fields);
    const auto insert = table->Insert(true);
    const auto add = [&](const char* name, std::int32_t page, const char* row, const char* column) {
        insert->InsertRow(std::make_shared<texthost::Row>(
            std::vector<host::Variant>{name, page, std::string(row), std::string(column)}));
    };
    add("Main St", 4, "B", "3");
    add("10th St", 4, "A", "1");
    add("2nd St", 5, "C", "2");
    add("Abbey Road", 6, "B", "7");
    add("Main St", 5, "B", "1");
    add("Old Mill Lane", 4, "D", "5");
    add("Quay", 6, "A", "2");
    add("Zoo Way", 5, "D", "4");
    return table;
}

// The frame of an index with the default columns of the table, a dot leader and grid squares.
Ref<host::IHostGroupElement> NewIndex(host::IHost& host, const host::IHostTable& table) {
    auto element = host.NewGroupElement();
    auto frame = host.NewEnvelope();
    frame->SetCoords(0, 0, 2 * 2 * kColumnWidth + 2 * kGroupGap, 1.6);
    element->SetGeometry(frame);

    const auto properties = gazetteer::NewGazetteerProperties(host);
    gazetteer::SetGazetteerProperties(host, element, properties);
    gazetteer::Settings settings;
    gazetteer::ReadSettings(host, *properties, settings);
    settings.indexDatabaseFile = "listings";
    settings.combineWithNewLine = false;
    settings.combineFirstAndLast = false;
    settings.repeatSpacing = kGroupGap;
    gazetteer::DefineColumns(host, *table.Fields(), settings);
    for (const auto& name : gazetteer::NamesOf(*settings.columnNames)) {
        const auto column = gazetteer::SetUnder(*settings.columnsProperties, name);
        auto symbol = host.NewTextSymbol();
        symbol->SetSize(12);
        for (const char* key : {"ColumnFontSymbol", "BreakFontSymbol", "TitleFontSymbol"})
            column->SetItem(key, Ref<host::IHostObject>(symbol));
        column->SetItem("ColumnWidth", kColumnWidth);
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
    const double em = text->Symbol()->Size() / 72;
    auto bounds = host.NewEnvelope();
    text->MeasureBounds(host.NewApplication()->Document()->ActiveView()->Display(), bounds);
    auto& line = canvas[std::lround(bounds->YMin() / (em * texthost::TextSymbol::kLineHeight))];
    const auto at = static_cast<std::size_t>(
        bounds->XMin() / (em * texthost::TextSymbol::kCharacterWidth) + 0.5);
    if (line.size() < at + text->Text().size()) line.resize(at + text->Text().size(), ' ');
    line.replace(at, text->Text().size(), text->Text());
}

bool Print(host::IHost& host, gazetteer::ICVNGazetteerManager& manager,
           const host::IHostTable& listings) {
    const auto element = NewIndex(host, listings);
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
    const auto listings = Listings();
    const auto host = std::make_shared<TextHost>(listings);
    gazetteer::CVNGazetteerManager linked(host);
    bool done = Print(*host, linked, *listings);
#ifdef COMPONENT_FILE
    std::puts("The same out of the component's library:");
    done = Print(*host, *LoadManager(host), *listings) && done;
#endif
    return done ? 0 : 1;
}
