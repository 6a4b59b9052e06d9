#include <filesystem>

#include "app/commands/Commands.h"
#include "app/commands/Console.h"
#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/document/PageFurniture.h"
#include "app/document/SettingsEdit.h"
#include "app/document/Sheets.h"
#include "listings/IndexTable.h"
#include "model/EditRules.h"

namespace app {
namespace {

void Assign(OpenDocument& document, const Options& options) {
    SettingsEdit edit(document);
    for (const auto& assignment : options.assignments) edit.Set(assignment);
    if (options.sample) edit.Set("SamplePage=true");
    edit.Store();
}

// Before anything is written to the file of a new document.
void CheckDocumentFile(const OpenDocument& document, const std::string& path) {
    CheckApart(document, path, {});
    CheckIsDocumentOrNew(path);
}

}  // namespace

int Make(const Options& options) {
    CheckOutputName(options.output);
    CommandSession session(options);
    auto& document = session.Document();
    // A document that is not saved resolves its paths from the folder of the output.
    StartNewDocument(document, options,
                     options.document.empty() ? options.output : options.document);
    ApplyPrintDefaults(document, options.columnGroups);
    Assign(document, options);
    UseColumnFont(document);

    if (!options.document.empty()) CheckDocumentFile(document, options.document);
    CheckSheetsApart(document, options.output, PageRange{}, options.document);
    session.BindDrawable();
    session.CheckHasPages();
    const PageRange pages{1, document.PageCount()};
    CheckSheetsApart(document, options.output, pages, options.document);
    session.CheckFindings(std::nullopt, options.strict);
    // Before the sheets, so that a failed save leaves no sheets behind.
    if (!options.document.empty()) document.Save();
    WriteSheets(document, options.output, pages, {}, options.dotsPerInch);
    ClearProgress();
    return kDone;
}

int New(const Options& options) {
    std::error_code ignored;
    if (!options.force && std::filesystem::exists(options.document, ignored))
        throw CommandError("The file \"" + options.document +
                           "\" exists already; --force replaces a document.");
    CommandSession session(options);
    auto& document = session.Document();
    StartNewDocument(document, options, options.document);
    Assign(document, options);
    CheckDocumentFile(document, options.document);
    // Also refuses a file that another program has created since the check.
    if (!options.force) document.TheDesk().SetReplaceable(desk::FileState{});
    document.Save();
    return kDone;
}

int Set(const Options& options) {
    if (options.assignments.empty() && options.title.empty() && options.firstPage == 0 &&
        options.locale.empty())
        throw UsageError("What to change is missing: KEY=VALUE or an option; --help tells more.");
    CommandSession session(options);
    auto& document = session.Open(options.document);
    auto& sheet = document.TheDesk().CurrentDocument();
    if (!options.title.empty()) sheet.title = options.title;
    if (options.firstPage > 0) sheet.firstSheet = options.firstPage;
    Assign(document, options);
    document.Save();
    return kDone;
}

int ColumnAdd(const Options& options) {
    CommandSession session(options);
    auto& document = session.Open(options.document);
    auto& host = document.Host();
    SettingsEdit edit(document);
    const std::string name = gazetteer::CleanColumnName(host.Locale(), options.column);
    if (name.empty()) throw UsageError("A column's name must have a character that is no blank.");
    const std::string refusal = gazetteer::IndexTableRefusal(name, true);
    if (!refusal.empty()) throw UsageError(refusal);
    if (!gazetteer::FindColumn(host.Locale(), edit.Settings(), name).empty()) {
        host.Dialogs().MessageBox(gazetteer::NameInUseMessage());
        return kWrongUsage;
    }
    edit.AddColumn(name);
    for (const auto& assignment : options.assignments) edit.SetIn(name, assignment);
    edit.Store();
    document.Save();
    return kDone;
}

int ColumnRemove(const Options& options) {
    CommandSession session(options);
    auto& document = session.Open(options.document);
    auto& host = document.Host();
    SettingsEdit edit(document);
    const std::string name = edit.ColumnName(options.column);
    if (!gazetteer::MayRemoveColumn(host, edit.Settings(), name)) return kWrongUsage;
    if (host.Dialogs().MessageBox(gazetteer::RemoveColumnQuestion()) != host::MessageAnswer::Yes)
        return kDone;
    gazetteer::RemoveColumn(edit.Settings(), name);
    edit.Store();
    document.Save();
    return kDone;
}

}  // namespace app
