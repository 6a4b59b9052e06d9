#include <QAbstractButton>
#include <set>

#include "app/document/ListingPlaces.h"
#include "app/window/FindingsDock.h"
#include "app/window/MainWindow.h"
#include "app/window/NoticeBar.h"
#include "app/window/PageView.h"
#include "app/window/PagesDock.h"
#include "app/window/RunControl.h"

/// The findings and the hits of the search, and their marks on the page.
namespace app {
namespace {

const QColor kHitColor(255, 214, 0);
const QColor kFindingColor(255, 130, 90);

// Marks the cells of the page for which `fits` holds, neighbouring ones of a row together.
template <class Fits>
void Mark(const std::vector<DrawnCell>& cells, double sheetHeight, const PageMark& style,
          std::vector<PageMark>& marks, const Fits& fits) {
    const DrawnCell* before = nullptr;
    for (const DrawnCell& cell : cells) {
        if (!fits(cell)) continue;
        const QRectF box(cell.box->XMin(), sheetHeight - cell.box->YMax(), cell.box->Width(),
                         cell.box->Height());
        const bool sameRow =
            before != nullptr && before->rowKey == cell.rowKey && before->heading == cell.heading;
        if (sameRow)
            marks.back().box |= box;
        else
            marks.push_back({box, style.color, style.current});
        before = &cell;
    }
}

// Whether a cell is one of the listing, heading or whole column that a finding is about.
bool IsOf(const Finding& finding, const std::string& row, const DrawnCell& cell) {
    const bool ofHeading =
        finding.kind == findings::kHeadingAlone || finding.kind == findings::kHeadingLeftOut;
    if (cell.heading && !ofHeading) return false;
    if (row.empty()) return !finding.column.empty() && cell.column == finding.column;
    return cell.rowKey == row && (finding.column.empty() || cell.column == finding.column);
}

}  // namespace

void MainWindow::ConnectFindings() {
    connect(findings_, &FindingsDock::Chosen, this, &MainWindow::GoToFinding);
    connect(findings_, &FindingsDock::Opened, this, &MainWindow::OpenFinding);
    connect(findings_, &QDockWidget::visibilityChanged, this, [this] {
        ShowNotices();
        ShowMarks();
    });
    connect(notices_->Details(), &QAbstractButton::clicked, findings_, &FindingsDock::FocusList);
    connect(pages_, &PagesDock::HitsChanged, this, &MainWindow::ShowMarks);
    connect(pages_, &PagesDock::PageChosen, this, [this](int page) {
        TurnTo(page);
        ShowMarks();
        view_->RevealMarks();
    });
}

// The list of findings tells them, where it is shown, with more of each.
void MainWindow::ShowNotices() {
    auto notices = session_->Notices();
    const bool listed = findings_->isVisible();
    if (!listed)
        for (const auto& sentence : session_->Findings().Sentences()) notices.push_back(sentence);
    const bool any = !session_->Findings().IsEmpty() || !session_->Reasons().IsEmpty();
    notices_->Show(notices, any && !listed);
    if (findings_->SetFindings(session_->Reasons(), session_->Findings())) ShowMarks();
}

void MainWindow::GoToFinding() {
    if (const Finding* const finding = findings_->Current()) {
        ChooseFrame(finding->element);
        found_ = PlaceOf(session_->Document(), *finding);
        if (found_.page > 0)
            TurnTo(found_.page);
        else
            Select(finding->element);
    }
    ShowMarks();
    view_->RevealMarks();
}

// What is wrong on no page is a matter of the settings, but for records of the table.
void MainWindow::OpenFinding() {
    GoToFinding();
    if (found_.page == 0 && findings_->Current()->record == 0) ShowProperties();
}

void MainWindow::ShowMarks() {
    // During a run there are no results.
    if (control_->Running()) return;
    std::vector<PageMark> marks;
    const int page = session_->Page();
    const auto cells = DrawnCells(session_->Document(), page);
    const double height = session_->Document().TheDesk().CurrentDocument().pageHeight;

    const auto hits = pages_->HitsOn(page);
    const std::set<std::string> hitRows(hits.begin(), hits.end());
    const std::string hit = pages_->CurrentHit();
    Mark(cells, height, {{}, kHitColor}, marks, [&](const DrawnCell& cell) {
        return !cell.heading && cell.rowKey != hit && hitRows.contains(cell.rowKey);
    });
    Mark(cells, height, {{}, kHitColor, true}, marks, [&](const DrawnCell& cell) {
        return !cell.heading && !hit.empty() && cell.rowKey == hit;
    });
    if (findings_->isVisible()) MarkFindings(cells, height, marks);
    view_->SetMarks(std::move(marks));
}

void MainWindow::MarkFindings(const std::vector<DrawnCell>& cells, double sheetHeight,
                              std::vector<PageMark>& marks) {
    const host::Ref<host::IHostElement> shown = session_->Document().Gazetteer();
    const Finding* const current = findings_->Current();
    std::set<std::string> rows;
    for (const DrawnCell& cell : cells) rows.insert(cell.rowKey);
    for (const Finding& finding : session_->Findings().Kept())
        if (finding.element == shown && rows.contains(finding.row) &&
            (current == nullptr || finding != *current))
            Mark(cells, sheetHeight, {{}, kFindingColor}, marks,
                 [&](const DrawnCell& cell) { return IsOf(finding, finding.row, cell); });
    if (current != nullptr && current->element == shown)
        Mark(cells, sheetHeight, {{}, kFindingColor, true}, marks,
             [&](const DrawnCell& cell) { return IsOf(*current, found_.rowKey, cell); });
}

}  // namespace app
