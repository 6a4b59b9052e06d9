#include <QLabel>
#include <QMessageBox>
#include <QTabWidget>

#include "desk/window/ObjectSet.h"
#include "desk/window/PropertySheet.h"
#include "host/Failure.h"
#include "support/Widgets.h"

namespace {

using support::EndButton;
using support::WhenModal;

/// A page with one text box, which writes down how it is called.
class Page final : public host::IComPropertyPage {
public:
    Page(std::string title, std::int32_t priority, std::string& calls)
        : title_(std::move(title)), priority_(priority), calls_(calls) {
        QObject::connect(edit_, &QLineEdit::textEdited, edit_, [this] {
            dirty_ = true;
            site_->PageChanged();
        });
        window->resize(410, 320);
    }

    void SetTitle(const std::string&) override {}
    std::string Title() override { return title_; }
    void SetPriority(std::int32_t) override {}
    std::int32_t Priority() override { return priority_; }
    std::int32_t Width() override { return window->width(); }
    std::int32_t Height() override { return window->height(); }
    void SetPageSite(const host::Ref<host::IHostPageSite>& site) override {
        Note("site");
        site_ = site;
    }
    bool IsPageDirty() override { return dirty_; }
    std::string HelpFile() override { return {}; }
    std::int32_t HelpContextID(std::int32_t) override { return 0; }
    host::WindowHandle Activate() override {
        Note("activate");
        return static_cast<host::WindowHandle>(window->winId());
    }
    void Deactivate() override {
        Note("deactivate");
        window.reset();
    }
    bool Applies(const host::Ref<host::IHostObjectSet>& objects) override {
        objects->Reset();
        return objects->Next() != nullptr;
    }
    void SetObjects(const host::Ref<host::IHostObjectSet>&) override { Note("objects"); }
    void Show() override {
        // What it has to say is to lie over the sheet.
        Note(QApplication::activeModalWidget() == window->window() ? "show" : "show too early");
        window->setVisible(true);
    }
    void Hide() override {
        Note("hide");
        window->setVisible(false);
    }
    void Apply() override {
        Note("apply " + edit_->text().toStdString());
        if (fails) throw host::Failure(host::kFailureUnspecified, "Page", "Out of <ink>.");
    }
    void Cancel() override { Note("cancel"); }

    void Type(const char* text) { QTest::keyClicks(edit_, text); }

    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    bool fails = false;

private:
    void Note(const std::string& call) { calls_ += title_ + " " + call + ", "; }

    std::string title_;
    std::int32_t priority_;
    std::string& calls_;
    QLineEdit* edit_ = new QLineEdit(window.get());
    host::Ref<host::IHostPageSite> site_;
    bool dirty_ = false;
};

class PropertySheetTest : public testing::Test {
protected:
    int Show(const std::function<void(desk::PropertySheet&)>& act) {
        desk::PropertySheet sheet({second_, first_}, objects_, nullptr);
        QObject::connect(&sheet, &desk::PropertySheet::Applied, &sheet, [this] { ++applied_; });
        WhenModal([&](QWidget&) {
            QTest::qWait(20);
            act(sheet);
        });
        return sheet.exec();
    }

    std::string calls_;
    host::Ref<Page> first_ = std::make_shared<Page>("Colour", 1, calls_);
    host::Ref<Page> second_ = std::make_shared<Page>("Size", 2, calls_);
    host::Ref<host::IHostObjectSet> objects_ = std::make_shared<desk::ObjectSet>(
        std::vector<host::Ref<host::IHostObject>>{std::make_shared<host::IHostObject>()});
    int applied_ = 0;
};

TEST_F(PropertySheetTest, TakesPagesThroughTheirWholeLife) {
    EXPECT_EQ(Show([&](desk::PropertySheet& sheet) {
                  EXPECT_EQ(first_->window->window(), &sheet);
                  EXPECT_TRUE(first_->window->isVisible());
                  EXPECT_EQ(first_->window->size().expandedTo({410, 320}), first_->window->size());
                  sheet.findChild<QTabWidget*>()->setCurrentIndex(1);
                  EXPECT_TRUE(second_->window->isVisible());
                  first_->Type("b");
                  support::Escape(sheet);
              }),
              QDialog::Rejected);
    EXPECT_EQ(
        calls_,
        "Colour site, Colour objects, Colour activate, Size site, Size objects, Size activate, "
        "Colour show, Colour hide, Size show, Colour cancel, Size cancel, Colour deactivate, "
        "Size deactivate, ");
    EXPECT_EQ(first_.use_count(), 1);
}

TEST_F(PropertySheetTest, AppliesWhatChangedAndNothingTwice) {
    EXPECT_EQ(Show([&](desk::PropertySheet& sheet) {
                  calls_.clear();
                  auto& apply = EndButton(sheet, QDialogButtonBox::Apply);
                  for (const int times : {1, 2}) {
                      EXPECT_FALSE(apply.isEnabled()) << times;
                      first_->Type("b");
                      apply.click();
                      EXPECT_EQ(applied_, times);
                  }
                  EndButton(sheet, QDialogButtonBox::Ok).click();
              }),
              QDialog::Accepted);
    EXPECT_EQ(calls_, "Colour apply b, Colour apply bb, Colour deactivate, Size deactivate, ");
    EXPECT_EQ(applied_, 2);
}

// Its page has no room on the screen, too.
TEST_F(PropertySheetTest, TellsTheFailureOfAPageAndGoesOn) {
    first_->fails = true;
    first_->window->resize(3000, 2000);
    Show([&](desk::PropertySheet& sheet) {
        const QSize room = sheet.screen()->availableSize();
        EXPECT_TRUE(sheet.width() <= room.width() && sheet.height() <= room.height());
        EXPECT_GE(first_->window->width(), 3000) << "it is scrolled";
        first_->Type("b");
        WhenModal([](QWidget& message) {
            EXPECT_EQ(dynamic_cast<QMessageBox&>(message).text(),
                      "The property page Colour failed: Out of <ink>.");
            support::Escape(message);
        });
        EndButton(sheet, QDialogButtonBox::Apply).click();
        EndButton(sheet, QDialogButtonBox::Cancel).click();
    });
    EXPECT_TRUE(calls_.ends_with("Size deactivate, ")) << calls_;
}

TEST_F(PropertySheetTest, IsMadeAndNotShown) {
    const auto nothing =
        std::make_shared<desk::ObjectSet>(std::vector<host::Ref<host::IHostObject>>{});
    EXPECT_EQ(desk::PropertySheet({first_}, nothing, nullptr).findChild<QLabel*>()->text(),
              "No property page applies to the selected element.");
    EXPECT_EQ(calls_, "");
    { const desk::PropertySheet sheet({first_}, objects_, nullptr); }
    EXPECT_TRUE(calls_.ends_with("Colour deactivate, ")) << "its window is given back";
}

}  // namespace
