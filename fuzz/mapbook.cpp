// Map book files: any bytes are read, or fail with a message. Then all queries of a map book must
// work.

#include "desk/mapbook/MapBook.h"

#include <cstdint>

#include "Bytes.h"
#include "Checks.h"
#include "desk/mapbook/SeriesManager.h"
#include "desk/tables/DbfTable.h"

namespace {

using fuzz::Attempt;

host::Ref<host::IHostTable> OpenTable(const std::string& path) {
    return std::make_shared<desk::DbfTable>(path);
}

void AskGrids(const host::IHostMapGrids& grids) {
    for (std::int32_t i = 0; i < grids.Count(); ++i) {
        const auto grid = host::As<host::IHostIndexGrid>(grids.Item(i));
        if (!grid) continue;
        for (const std::int32_t at : {0, 1, grid->RowCount(), grid->RowCount() + 1})
            Attempt([&] { fuzz::RequireText(grid->RowLabel(at), "the label of a row"); });
        for (const std::int32_t at : {0, 1, grid->ColumnCount(), grid->ColumnCount() + 1})
            Attempt([&] { fuzz::RequireText(grid->ColumnLabel(at), "the label of a column"); });
    }
}

void AskFrame(desk::SeriesManager& series, const host::Ref<host::IHostMapFrame>& frame) {
    series.SetFrame(frame);
    Attempt([&] { series.FirstPageNumber(); });
    Attempt([&] { series.IndexLayer(); });
    Attempt([&] { series.PageFeature(1)->Value(0); });
    if (const auto grids = host::As<host::IHostMapGrids>(frame)) AskGrids(*grids);
    fuzz::Require(series.IsSeriesFrame(frame) || !series.HasIndexLayer(frame),
                  "a frame that is not of a series has an index layer");
}

void AskElement(desk::SeriesManager& series, const host::Ref<host::IHostElement>& element) {
    if (const auto frame = host::As<host::IHostMapFrame>(element)) AskFrame(series, frame);
    const auto group = host::As<host::IHostGroupElement>(element);
    for (std::int32_t i = 0; group && i < group->Count(); ++i) AskElement(series, group->Item(i));
}

void AskLayout(desk::SeriesManager& series, const host::Ref<host::IHostObject>& layout) {
    const auto elements = host::As<host::IHostElementContainer>(layout);
    while (const auto element = elements->Next()) AskElement(series, element);
}

void AskBook(desk::MapBook& book, const desk::MapBookFile& file) {
    desk::SeriesManager series(OpenTable);
    for (const auto& each : file.books)
        for (const auto& section : book.SectionKeys(each.key)) {
            fuzz::Require(book.SectionBook(section) == each.key, "a section is in another book");
            book.SectionName(section);
            book.SectionStartPage(section);
            book.SectionPages(section);
            for (const auto& key : book.TemplateKeys(section)) {
                fuzz::Require(book.TemplateSection(key) == section,
                              "a template is in another section");
                fuzz::RequireText(book.TemplateName(key), "the name of a template");
                AskLayout(series, book.TemplateLayout(key));
            }
        }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const fuzz::Folder folder;
    const std::string path = folder.Write("book.json", {reinterpret_cast<const char*>(data), size});
    const auto source = std::make_shared<desk::BookSource>(path);
    desk::MapBook book(source);
    const bool read = Attempt([&] { source->File(); });
    Attempt([&] { desk::LayoutContext(source, "").CurrentTemplateKey(); });
    const bool asked = read && Attempt([&] { AskBook(book, *source->File()); });
    fuzz::Require(read == asked, "a map book that was read does not answer");
    fuzz::Require(!Attempt([&] { book.SectionName("no such key"); }), "a key that is not there");
    return 0;
}
