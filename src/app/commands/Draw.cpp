#include <memory>

#include "app/commands/CommandSession.h"
#include "app/commands/Commands.h"
#include "app/commands/ElementTree.h"
#include "app/commands/HelpTexts.h"
#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/document/Sheets.h"
#include "desk/drawing/PageWriter.h"

namespace app {
namespace {

struct DrawOptions {
    std::string document;
    std::int32_t page = 0;
    bool json = false;
    std::string output;
};

void Print(OpenDocument& document, std::int32_t page) {
    const auto& element = document.Gazetteer();
    PrintAnswer(1, [&](JsonAnswer& json) {
        json.Member("page", page);
        json.Member("pageCount", document.PageCount());
        json.Member("draft", host::As<host::IHostFrameElement>(element)->Draft());
        WriteBox(json, "frame", *element->Geometry()->Bounds());
        WriteMembers(json, document.Host(), *element);
    });
}

int Draw(const CommonOptions& common, const DrawOptions& options) {
    if (!options.output.empty()) CheckOutputName(options.output);
    CheckApart(options.output, {options.document});
    CommandSession session(common);
    auto& document = session.Open(options.document);
    session.BindDrawable();
    session.CheckHasPages();
    CheckPage(options.page, document.PageCount());
    document.Manager().SetIndexToPageNumber(options.page);
    document.CheckNothingFailed();
    LabelSheet(document, options.page);

    if (!options.output.empty()) WriteDrawnPage(document, options.output, options.page);
    if (options.json) Print(document, options.page);
    if (options.output.empty() && !options.json) document.Save();
    return kDone;
}

}  // namespace

void AddDraw(Arguments& program) {
    const auto options = std::make_shared<DrawOptions>();
    auto command =
        AddCommand(program, "draw", "Draw one page into the gazetteer's frame",
                   [options](const CommonOptions& common) { return Draw(common, *options); });
    AddDocument(command, options->document)
        .Number("--page", options->page, "Page to draw, from 1")
        .Required()
        .Flag("--json", options->json, "Print the element tree; the document stays")
        .Path("-o,--output", options->output,
              "Write the sheet to a " + desk::PageEndings() + " file; the document stays")
        .Help(kDrawHelp);
}

}  // namespace app
