#include "desk/window/PropertySheet.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QShowEvent>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <exception>
#include <functional>
#include <utility>

#include "desk/window/DialogParent.h"
#include "desk/window/WidgetText.h"
#include "host/PropertyPages.h"

namespace desk {
namespace {

// Around tabs and buttons, in pixels: little, since pages are high and screens low.
constexpr int kMargin = 6;

class PageSite final : public host::IHostPageSite {
public:
    explicit PageSite(std::function<void()> changed) : changed_(std::move(changed)) {}
    void PageChanged() override { changed_(); }

private:
    std::function<void()> changed_;
};

}  // namespace

/// A tab with the window of its page. Scrolls if the page does not fit. Shows the page's failures
/// in a message; none propagates.
class SheetPage : public QScrollArea {
public:
    /// Passes the site and the objects to the page and embeds its window, still hidden.
    SheetPage(host::Ref<host::IComPropertyPage> page, const host::Ref<host::IHostPageSite>& site,
              const host::Ref<host::IHostObjectSet>& objects);
    ~SheetPage() override { Release(); }

    QString Title() const { return title_; }
    void ShowPage() {
        Guarded([](host::IComPropertyPage& page) { page.Show(); });
    }
    void HidePage() {
        Guarded([](host::IComPropertyPage& page) { page.Hide(); });
    }
    void ApplyIfDirty();
    void Cancel() {
        Guarded([](host::IComPropertyPage& page) { page.Cancel(); });
    }
    /// Returns the window to the page and releases the page. A second call has no effect.
    void Release();

    QSize sizeHint() const override { return widget()->sizeHint(); }

private:
    void TakeWindow();
    void Guarded(const std::function<void(host::IComPropertyPage&)>& call);

    host::Ref<host::IComPropertyPage> page_;
    QPointer<QWidget> window_;
    QString title_;
};

SheetPage::SheetPage(host::Ref<host::IComPropertyPage> page,
                     const host::Ref<host::IHostPageSite>& site,
                     const host::Ref<host::IHostObjectSet>& objects)
    : page_(std::move(page)) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    auto* frame = new QWidget;
    auto* layout = new QGridLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    setWidget(frame);
    // Shows the tab's own background.
    frame->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    Guarded([&](host::IComPropertyPage& shown) {
        title_ = ToQt(shown.Title());
        shown.SetPageSite(site);
        shown.SetObjects(objects);
        TakeWindow();
    });
}

void SheetPage::TakeWindow() {
    window_ = QWidget::find(static_cast<WId>(page_->Activate()));
    if (window_ == nullptr) return;
    // Turns the top-level window into a child widget.
    window_->hide();
    window_->setAttribute(Qt::WA_NativeWindow, false);
    window_->setParent(widget(), Qt::Widget);
    auto* layout = static_cast<QGridLayout*>(widget()->layout());
    layout->addWidget(window_, 0, 0);
    // Reserves the page's stated size, or more if its widgets need more.
    layout->addItem(new QSpacerItem(page_->Width(), page_->Height(), QSizePolicy::MinimumExpanding,
                                    QSizePolicy::MinimumExpanding),
                    0, 0);
}

void SheetPage::ApplyIfDirty() {
    Guarded([](host::IComPropertyPage& page) {
        if (page.IsPageDirty()) page.Apply();
    });
}

void SheetPage::Release() {
    // The page owns its window, so the sheet must not delete it.
    if (window_ != nullptr) {
        window_->hide();
        window_->setParent(nullptr);
    }
    Guarded([](host::IComPropertyPage& page) { page.Deactivate(); });
    page_.reset();
}

void SheetPage::Guarded(const std::function<void(host::IComPropertyPage&)>& call) {
    if (!page_) return;
    QString fault;
    try {
        call(*page_);
        return;
    } catch (const std::exception& failure) {
        fault = ShownLines(failure.what());
    }
    QMessageBox box(QMessageBox::Warning, "Property Page",
                    "The property page " + title_ + " failed: " + fault, QMessageBox::Ok, window());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

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
        if (page->Applies(objects_)) AddPage(page);
    connect(buttons_, &QDialogButtonBox::clicked, this, &PropertySheet::HandleButton);
    LayOut();
    UpdateButtons();
    ResizeToScreen(*this, sizeHint());
}

