#include "desk/window/SheetPage.h"

#include <QGridLayout>
#include <QMessageBox>
#include <exception>
#include <utility>

#include "desk/window/WidgetText.h"

namespace desk {

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
    // The tab's own background is to be seen.
    frame->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    Guarded([&](host::IComPropertyPage& shown) {
        title_ = ToQt(shown.Title());
        shown.SetPageSite(site);
        shown.SetObjects(objects);
        TakeWindow();
    });
}

SheetPage::~SheetPage() {
    LetGo();
}

void SheetPage::TakeWindow() {
    window_ = QWidget::find(static_cast<WId>(page_->Activate()));
    if (window_ == nullptr) return;
    // Its window becomes a widget among others, and stays hidden until the page shows itself.
    window_->hide();
    window_->setAttribute(Qt::WA_NativeWindow, false);
    window_->setParent(widget(), Qt::Widget);
    auto* layout = static_cast<QGridLayout*>(widget()->layout());
    layout->addWidget(window_, 0, 0);
    // Room for the page as it says, or for its widgets if they want more.
    layout->addItem(new QSpacerItem(page_->Width(), page_->Height(), QSizePolicy::MinimumExpanding,
                                    QSizePolicy::MinimumExpanding),
                    0, 0);
}

void SheetPage::ShowPage() {
    Guarded([](host::IComPropertyPage& page) { page.Show(); });
}

void SheetPage::HidePage() {
    Guarded([](host::IComPropertyPage& page) { page.Hide(); });
}

void SheetPage::ApplyIfDirty() {
    Guarded([](host::IComPropertyPage& page) {
        if (page.IsPageDirty()) page.Apply();
    });
}

void SheetPage::Cancel() {
    Guarded([](host::IComPropertyPage& page) { page.Cancel(); });
}

void SheetPage::LetGo() {
    // The page owns its window, which must not go with the sheet.
    if (window_ != nullptr) {
        window_->hide();
        window_->setParent(nullptr);
    }
    Guarded([](host::IComPropertyPage& page) { page.Deactivate(); });
    page_.reset();
}

QSize SheetPage::sizeHint() const {
    return widget()->sizeHint();
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

}  // namespace desk
