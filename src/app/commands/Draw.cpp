#include <memory>

#include "app/ElementTree.h"
#include "app/Errors.h"
#include "app/Files.h"
#include "app/HelpTexts.h"
#include "app/Session.h"
#include "app/Sheets.h"
#include "app/commands/Commands.h"

namespace app {
namespace {

struct DrawOptions {
    std::string document;
    std::int32_t page = 0;
    bool json = false;
    std::string output;
};

void Print(Session& session, std::int32_t page) {
    const auto& element = session.Gazetteer();
    PrintAnswer(1, [&](JsonAnswer& json) {
        json.Member("page", page);
        json.Member("pageCount", session.PageCount());
        json.Member("draft", host::As<host::IHostFrameElement>(element)->Draft());
        WriteBox(json, "frame", *element->Geometry()->Bounds());
        WriteMembers(json, session.Host(), *element);
    });
}

int Draw(const CommonOptions& common, const DrawOptions& options) {
    if (!options.output.empty()) CheckOutputName(options.output);
    CheckApart(options.output, {options.document});
    Session session(common);
    session.Open(options.document);
    session.BindDrawable();
    session.CheckHasPages();
    CheckPage(options.page, session.PageCount());
    session.Manager().SetIndexToPageNumber(options.page);
    session.CheckNothingFailed();
    LabelSheet(session, options.page);

    if (!options.output.empty()) WriteDrawnPage(session, options.output, options.page);
    if (options.json) Print(session, options.page);
    if (options.output.empty() && !options.json) session.Save();
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
              "Write the sheet to a .pdf, .png or .svg file; the document stays")
        .Help(kDrawHelp);
}

}  // namespace app
