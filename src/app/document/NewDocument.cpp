#include "app/document/NewDocument.h"

#include <algorithm>
#include <filesystem>

#include "app/document/ColumnGroups.h"
#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/document/KeyValues.h"
#include "app/document/PageFurniture.h"
#include "app/document/SettingsEdit.h"
#include "model/EditRules.h"
#include "model/GeneralFunctions.h"
#include "model/KeyNames.h"
#include "model/Paths.h"

namespace app {
namespace {

// The default expression of the column Page for a table with a grid.
constexpr char kGridReference[] = "$$PAGE_NUMBER $$ROW-$$COLUMN";

// Creates an element with default properties and no columns.
host::Ref<host::IHostGroupElement> MakeGazetteer(host::IHost& host, const FrameOption& frame) {
    auto element = host.NewGroupElement();
    auto bounds = host.NewEnvelope();
    bounds->SetCoords(frame.left, frame.bottom, frame.left + frame.width,
                      frame.bottom + frame.height);
    element->SetGeometry(bounds);
    host::As<host::IHostElementName>(element)->SetName("Gazetteer");
    gazetteer::SetGazetteerProperties(host, element, gazetteer::NewGazetteerProperties(host));
    return element;
}

void DefineColumnsOf(OpenDocument& open, const std::string& database) {
    auto& host = open.Host();
    const auto table = gazetteer::OpenTableFile(host, database);
    const auto fields = table->Fields();
    const std::string name = "listing database \"" + database + '"';
    const std::string fieldsAre =
        "; its fields are " + FieldNames(*fields, fields->FieldCount()) + '.';
    if (fields->FindField("Page") < 0)
        throw CommandError("The " + name + " has no field \"Page\"" + fieldsAre);
    if (fields->FindField("Listing") < 0)
        open.Warn("the " + name + " has no field \"Listing\", so that Page is the only column" +
                  fieldsAre);
    SettingsEdit edit(open);
    edit.Settings().indexDatabaseFile = FullPath(database);
    gazetteer::DefineColumns(host, *fields, edit.Settings());
    edit.StoreWithoutWarnings();
}

}  // namespace

std::string FieldNames(const host::IHostFields& fields, std::int32_t most) {
    std::string names;
    for (std::int32_t i = 0; i < std::min(fields.FieldCount(), most); ++i)
        names += (i == 0 ? "" : ", ") + fields.Field(i)->Name();
    return names + (fields.FieldCount() > most ? ", and others" : "");
}

void StartNewDocument(OpenDocument& open, const NewDocumentOptions& options,
                      const std::string& documentPath) {
    const std::string format = open.TheDesk().UsesLetterFormat() ? "letter" : "a4";
    const PageSize page = ParsePageSize(options.pageSize.empty() ? format : options.pageSize);
    desk::Document document;
    document.title = options.title.empty()
                         ? std::filesystem::path(options.listingDatabase).stem().string()
                         : options.title;
    document.firstSheet = options.firstPage;
    document.locale = open.TheDesk().LocaleName();
    document.pageWidth = page.width;
    document.pageHeight = page.height;
    if (!options.book.empty()) {
        const auto folder = std::filesystem::absolute(documentPath).parent_path();
        document.mapBook =
            std::filesystem::absolute(options.book).lexically_proximate(folder).string();
    }
    const auto element = MakeGazetteer(open.Host(), ParseFrame(options.frame, page));
    document.elements.push_back(element);
    open.Start(std::move(document), documentPath);
    DefineColumnsOf(open, options.listingDatabase);
    // Reports an unreadable map book now instead of in a later command.
    if (!options.book.empty()) open.Host().NewLayoutContext()->CurrentTemplateKey();
}

void ApplyPrintDefaults(OpenDocument& open, std::int32_t columnGroups, bool plainRules) {
    AddPageFurniture(open);
    const auto [group, gap] =
        DivideFrame(open.Gazetteer()->Geometry()->Bounds()->Width(), columnGroups);
    SettingsEdit edit(open);
    if (!plainRules) edit.Typesetting() = gazetteer::PrintTypesetting();
    const bool hasListing = edit.Settings().columnNames->Count() > 1;
    const double reference = hasListing ? ToThousandths(std::min(0.95, group * 0.4)) : group;
    for (const char* assignment :
         {"CombineWithNewLine=false", "CombineFirstAndLast=false", "AddStartingBreak=true",
          "*.ColumnFontSymbol=Liberation Sans,8", "*.BreakFontSymbol=Liberation Sans,9,bold",
          "*.TitleFontSymbol=Liberation Sans,8,bold", "*.MarginTop=0.003", "*.MarginBottom=0.003",
          "*.MarginLeft=0.02", "*.MarginRight=0.02", "*.BreakSpacing=0.08",
          "*.TitleBackgroundSymbol=#E6E6E6"})
        edit.Set(assignment);
    edit.Set("RepeatSpacing=" + NumberText(gap));
    edit.Set("Page.ColumnWidth=" + NumberText(reference));
    // The no-break space keeps page and grid square on one line.
    const auto columns = edit.Settings().columnsProperties;
    if (ValueText(gazetteer::SetUnder(*columns, "Page")->Item(gazetteer::keys::kExpression)) ==
        kGridReference)
        edit.Set("Page.Expression=$$PAGE_NUMBER\u00A0$$ROW-$$COLUMN");
    if (hasListing) {
        edit.Set("Listing.Expression=[Listing]$$DOTS");
        edit.Set("Listing.ColumnWidth=" + NumberText(ToThousandths(group - reference)));
    }
    edit.StoreWithoutWarnings();
}

}  // namespace app
