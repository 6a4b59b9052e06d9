#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>

#include "desk/window/ObjectSet.h"
#include "desk/window/PropertySheet.h"
#include "desk/window/WindowDialogs.h"
#include "host/Failure.h"
#include "support/Modal.h"

namespace {

using support::WhenModal;

/// What a page's objects are: a value that it edits.
struct Value : host::IHostObject {
    explicit Value(QString first) : text(std::move(first)) {}
    QString text;
};

/// A page with one text box, which writes down how it is called.
class Page final : public host::IComPropertyPage {
public:
    Page(std::string title, std::int32_t priority, QStringList& calls)
        : title_(std::move(title)), priority_(priority), calls_(calls) {
        window_ = std::make_unique<QWidget>();
        edit_ = new QLineEdit(window_.get());
        QObject::connect(edit_, &QLineEdit::textEdited, edit_, [this] {
            dirty_ = true;
            site_->PageChanged();
        });
        window_->resize(410, 320);
    }

    void SetTitle(const std::string&) override {}
    std::string Title() override { return title_; }
    void SetPriority(std::int32_t) override {}
    std::int32_t Priority() override { return priority_; }
    std::int32_t Width() override { return window_->width(); }
    std::int32_t Height() override { return window_->height(); }
    void SetPageSite(const host::Ref<host::IHostPageSite>& site) override {
        Note("site");
        site_ = site;
    }
    bool IsPageDirty() override { return dirty_; }
    std::string HelpFile() override { return {}; }
    std::int32_t HelpContextID(std::int32_t) override { return 0; }
    host::WindowHandle Activate() override {
        Note("activate");
        return static_cast<host::WindowHandle>(window_->winId());
    }
    void Deactivate() override {
        Note("deactivate");
        window_.reset();
    }
    bool Applies(const host::Ref<host::IHostObjectSet>& objects) override {
        objects->Reset();
        return host::As<Value>(objects->Next()) != nullptr;
    }
    void SetObjects(const host::Ref<host::IHostObjectSet>& objects) override {
        Note("objects");
        objects->Reset();
        value_ = host::As<Value>(objects->Next());
        edit_->setText(value_->text);
    }
    void Show() override {
        Note(window_->window()->isVisible() ? "show" : "show too early");
        window_->setVisible(true);
        if (onShow) onShow();
    }
    void Hide() override {
        Note("hide");
        window_->setVisible(false);
    }
    void Apply() override {
        Note("apply");
        if (fails) throw host::Failure(host::kFailureUnspecified, "Page", "Out of <ink>.");
        value_->text = edit_->text();
    }
    void Cancel() override { Note("cancel"); }

    void Type(const char* text) { QTest::keyClicks(edit_, text); }
    QWidget& Window() { return *window_; }

    std::function<void()> onShow;
    bool fails = false;

private:
    void Note(const QString& call) { calls_ << QString::fromStdString(title_) + " " + call; }

    std::string title_;
    std::int32_t priority_;
    QStringList& calls_;
    std::unique_ptr<QWidget> window_;
    QLineEdit* edit_ = nullptr;
    host::Ref<host::IHostPageSite> site_;
    host::Ref<Value> value_;
    bool dirty_ = false;
};

class PropertySheetTest : public testing::Test {
protected:
    int Show(const std::function<void(desk::PropertySheet&)>& act) {
        desk::PropertySheet sheet({second_, first_}, objects_, nullptr);
        QObject::connect(&sheet, &desk::PropertySheet::Applied, &sheet, [this] { ++applied_; });
        WhenModal([&](QWidget& shown) {
            EXPECT_EQ(&shown, &sheet);
            QTest::qWait(20);
            calls_.clear();
            act(sheet);
        });
        return sheet.exec();
    }
    static QPushButton& Button(desk::PropertySheet& sheet, QDialogButtonBox::StandardButton which) {
        return *sheet.findChild<QDialogButtonBox*>()->button(which);
    }

