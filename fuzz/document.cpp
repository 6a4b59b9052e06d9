// Documents: any bytes are read, or fail with a message. What was read is written and read again
// without a difference. A gazetteer in it, with stored results or without, is drawn and painted, or
// fails with a message.

#include "desk/documents/Document.h"

#include <cstdint>

#include "Bytes.h"
#include "Checks.h"
#include "FuzzDesk.h"
#include "desk/drawing/ElementPainter.h"
#include "desk/drawing/PageWriter.h"
#include "desk/files/Files.h"
#include "manager/CVNGazetteerManager.h"
#include "model/GeneralFunctions.h"

namespace {

using fuzz::Attempt;
using fuzz::Require;
using Group = host::Ref<host::IHostGroupElement>;

const fuzz::Folder& Files() {
    static const fuzz::Folder folder;
    return folder;
}

void CheckSaving(const desk::Document& document) {
    const auto& engine = fuzz::SharedDesk()->Text();
    const std::string written = Files().File("written.json");
    const std::string again = Files().File("again.json");
    const bool saved = Attempt([&] {
        desk::WriteDocument(document, written);
        desk::WriteDocument(desk::ReadDocument(written, engine), again);
    });
    Require(saved, "a document that was read cannot be saved and read again");
    Require(desk::ReadWholeFile(written) == desk::ReadWholeFile(again),
            "a document is another one when it is written and read again");
}

void Paint(const desk::Document& document) {
    const auto writer = desk::OpenPageWriter(Files().File("page.pdf"), {.title = document.title});
    writer->BeginPage(document.pageWidth, document.pageHeight);
    desk::ElementPainter painter(*fuzz::SharedDesk()->Text());
    for (const auto& element : document.elements) painter.Paint(writer->Sheet(), element);
    writer->EndPage(document.title);
    writer->Finish();
}

void BindAndDraw(gazetteer::CVNGazetteerManager& manager, const Group& element) {
    static const std::string table = Files().Write("names.dbf", fuzz::SmallTable());
    Attempt([&] {
        gazetteer::StoredGazetteerProperties(element)->SetItem("IndexDatabaseFile", table);
    });
    manager.CanDrawIndex(element);
    manager.SetIndexElement(element);
    manager.PageCount();
    for (const std::int32_t page : {0, 1, 2}) {
        manager.FirstListing(page);
        manager.PageName(page);
        manager.SetIndexToPageNumber(page);
    }
}

// A map book to which the documents of the corpus are linked.
std::string MapBook() {
    Files().Write("sheets.dbf", fuzz::SmallTable());
    return Files().Write("book.json", R"({"currentTemplate": "index", "books": [{"key": "atlas",
        "sections": [{"key": "maps", "name": "Maps", "startPage": 5, "pages": ["s$1", "s$2"],
        "templates": [{"key": "sheet", "name": "Sheet", "layout": [{"kind": "mapFrame",
        "name": "Main map", "series": {"indexLayer": "sheets.dbf", "firstPage": 4, "grids": []}}]}]},
        {"key": "back", "name": "Index", "startPage": 40, "pages": ["index$1"],
        "templates": [{"key": "index", "name": "Gazetteer", "layout": []}]}]}]})");
}

void Use(desk::Document read, const std::string& path) {
    static const std::string book = MapBook();
    if (!read.mapBook.empty()) read.mapBook = book;
    const auto& desk = fuzz::SharedDesk();
    desk->Start(std::move(read), path);
    const auto& document = desk->CurrentDocument();
    gazetteer::CVNGazetteerManager manager(desk);
    for (const auto& element : document.elements) {
        const auto group = host::As<host::IHostGroupElement>(element);
        if (group && manager.IsGazetteerElement(group)) BindAndDraw(manager, group);
    }
    Attempt([&] { Paint(document); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string path =
        Files().Write("read.json", {reinterpret_cast<const char*>(data), size});
    desk::Document document;
    if (!Attempt([&] { document = desk::ReadDocument(path, fuzz::SharedDesk()->Text()); }))
        return 0;
    CheckSaving(document);
    Use(std::move(document), path);
    return 0;
}
