// The working copy into the controls.

#include <algorithm>

#include "manager/SeriesLink.h"
#include "model/Paths.h"
#include "page/ControlValues.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "ui_frmGazetteerPropertyPage.h"

namespace gazetteer {
namespace {

const std::vector<std::string> kAlignments = {"Left", "Center", "Right", "Justify"};

}  // namespace

using Form = frmGazetteerPropertyPage;

void Form::PopulateForm() try {
    siblings_ = SiblingObjects::Create(*host_);
    PopulateLink();
    PopulateDatabase();
    FillList(*ui_->cmbAlignment, kAlignments);
    FillList(*ui_->cmbTitleAlignment, kAlignments);
    PopulateLists();
    controls_.Fill(fields_);
    CheckColumnExpressions(true);
    CheckColumnSizing(true);
} catch (...) {
    PassOn("PopulateForm", kFormLabel);
}

// A document that is in no map book has no template on show, and nothing to link to.
void Form::PopulateLink() {
    ui_->chkLinkToMapSeriesFrame->setChecked(fields_.linkToMapSeries);
    FillList(*ui_->CmbTemplate, {});
    FillList(*ui_->cmbMapSeriesFrame, {});
    const auto onShow = siblings_.layoutContext->CurrentTemplateKey();
    if (!std::holds_alternative<host::Empty>(onShow)) {
        auto& book = *siblings_.mapBook;
        const std::string section = book.TemplateSection(ToText(onShow, host_->Locale()));
        sectionKeys_ = book.SectionKeys(book.SectionBook(section));
    }
    std::vector<std::string> names = {kNoSelection};
    for (const std::string& key : sectionKeys_)
        names.push_back(siblings_.mapBook->SectionName(key));
    FillList(*ui_->cmbSection, names);
    const auto stored = std::ranges::find(sectionKeys_, fields_.mapSeriesSectionKey);
    if (stored != sectionKeys_.end()) {
        ui_->cmbSection->setCurrentIndex(1 + static_cast<int>(stored - sectionKeys_.begin()));
        if (FindTemplates()) haveMapSeriesFrame_ = FindFrames();
    }
    EnableIndexLayerOption();
}

// A database that is gone is no failure: the box stays empty. One that is there but cannot be
// opened is told of, and then counts as gone, so that another one can be chosen.
void Form::PopulateDatabase() {
    const std::string& path = fields_.indexDatabaseFile;
    ShowText(*this, "txtDatabaseFile", "");
    if (path.empty() || !host_->FileExists(path)) return;
    try {
        listingTable_ = OpenTableFile(*host_, path);
        haveDatabase_ = true;
        ShowText(*this, "txtDatabaseFile", path);
    } catch (...) {
        ShowAtTop(host_->Dialogs(), "PopulateForm", kFormLabel);
    }
}

void Form::PopulateLists() {
    FillList(*ui_->lstListingColumns, NamesOf(*fields_.columnNames));
    ui_->SSTabColumnProps->setEnabled(ui_->lstListingColumns->count() > 0);
    FillList(*ui_->lstDisplayOrder, NamesOf(*fields_.columnDisplayOrder));
    FillCheckedList(*ui_->lstSortOrder, *fields_.columnSortOrder);
}

}  // namespace gazetteer