    QStringList calls_;
    host::Ref<Page> first_ = std::make_shared<Page>("Colour", 1, calls_);
    host::Ref<Page> second_ = std::make_shared<Page>("Size", 2, calls_);
    host::Ref<Value> value_ = std::make_shared<Value>("a");
    host::Ref<host::IHostObjectSet> objects_ =
        std::make_shared<desk::ObjectSet>(std::vector<host::Ref<host::IHostObject>>{value_});
    int applied_ = 0;
};

TEST_F(PropertySheetTest, TakesPagesThroughTheirWholeLife) {
    desk::PropertySheet sheet({second_, first_}, objects_, nullptr);
    EXPECT_EQ(calls_, (QStringList{"Colour site", "Colour objects", "Colour activate", "Size site",
                                   "Size objects", "Size activate"}));
    EXPECT_EQ(first_->Window().window(), &sheet);
    EXPECT_TRUE(first_->Window().isHidden());
    calls_.clear();
    WhenModal([&](QWidget&) {
        QTest::qWait(20);
        EXPECT_EQ(calls_, QStringList{"Colour show"});
        EXPECT_TRUE(first_->Window().isVisible());
        EXPECT_GE(first_->Window().width(), 410);
        EXPECT_GE(first_->Window().height(), 320);
        auto* tabs = sheet.findChild<QTabWidget*>();
        EXPECT_EQ(tabs->tabText(0) + tabs->tabText(1), "ColourSize");
        tabs->setCurrentIndex(1);
        EXPECT_TRUE(second_->Window().isVisible());
        QTest::keyClick(&sheet, Qt::Key_Escape);
    });
    EXPECT_EQ(sheet.exec(), QDialog::Rejected);
    EXPECT_EQ(calls_, (QStringList{"Colour show", "Colour hide", "Size show", "Colour cancel",
                                   "Size cancel", "Colour deactivate", "Size deactivate"}));
    EXPECT_EQ(first_.use_count(), 1);
    EXPECT_EQ(value_->text, "a");
}

TEST_F(PropertySheetTest, AppliesWhatChangedAndNothingTwice) {
    EXPECT_EQ(Show([&](desk::PropertySheet& sheet) {
                  auto& apply = Button(sheet, QDialogButtonBox::Apply);
                  EXPECT_FALSE(apply.isEnabled());
                  first_->Type("b");
                  EXPECT_TRUE(apply.isEnabled());
                  EXPECT_EQ(value_->text, "a");
                  apply.click();
                  EXPECT_EQ(value_->text, "ab");
                  EXPECT_FALSE(apply.isEnabled());
                  EXPECT_EQ(applied_, 1);
                  Button(sheet, QDialogButtonBox::Ok).click();
              }),
              QDialog::Accepted);
    EXPECT_EQ(calls_, (QStringList{"Colour apply", "Colour deactivate", "Size deactivate"}));
    EXPECT_EQ(applied_, 1);
}

TEST_F(PropertySheetTest, AppliesByReturnOnceMoreAfterAnotherEdit) {
    Show([&](desk::PropertySheet& sheet) {
        first_->Type("b");
        Button(sheet, QDialogButtonBox::Apply).click();
        first_->Type("c");
        EXPECT_TRUE(Button(sheet, QDialogButtonBox::Apply).isEnabled());
        QTest::keyClick(&sheet, Qt::Key_Return);
    });
    EXPECT_EQ(value_->text, "abc");
    EXPECT_EQ(applied_, 2);
}

TEST_F(PropertySheetTest, ShowsAPagesMessagesOverItself) {
    desk::PropertySheet sheet({first_}, objects_, nullptr);
    bool wasOverTheSheet = false;
    first_->onShow = [&] {
        WhenModal([&](QWidget& message) {
            wasOverTheSheet = message.parentWidget() == &sheet && sheet.isVisible();
            QTest::keyClick(&message, Qt::Key_Return);
        });
        desk::WindowDialogs([] {
            return nullptr;
        }).MessageBox({"Invalid", "Too wide.", host::kStopOk, nullptr});
        sheet.reject();
    };
    sheet.exec();
    EXPECT_TRUE(wasOverTheSheet);
}

TEST_F(PropertySheetTest, TellsTheFailureOfAPageAndGoesOn) {
    first_->fails = true;
    Show([&](desk::PropertySheet& sheet) {
        first_->Type("b");
        WhenModal([](QWidget& message) {
            EXPECT_EQ(dynamic_cast<QMessageBox&>(message).text(),
                      "The property page Colour failed: Out of <ink>.");
            QTest::keyClick(&message, Qt::Key_Return);
        });
        Button(sheet, QDialogButtonBox::Apply).click();
        Button(sheet, QDialogButtonBox::Cancel).click();
    });
    EXPECT_EQ(value_->text, "a");
    EXPECT_EQ(calls_.back(), "Size deactivate");
}

TEST_F(PropertySheetTest, ScrollsAPageThatTheScreenHasNoRoomFor) {
    first_->Window().resize(3000, 2000);
    Show([&](desk::PropertySheet& sheet) {
        const QSize room = sheet.screen()->availableSize();
        EXPECT_TRUE(sheet.width() <= room.width() && sheet.height() <= room.height());
        EXPECT_GE(first_->Window().width(), 3000);
        sheet.reject();
    });
}

TEST_F(PropertySheetTest, SaysThatNoPageApplies) {
    desk::PropertySheet sheet(
        {first_, second_},
        std::make_shared<desk::ObjectSet>(std::vector<host::Ref<host::IHostObject>>{}), nullptr);
    EXPECT_EQ(sheet.findChild<QLabel*>()->text(),
              "No property page applies to the selected element.");
    EXPECT_EQ(sheet.findChild<QTabWidget*>(), nullptr);
    EXPECT_TRUE(calls_.isEmpty());
}

TEST_F(PropertySheetTest, GivesWindowsBackWhereItIsNeverShown) {
    { const desk::PropertySheet sheet({first_}, objects_, nullptr); }
    EXPECT_EQ(calls_.back(), "Colour deactivate");
}

}  // namespace
