#include "app/window/layers/LocatePage.h"

#include <QFileInfo>
#include <QListView>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSortFilterProxyModel>
#include <QStringListModel>
#include <QStyle>
#include <QVBoxLayout>

#include "app/document/Errors.h"
#include "app/tables/BookFile.h"
#include "app/window/WaitPointer.h"
#include "app/window/layers/LocateChoices.h"
#include "app/window/layers/LocateTexts.h"
#include "app/window/layers/SheetsMap.h"
#include "desk/window/WidgetText.h"
#include "support/Status.h"

namespace app {
namespace {

constexpr int kReportLines = 5;
constexpr int kNameCharacters = 24;

// Scrolls controls where the window is low. Its width has room for the scroll bar.
QScrollArea* Scrolled(QWidget* controls, QWidget* parent) {
    auto* area = new QScrollArea(parent);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidget(controls);
    // The page behind shows through.
    area->viewport()->setAutoFillBackground(false);
    controls->setAutoFillBackground(false);
    const int bar = area->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    area->setMinimumWidth(controls->sizeHint().width() + bar);
    return area;
}

}  // namespace

LocatePage::LocatePage(WindowSession& session, QWidget* parent)
    : QWidget(parent), session_(session), choices_(new LocateChoices(this)) {
    auto* layout = new QHBoxLayout(this);
    // Off the scroll bar.
    const int space = style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing);
    choices_->layout()->setContentsMargins(0, 0, space, 0);
    layout->addWidget(Scrolled(choices_, this));
    layout->addWidget(Found(), 1);
    connect(choices_, &LocateChoices::Changed, this, &LocatePage::TakeChange);
    connect(choices_, &LocateChoices::OutputChanged, this, &LocatePage::Changed);
    TakeChange();
}

QWidget* LocatePage::Found() {
    auto* found = new QWidget(this);
    lookUp_ = new QPushButton("Look &Up", found);
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

void LocatePage::TakeChange() {
    located_.reset();
    map_->Clear();
    names_->setStringList({});
    summary_->clear();
    lookUp_->setEnabled(choices_->CanLocate());
    Q_EMIT Changed();
}

bool LocatePage::IsUsable() const {
    return choices_->CanLocate() && !choices_->Table().isEmpty();
}

bool LocatePage::WritesBook() const {
    return !choices_->Book().isEmpty();
}

// Returns false if the user has cancelled.
bool LocatePage::Locate() try {
    gazetteer::Status status(session_.Host());
    auto& document = session_.Document();
    const host::Ref<host::IHostLocale> locale(document.DeskRef(), &session_.Host().Locale());
    LocateOptions options = choices_->Options();
    options.wantsSketch = true;
    options.locale = document.TheDesk().LocaleName();
    return session_.Run([&] {
        located_ = std::make_unique<LocatedTable>(
            options, locale, [&](std::int64_t read, std::int64_t count) {
                status.Show("Locating feature ", read, read, count);
            });
    });
} catch (const UsageError& fault) {
    throw UsageError(InWordsOfPage(fault.what()));
}

void LocatePage::LookUp() {
    try {
        const WaitPointer wait;
        if (Locate()) ShowFound();
    } catch (const std::exception&) {
        session_.Warn("Look Up", CurrentSentence());
    }
}

std::vector<std::string> LocatePage::Report() const {
    auto warnings = located_->Warnings();
    for (auto& warning : warnings) warning = WithoutFolders(warning, choices_->Files());
    return warnings;
}

void LocatePage::ShowFound() {
    QString text = desk::ToQt(located_->Summary());
    for (const auto& warning : Report()) text += '\n' + desk::ToQt(warning);
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

bool LocatePage::MayReplace(const QString& path) {
    return path.isEmpty() || !QFileInfo::exists(path) ||
           QMessageBox::question(this, "New Document",
                                 "The file \"" + path + "\" exists already. Replace it?") ==
               QMessageBox::Yes;
}

LocatedFiles LocatePage::Write() {
    LocatedFiles files{desk::FromQt(choices_->Table()), desk::FromQt(choices_->Book()), {}};
    const auto sources = choices_->Files();
    CheckTableOutput(files.table, sources, true);
    CheckBookOutput(files.book, files.table, sources, true);
    if (!MayReplace(choices_->Table()) || !MayReplace(choices_->Book())) return {};
    if (!located_ && !Locate()) return {};
    const auto written = WriteTable(files.table, located_->Fields(),
                                    [&](const RowTaker& take) { located_->ForEach(take); });
    located_->WriteMapBook();
    files.notices = Report();
    files.notices.insert(files.notices.end(), written.warnings.begin(), written.warnings.end());
    return files;
}

}  // namespace app
