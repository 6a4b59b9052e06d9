#include "app/window/LocatePage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSortFilterProxyModel>
#include <QSpinBox>
#include <QStringListModel>
#include <QVBoxLayout>

#include "app/document/Errors.h"
#include "app/window/GridControls.h"
#include "app/window/LayerField.h"
#include "app/window/PathField.h"
#include "app/window/SheetsMap.h"
#include "app/window/WaitPointer.h"
#include "desk/tables/TablePath.h"
#include "desk/window/WidgetText.h"
#include "support/Status.h"

namespace app {
namespace {

constexpr int kReportLines = 5;
constexpr int kNameCharacters = 24;

std::string FileOf(const LayerField& field) {
    return desk::FindTable(desk::FromQt(field.Path())).File();
}

}  // namespace

LocatePage::LocatePage(WindowSession& session, QWidget* parent)
    : QWidget(parent), session_(session) {
    auto* layout = new QHBoxLayout(this);
    auto* const choices = Choices();
    AddFeatures();
    layout->addWidget(Scrolled(choices, this));
    layout->addWidget(Found(), 1);
    TakeChange();
}

QWidget* LocatePage::Choices() {
    auto* choices = new QWidget(this);
    MakeControls(choices);
    LayOut(choices);
    ConnectControls();
    return choices;
}

void LocatePage::MakeControls(QWidget* choices) {
    auto* rows = new QWidget(choices);
    featureRows_ = new QVBoxLayout(rows);
    featureRows_->setContentsMargins(0, 0, 0, 0);
    sheets_ =
        new LayerField("sheets", "Page:", {"page", "Page", "sheet", "number"}, "sheet", choices);
    rows_ = Count("gridRows", 0, choices);
    columns_ = Count("gridColumns", 0, choices);
    rowLabels_ = LabelsLine("rowLabels", choices);
    columnLabels_ = LabelsLine("columnLabels", choices);
    leaveOut_ = new QCheckBox("Leave out the letters &I and O", choices);
    squares_ = new QComboBox(choices);
    squares_->setObjectName("squares");
    squares_->addItem("The one with the most of it", "longest");
    squares_->addItem("All", "all");
    squares_->addItem("The first", "first");
    apart_ = new QComboBox(choices);
    apart_->setObjectName("apart");
    table_ = new PathField(
        "located",
        [this](const QString& present) {
            return QFileDialog::getSaveFileName(this, "Listing Table", present,
                                                "Tables (*.dbf *.gpkg *.csv)");
        },
        choices);
}

void LocatePage::LayOut(QWidget* choices) {
    auto* form = new QFormLayout(choices);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow("&Features:", featureRows_->parentWidget());
    form->addRow("&Sheets:", sheets_);
    AddSide(*form, "Grid &rows:", rows_, rowLabels_);
    AddSide(*form, "Grid &columns:", columns_, columnLabels_);
    form->addRow(QString(), leaveOut_);
    form->addRow("S&quares of a sheet:", squares_);
    form->addRow("&Tell apart by:", apart_);
    form->addRow("Listing &table:", table_);
}

void LocatePage::ConnectControls() {
    for (auto* const box : {rows_, columns_})
        connect(box, &QSpinBox::valueChanged, this, &LocatePage::TakeChange);
    for (auto* const line : {rowLabels_, columnLabels_})
        connect(line, &QLineEdit::textChanged, this, &LocatePage::TakeChange);
    for (auto* const box : {squares_, apart_})
        connect(box, &QComboBox::currentIndexChanged, this, &LocatePage::TakeChange);
    connect(leaveOut_, &QCheckBox::toggled, this, &LocatePage::TakeChange);
    connect(sheets_, &LayerField::Changed, this, &LocatePage::TakeChange);
    connect(table_, &PathField::Changed, this, [this] {
        tableChosen_ = table_->Path() != ProposedTable();
        Q_EMIT Changed();
    });
}

QWidget* LocatePage::Found() {
    auto* found = new QWidget(this);
    lookUp_ = new QPushButton("&Look Up", found);
    lookUp_->setObjectName("lookUp");
    lookUp_->setAutoDefault(false);
    summary_ = new QPlainTextEdit(found);
    summary_->setObjectName("locatedSummary");
    summary_->setAccessibleName("What was found and left out");
    summary_->setReadOnly(true);
    summary_->setFixedHeight(fontMetrics().lineSpacing() * kReportLines);
    names_ = new QStringListModel(this);
    listings_ = new QListView(found);
    listings_->setObjectName("locatedListings");
    listings_->setAccessibleName("Listings that were found");
    auto* const sorted = new QSortFilterProxyModel(this);
    sorted->setSourceModel(names_);
    sorted->setSortLocaleAware(true);
    sorted->sort(0);
    listings_->setModel(sorted);
    listings_->setUniformItemSizes(true);
    listings_->setMinimumWidth(fontMetrics().averageCharWidth() * kNameCharacters);
    listings_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    map_ = new SheetsMap(found);
    auto* top = new QHBoxLayout;
    top->addWidget(lookUp_);
    top->addWidget(summary_, 1);
    auto* below = new QHBoxLayout;
    below->addWidget(listings_, 1);
    below->addWidget(map_, 2);
    auto* layout = new QVBoxLayout(found);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addLayout(below, 1);
    connect(lookUp_, &QPushButton::clicked, this, &LocatePage::LookUp);
    connect(listings_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this, sorted](const QModelIndex& index) {
                MarkListing(sorted->mapToSource(index).row());
            });
    return found;
}

