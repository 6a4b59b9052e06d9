#include <algorithm>
#include <array>
#include <filesystem>

#include "app/commands/Commands.h"
#include "app/commands/Console.h"
#include "app/commands/MakeListings.h"
#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/document/PageFurniture.h"
#include "app/document/PageSetup.h"
#include "app/document/SettingsEdit.h"
#include "app/document/Sheets.h"
#include "listings/IndexTable.h"
#include "model/EditRules.h"
#include "support/Conversions.h"

namespace app {
namespace {

void Assign(OpenDocument& document, const Options& options) {
    SettingsEdit edit(document);
    for (const auto& assignment : options.assignments) edit.Set(assignment);
    if (options.sample) edit.Set("SamplePage=true");
    edit.Store();
    UseColumnFont(document);
}

void SetFont(OpenDocument& document, const char* option, const std::string& value, Label& label) {
    if (value.empty()) return;
    if (!label.shown)
        throw UsageError(std::string(option) + ' ' + Shown(value) +
                         ": the sheets have no such text, nor is one asked for.");
    const auto parsed =
        ParseValue(document.Host(), option, gazetteer::ValueKind::TextSymbol, value);
    const auto symbol = gazetteer::ToObject<host::IHostTextSymbol>(parsed);
    label.symbol->SetFont(symbol->Font());
    label.symbol->SetColor(symbol->Color());
    label.followsIndex = false;
}

bool ChangesPage(const Options& options) {
    return options.firstPage > 0 || options.head ||
           std::ranges::any_of(std::array{options.pageSize, options.frame, options.headFont,
                                          options.sheetNumber, options.numberFont},
                               [](const std::string& given) { return !given.empty(); });
}

// A frame keeps its margins on another size.
void SetUpPage(OpenDocument& document, const Options& options) {
    if (!ChangesPage(options)) return;
    PageSetup setup = PageSetupOf(document);
    if (!options.pageSize.empty()) setup.size = ParsePageSize(options.pageSize);
    if (!options.frame.empty())
        setup.margins = MarginsOf(ParseFrame(options.frame, setup.size), setup.size);
    if (options.firstPage > 0) setup.firstSheet = options.firstPage;
    if (options.head) {
        setup.head.shown = !options.head->empty();
        setup.head.text = *options.head;
    }
    if (!options.sheetNumber.empty()) setup.number.shown = options.sheetNumber == "true";
    SetFont(document, "--head-font", options.headFont, setup.head);
    SetFont(document, "--number-font", options.numberFont, setup.number);
    ApplyPageSetup(document, setup);
}

// Before anything is written to the file of a new document.
void CheckDocumentFile(const OpenDocument& document, const std::string& path) {
    CheckApart(document, path, {});
    CheckIsDocumentOrNew(path);
}

}  // namespace

int Make(const Options& given) {
    CheckOutputName(given.output);
    if (!given.pageSize.empty()) ParsePageSize(given.pageSize);  // Before the work.
    SheetOutput written = given.written;
    written.maps = OpenMaps(given.maps, given.output);
    written.press = ReadPress(given.press, given.output, SourceFiles(given));
    const MakeListings listings(given);
    const Options& options = listings.WithTable();
    CommandSession session(options);
    auto& document = session.Document();
    // A document that is not saved resolves its paths from the folder of the output.
    StartNewDocument(document, options,
                     options.document.empty() ? options.output : options.document);
    ApplyPrintDefaults(document, options.columnGroups, options.plainRules);
    SetUpPage(document, options);
    Assign(document, options);

    if (!options.document.empty()) CheckDocumentFile(document, options.document);
    CheckSheetsApart(document, options.output, PageRange{}, options.document);
    session.BindDrawable();
    session.CheckHasPages();
    const PageRange pages{1, document.PageCount()};
    CheckSheetsApart(document, options.output, pages, options.document);
    if (written.maps) written.maps->NumberByBook(document);
    session.CheckFindings(std::nullopt, options.strict, written.maps.get());
    // Before the sheets, so that a failed save leaves no sheets behind.
    if (!options.document.empty()) document.Save();
    WriteSheets(document, options.output, pages, {}, written);
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
    SetUpPage(document, options);
    Assign(document, options);
    CheckDocumentFile(document, options.document);
    // Also refuses a file that another program has created since the check.
    if (!options.force) document.TheDesk().SetReplaceable(desk::FileState{});
    document.Save();
    return kDone;
}

int Set(const Options& options) {
    if (options.assignments.empty() && options.title.empty() && !ChangesPage(options) &&
        options.locale.empty())
        throw UsageError("What to change is missing: KEY=VALUE or an option; --help tells more.");
    CommandSession session(options);
    auto& document = session.Open(options.document);
    if (!options.title.empty()) document.TheDesk().CurrentDocument().title = options.title;
    SetUpPage(document, options);
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
