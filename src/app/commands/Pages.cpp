#include "app/commands/Commands.h"
#include "app/commands/Console.h"
#include "app/document/Errors.h"
#include "app/document/ResultSources.h"
#include "app/document/Sheets.h"

namespace app {
namespace {

// Returns whether the manager has run and its results are stored in the document.
bool HasNewResults(const gazetteer::CVNGazetteerManager& manager) {
    return manager.HasRun() && !manager.BoundSettings().autoRefreshListings;
}

}  // namespace

int Generate(const Options& options) {
    CommandSession session(options);
    auto& document = session.Open(options.document);
    DropOldResults(document);
    session.BindDrawable();
    session.TellFindings();
    if (HasNewResults(document.Manager())) document.Save();
    return kDone;
}

int Draft(const Options& options) {
    CommandSession session(options);
    auto& document = session.Open(options.document);
    const auto& element = document.Gazetteer();
    const auto frame = host::As<host::IHostFrameElement>(element);
    if (!session.Bind()) return kCouldNot;

    const std::int32_t members = element->Count();
    document.Manager().DraftMode();
    document.CheckNothingFailed();
    const bool changed =
        HasNewResults(document.Manager()) || element->Count() != members || !frame->Draft();
    frame->SetDraft(true);
    if (changed) document.Save();
    return kDone;
}

int Export(const Options& options) {
    CheckOutputName(options.output);
    const auto asked = ParsePages(options.pages);
    SheetOutput written = options.written;
    written.maps = OpenMaps(options.maps, options.output);
    written.press = ReadPress(options.press, options.output, {options.document});
    CommandSession session(options);
    auto& document = session.Open(options.document);
    CheckSheetsApart(document, options.output, asked.value_or(PageRange{}), options.document);
    session.BindDrawable();
    session.CheckHasPages();
    const auto pages = asked.value_or(PageRange{1, document.PageCount()});
    CheckPage(pages.last, document.PageCount());
    CheckSheetsApart(document, options.output, pages, options.document);
    if (written.maps) written.maps->NumberByBook(document);
    session.CheckFindings(asked, options.strict, written.maps.get());
    WriteSheets(document, options.output, pages, {}, written);
    ClearProgress();
    return kDone;
}

}  // namespace app