// There is always one row more than layers.
void LocatePage::AddFeatures() {
    auto* row = new LayerField("features" + QString::number(features_.size() + 1),
                               "Name:", {"name", "Listing"}, {}, featureRows_->parentWidget());
    features_.push_back(row);
    featureRows_->addWidget(row);
    connect(row, &LayerField::Changed, this, &LocatePage::TakeChange);
}

void LocatePage::TakeChange() {
    if (!features_.back()->IsEmpty()) AddFeatures();
    located_.reset();
    map_->Clear();
    names_->setStringList({});
    summary_->clear();
    const QString apart = apart_->currentText();
    {
        const QSignalBlocker quiet(apart_);
        apart_->clear();
        apart_->addItem("nothing: one listing for each name");
        apart_->addItems(features_.front()->Fields());
        apart_->setCurrentIndex(std::max(0, apart_->findText(apart)));
    }
    rowLabels_->setPlaceholderText(DefaultLabels(rows_->value(), true));
    columnLabels_->setPlaceholderText(DefaultLabels(columns_->value(), false));
    if (!tableChosen_) table_->SetPath(ProposedTable());
    lookUp_->setEnabled(features_.front()->IsUsable() && sheets_->IsUsable());
    Q_EMIT Changed();
}

QString LocatePage::ProposedTable() const {
    if (features_.front()->IsEmpty()) return {};
    const QFileInfo source(features_.front()->Source());
    const QString folder = source.path() == "." ? QString() : source.path() + '/';
    return folder + QFileInfo(features_.front()->Path()).completeBaseName() + "-listings.dbf";
}

bool LocatePage::IsUsable() const {
    return lookUp_->isEnabled() && !table_->Path().isEmpty();
}

LocateOptions LocatePage::Options() const {
    LocateOptions options;
    for (const auto* const row : features_)
        if (row->IsUsable())
            options.features.push_back(
                {desk::FromQt(row->Path()), desk::FromQt(row->Field()), {}, {}});
    options.sheets = desk::FromQt(sheets_->Path());
    options.page = desk::FromQt(sheets_->Field());
    if (rows_->value() > 0 || columns_->value() > 0) {
        options.grid = std::to_string(rows_->value()) + 'x' + std::to_string(columns_->value());
        options.rowLabels = desk::FromQt(rowLabels_->text());
        options.columnLabels = desk::FromQt(columnLabels_->text());
    }
    if (leaveOut_->isChecked()) options.leftOut = "IOio";
    options.squares = desk::FromQt(squares_->currentData().toString());
    if (apart_->currentIndex() > 0) options.apart = {desk::FromQt(apart_->currentText())};
    options.wantsSketch = true;
    return options;
}

// Returns false if the user has cancelled.
bool LocatePage::Locate() {
    gazetteer::Status status(session_.Host());
    const host::Ref<host::IHostLocale> locale(session_.Document().DeskRef(),
                                              &session_.Host().Locale());
    return session_.Run([&] {
        located_ = std::make_unique<LocatedTable>(
            Options(), locale, [&](std::int64_t read, std::int64_t count) {
                status.Show("Locating feature ", read, read, count);
            });
    });
}

void LocatePage::LookUp() {
    try {
        const WaitPointer wait;
        if (Locate()) ShowFound();
    } catch (const std::exception&) {
        session_.Warn("Look Up", CurrentSentence());
    }
}

void LocatePage::ShowFound() {
    QString text = desk::ToQt(located_->Summary());
    for (const auto& warning : located_->Warnings()) text += '\n' + desk::ToQt(warning);
    summary_->setPlainText(text);
    QStringList names;
    for (const auto& name : located_->Names()) names << desk::ToQt(name);
    names_->setStringList(names);
    map_->Show(located_->Result());
}

void LocatePage::MarkListing(int row) {
    std::vector<gis::Reference> references;
    if (located_ && row >= 0) {
        const auto of =
            std::ranges::equal_range(located_->Result().references, static_cast<std::uint32_t>(row),
                                     {}, &gis::Reference::listing);
        references.assign(of.begin(), of.end());
    }
    map_->Mark(references);
}

std::string LocatePage::MakeTable() {
    std::string path = desk::FromQt(table_->Path());
    std::vector<std::string> sources = {FileOf(*sheets_)};
    for (const auto* const row : features_) sources.push_back(FileOf(*row));
    CheckTableOutput(path, sources, true);
    if (QFileInfo::exists(table_->Path()) &&
        QMessageBox::question(this, "New Document",
                              "The table \"" + table_->Path() + "\" exists already. Replace it?") !=
            QMessageBox::Yes)
        return {};
    if (!located_ && !Locate()) return {};
    const auto written = WriteTable(path, located_->Fields(),
                                    [&](const RowTaker& take) { located_->ForEach(take); });
    for (const auto& warning : written.warnings) session_.Warn("New Document", warning);
    return path;
}

}  // namespace app
