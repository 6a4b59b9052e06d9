#include "desk/window/PropertySheet.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QShowEvent>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desk/window/DialogParent.h"
#include "desk/window/SheetPage.h"

namespace desk {

namespace {

class PageSite final : public host::IHostPageSite {
public:
    explicit PageSite(std::function<void()> changed) : changed_(std::move(changed)) {}
    void PageChanged() override { changed_(); }

private:
    std::function<void()> changed_;
};

}  // namespace

PropertySheet::PropertySheet(std::vector<host::Ref<host::IComPropertyPage>> pages,
                             host::Ref<host::IHostObjectSet> objects, QWidget* parent)
    : QDialog(parent),
      objects_(std::move(objects)),
      buttons_(new QDialogButtonBox(
          QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply, this)) {
    setWindowTitle("Properties");
    std::stable_sort(pages.begin(), pages.end(), [](const auto& one, const auto& other) {
        return one->Priority() < other->Priority();
    });
    for (const auto& page : pages)
        if (page->Applies(objects_)) Take(page);
    connect(buttons_, &QDialogButtonBox::clicked, this, &PropertySheet::Press);
    Lay();
    UpdateButtons();
    ResizeToScreen(*this, sizeHint());
}

PropertySheet::~PropertySheet() {
    LetGo();
}

void PropertySheet::Take(const host::Ref<host::IComPropertyPage>& page) {
    // A page may hold on to its site for longer than the sheet lives.
    const auto site = std::make_shared<PageSite>([sheet = QPointer<PropertySheet>(this)] {
        if (sheet != nullptr) sheet->NoteChange();
    });
    pages_.push_back(new SheetPage(page, site, objects_));
}

void PropertySheet::Lay() {
    auto* layout = new QVBoxLayout(this);
    if (pages_.empty()) {
        auto* nothing = new QLabel("No property page applies to the selected element.", this);
        nothing->setAlignment(Qt::AlignCenter);
        nothing->setMargin(nothing->fontMetrics().height() * 2);
        layout->addWidget(nothing, 1);
    } else {
        tabs_ = new QTabWidget(this);
        for (SheetPage* page : pages_) tabs_->addTab(page, page->Title());
        connect(tabs_, &QTabWidget::currentChanged, this, &PropertySheet::Turn);
        layout->addWidget(tabs_, 1);
    }
    layout->addWidget(buttons_);
}

void PropertySheet::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // What a page has to say while it shows itself is to lie over the sheet, not in front of it.
    if (tabs_ != nullptr && shownTab_ < 0)
        QMetaObject::invokeMethod(
            this, [this] { Turn(tabs_->currentIndex()); }, Qt::QueuedConnection);
}

void PropertySheet::Turn(int tab) {
    if (tab == shownTab_ || !isVisible()) return;
    const int before = std::exchange(shownTab_, tab);
    if (before >= 0) pages_[static_cast<std::size_t>(before)]->HidePage();
    if (tab >= 0) pages_[static_cast<std::size_t>(tab)]->ShowPage();
}

void PropertySheet::Press(QAbstractButton* button) {
    if (applying_) return;
    switch (buttons_->standardButton(button)) {
        case QDialogButtonBox::Apply:
            Apply();
            break;
        case QDialogButtonBox::Ok:
            if (changed_) Apply();
            accept();
            break;
        default:
            reject();
    }
}

void PropertySheet::Apply() {
    applying_ = true;
    changed_ = false;
    UpdateButtons();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    for (SheetPage* page : pages_) page->ApplyIfDirty();
    QApplication::restoreOverrideCursor();
    applying_ = false;
    UpdateButtons();
    Q_EMIT Applied();
}

void PropertySheet::done(int result) {
    // A window must not close under an apply that still runs.
    if (applying_) return;
    if (result != Accepted)
        for (SheetPage* page : pages_) page->Cancel();
    hide();
    LetGo();
    QDialog::done(result);
}

void PropertySheet::LetGo() {
    for (SheetPage* page : pages_) page->LetGo();
    pages_.clear();
    if (tabs_ != nullptr) tabs_->disconnect(this);
    shownTab_ = -1;
}

void PropertySheet::NoteChange() {
    changed_ = true;
    UpdateButtons();
}

void PropertySheet::UpdateButtons() {
    buttons_->button(QDialogButtonBox::Apply)->setEnabled(changed_ && !applying_);
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(!applying_);
    buttons_->button(QDialogButtonBox::Cancel)->setEnabled(!applying_);
}

}  // namespace desk
