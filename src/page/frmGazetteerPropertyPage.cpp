#include "page/frmGazetteerPropertyPage.h"

#include <QEvent>
#include <QResource>
#include <utility>

#include "model/EditRules.h"
#include "model/Paths.h"
#include "model/Results.h"
#include "page/ControlValues.h"
#include "page/FormSizing.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "ui_frmGazetteerPropertyPage.h"

// Registers the resources, which a static library does not do by itself. The macro must be used
// outside any namespace.
static void LoadFormPictures() {
    Q_INIT_RESOURCE(page);
}

namespace gazetteer {
namespace {

const std::vector<std::string> kAlignments = {"Left", "Center", "Right", "Justify"};

std::unique_ptr<Ui::frmGazetteerPropertyPage> SetUp(QWidget& form) {
    LoadFormPictures();
    auto ui = std::make_unique<Ui::frmGazetteerPropertyPage>();
    ui->setupUi(&form);
    return ui;
}

}  // namespace

using Form = frmGazetteerPropertyPage;

Form::frmGazetteerPropertyPage(host::Ref<host::IHost> host)
    : host_(std::move(host)),
      ui_(SetUp(*this)),
      events_(*this, *host_),
      controls_(*this, *host_),
      link_(*host_, *ui_, events_, [this] { UpdateProperties(); }),
      editors_(*this, *host_, events_, fields_, [this] { UpdateProperties(); }) {
    ConnectEvents();
    ReleaseObjects();
    Form_Load();
}

Form::~frmGazetteerPropertyPage() = default;

// The map series link and the column editors connect their own events.
void Form::ConnectEvents() {
    controls_.Connect(events_, [this] { UpdateProperties(); });
    events_.Connect("cmdSetNewFileName_Click", [this] { cmdSetNewFileName_Click(); });
    events_.Connect("txtDatabaseFile_Change", [this] { txtDatabaseFile_Change(); });
    events_.Connect("cmdExpression_Click", [this] { cmdExpression_Click(); });
    events_.Connect("cmdAdd_Click", [this] { cmdAdd_Click(); });
    events_.Connect("cmdRemove_Click", [this] { cmdRemove_Click(); });
    events_.Connect("lstSortOrder_ItemCheck", [this] { lstSortOrder_ItemCheck(); });
    // A press on the row of the open column has no effect.
    events_.Connect("lstListingColumns_Click", [this] {
        if (SelectedText(*ui_->lstListingColumns) != editors_.CurrentColumn())
            lstListingColumns_Click();
    });
    constexpr std::pair<const char*, Movement> kMovements[] = {{"Up_Click", Movement::Up},
                                                               {"Down_Click", Movement::Down},
                                                               {"Top_Click", Movement::Top},
                                                               {"Bottom_Click", Movement::Bottom}};
    for (const auto& [event, movement] : kMovements) {
        events_.Connect(std::string("cmdOrder") + event, [this, to = movement] {
            Rearrange(*ui_->lstDisplayOrder, &Settings::columnDisplayOrder, to,
                      "RearrangeColumnOrder");
        });
        events_.Connect(std::string("cmdSort") + event, [this, to = movement] {
            Rearrange(*ui_->lstSortOrder, &Settings::columnSortOrder, to, "RearrangeSortOrder");
        });
    }
    events_.RequireAllBut({"cmdRename", "lstDisplayOrder"});
}

void Form::Form_Load() try { FitFormToTabs(*this); } catch (...) {
    ShowAtTop(host_->Dialogs(), "Form_Load", kFormLabel);
}

void Form::Form_Activate() try {
    ReleaseObjects();
    const auto properties = Require<host::IHostPropertySet>(properties_);
    ReadSettings(*host_, *properties, fields_, SettingsScope::Edit);
    PopulateForm();
    events_.SetPopulating(false);
    SetFilled(true);
    if (ui_->lstListingColumns->count() > 0) lstListingColumns_Click();
    ui_->SSTabGazetteerProperties->setCurrentIndex(0);
    ui_->SSTabColumnProps->setCurrentIndex(0);
    update();
} catch (...) {
    // IsPopulating stays set until the next activation, so that nothing can be edited.
    ShowAtTop(host_->Dialogs(), "Form_Activate", kFormLabel);
}

void Form::Form_Deactivate() try { ReleaseObjects(); } catch (...) {
    ShowAtTop(host_->Dialogs(), "Form_Deactivate", kFormLabel);
}

void Form::Form_Unload() try {
    ReleaseObjects();
    pageSite_ = nullptr;
} catch (...) {
    ShowAtTop(host_->Dialogs(), "Form_Unload", kFormLabel);
}

// The controls are disabled while they do not show the working copy.
void Form::SetFilled(bool filled) {
    filled_ = filled;
    ui_->SSTabGazetteerProperties->setEnabled(filled);
}

// Releases everything that Form_Activate reads again from the working copy.
void Form::ReleaseObjects() {
    SetFilled(false);
    events_.SetPopulating(true);
    link_.Release();
    editors_.Close();
    expressionEngine_ = nullptr;
    listingTable_ = nullptr;
    for (const auto set : {&Settings::columnNames, &Settings::columnsProperties,
                           &Settings::columnDisplayOrder, &Settings::columnSortOrder})
        fields_.*set = host_->NewPropertySet();
    haveDatabase_ = expressionsValid_ = sizingValid_ = false;
}

void Form::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const auto type = event->type();
    if (type == QEvent::FontChange || type == QEvent::StyleChange) Form_Load();
}

void Form::PopulateForm() try {
    const auto siblings = SiblingObjects::Create(*host_);
    expressionEngine_ = siblings.expressionEngine;
    link_.Fill(siblings, fields_);
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

// A missing database is no failure: the box stays empty. One that cannot be opened is reported and
// then treated as missing, so that the user can choose another.
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
    FillList(*ui_->lstDisplayOrder, NamesOf(*fields_.columnDisplayOrder));
    FillCheckedList(*ui_->lstSortOrder, *fields_.columnSortOrder);
}

// The column sets are in fields_; all other values are read from the controls. Stores the verdict
// and removes the results of the last run.
void Form::UpdateProperties() try {
    if (events_.IsPopulating()) return;
    Settings edited = fields_;
    controls_.Read(edited);
    link_.Read(edited);
    edited.indexDatabaseFile = ShownText(*this, "txtDatabaseFile");
    StoreEdit(*host_, edited, CanDrawIndex(), *Require<host::IHostPropertySet>(properties_));
    isPageDirty_ = true;
    if (pageSite_) pageSite_->PageChanged();
    // Ends the draft state, so that the next Apply decides again whether to draw.
    Require<host::IHostFrameElement>(element_)->SetDraft(false);
} catch (...) {
    PassOn("UpdateProperties", kFormLabel);
}

bool Form::CanDrawIndex() const {
    return haveDatabase_ && expressionsValid_ && sizingValid_ && link_.IsComplete();
}

}  // namespace gazetteer