PropertySheet::~PropertySheet() {
    Release();
}

void PropertySheet::AddPage(const host::Ref<host::IComPropertyPage>& page) {
    // A page may keep its site after the sheet is deleted.
    const auto site = std::make_shared<PageSite>([sheet = QPointer<PropertySheet>(this)] {
        if (sheet != nullptr) sheet->NoteChange();
    });
    pages_.push_back(new SheetPage(page, site, objects_));
}

void PropertySheet::LayOut() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin);
    if (pages_.empty()) {
        auto* nothing = new QLabel("No property page applies to the selected element.", this);
        nothing->setAlignment(Qt::AlignCenter);
        nothing->setMargin(nothing->fontMetrics().height() * 2);
        layout->addWidget(nothing, 1);
    } else {
        tabs_ = new QTabWidget(this);
        tabs_->setTabBarAutoHide(true);
        for (SheetPage* page : pages_) tabs_->addTab(page, page->Title());
        connect(tabs_, &QTabWidget::currentChanged, this, &PropertySheet::ShowTab);
        layout->addWidget(tabs_, 1);
    }
    layout->addWidget(buttons_);
}

void PropertySheet::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    // Queued, so that messages from the page's Show appear over the visible sheet.
    if (tabs_ != nullptr && shownTab_ < 0)
        QMetaObject::invokeMethod(
            this, [this] { ShowTab(tabs_->currentIndex()); }, Qt::QueuedConnection);
}

void PropertySheet::ShowTab(int tab) {
    if (tab == shownTab_ || !isVisible()) return;
    const int before = std::exchange(shownTab_, tab);
    if (before >= 0) pages_[static_cast<std::size_t>(before)]->HidePage();
    if (tab >= 0) pages_[static_cast<std::size_t>(tab)]->ShowPage();
}

void PropertySheet::HandleButton(QAbstractButton* button) {
    if (applying_) return;
    switch (buttons_->standardButton(button)) {
        case QDialogButtonBox::Apply:
            if (Apply()) ShowRefusedText();
            break;
        case QDialogButtonBox::Ok:
            if (changed_ && (!Apply() || ShowRefusedText())) return;
            accept();
            break;
        default:
            reject();
    }
}

// Shows a box that does not accept its text, and returns whether there is one.
bool PropertySheet::ShowRefusedText() const {
    for (auto* box : findChildren<QLineEdit*>()) {
        if (!box->isEnabled() || box->hasAcceptableInput()) continue;
        for (QWidget* part = box; part != this; part = part->parentWidget()) {
            auto* tabs = qobject_cast<QTabWidget*>(part->parentWidget()->parentWidget());
            if (tabs != nullptr && tabs->indexOf(part) >= 0) tabs->setCurrentWidget(part);
            if (auto* area = qobject_cast<QScrollArea*>(part)) area->ensureWidgetVisible(box);
        }
        box->setFocus();
        box->selectAll();
        return true;
    }
    return false;
}

bool PropertySheet::Apply() {
    applying_ = true;
    changed_ = false;
    UpdateButtons();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const auto work = [this] {
        for (SheetPage* page : pages_) page->ApplyIfDirty();
    };
    bool done = true;
    if (applyThrough_)
        done = applyThrough_(work);
    else
        work();
    QApplication::restoreOverrideCursor();
    applying_ = false;
    if (!done) changed_ = true;
    UpdateButtons();
    if (done) Q_EMIT Applied();
    return done;
}

void PropertySheet::done(int result) {
    // The dialog must stay open during an apply.
    if (applying_) return;
    if (result != Accepted)
        for (SheetPage* page : pages_) page->Cancel();
    hide();
    Release();
    QDialog::done(result);
}

void PropertySheet::Release() {
    for (SheetPage* page : pages_) page->Release();
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
