#include <memory>

#include "app/commands/CommandSession.h"
#include "app/commands/Commands.h"
#include "app/commands/HelpTexts.h"
#include "app/commands/Progress.h"
#include "app/document/FilePaths.h"
#include "app/document/Sheets.h"
#include "desk/drawing/PageWriter.h"

namespace app {
namespace {

struct ExportOptions {
    std::string document;
    std::string output;
    std::string pages;
};

int Export(const CommonOptions& common, const ExportOptions& options) {
    CheckOutputName(options.output);
    CheckApart(options.output, {options.document});
    const auto asked = ParsePages(options.pages);
    CommandSession session(common);
    auto& document = session.Open(options.document);
    session.BindDrawable();
    session.CheckHasPages();
    const auto pages = asked.value_or(PageRange{1, document.PageCount()});
    CheckPage(pages.last, document.PageCount());
    WriteSheets(document, options.output, pages);
    ClearProgress();
    return 0;
}

}  // namespace

void AddExport(Arguments& program) {
    const auto options = std::make_shared<ExportOptions>();
    auto command =
        AddCommand(program, "export", "Write pages as sheets",
                   [options](const CommonOptions& common) { return Export(common, *options); });
    AddDocument(command, options->document)
        .Path("-o,--output", options->output, "File to write: " + desk::PageEndings())
        .Required()
        .Text("--pages", options->pages, "Pages such as 2-5 or 3 (default: all)")
        .Help(kExportHelp);
}

}  // namespace app
