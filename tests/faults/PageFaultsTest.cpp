#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

#include "faults/StoryTest.h"
#include "page/GazetteerPropertyPage.h"
#include "page/SetDump.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/Modal.h"

/// What a user does at the property page, with calls of the host failing in turn.
namespace {

using faults::Story;
using faults::StoryTest;

class OneElement final : public host::IHostObjectSet {
public:
    explicit OneElement(host::Ref<host::IHostObject> element) : element_(std::move(element)) {}
    void Reset() override { given_ = false; }
    host::Ref<host::IHostObject> Next() override {
        return std::exchange(given_, true) ? nullptr : element_;
    }

private:
    host::Ref<host::IHostObject> element_;
    bool given_ = false;
};

class Site final : public host::IHostPageSite {
public:
    void PageChanged() override {}
};

/// The page on the story's element, as a property sheet would bring it up.
class Sheet {
public:
    explicit Sheet(StoryTest& story) : page(story.host) {
        page.SetPageSite(std::make_shared<Site>());
        page.SetObjects(std::make_shared<OneElement>(story.element));
        form = qobject_cast<gazetteer::frmGazetteerPropertyPage*>(
            QWidget::find(static_cast<WId>(page.Activate())));
        page.Show();
    }
    ~Sheet() {
        page.Hide();
        page.Deactivate();
    }
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    template <class T>
    T& Control(const char* name) {
        return support::Part<T>(*form, name);
    }
    void Choose(const char* list, const char* entry) {
        auto& box = Control<QComboBox>(list);
        box.setCurrentIndex(box.findText(entry));
    }

    gazetteer::GazetteerPropertyPage page;
    gazetteer::frmGazetteerPropertyPage* form = nullptr;
};

std::unique_ptr<Sheet> theSheet;

void Close(StoryTest&) {
    theSheet = nullptr;
}

void Open(StoryTest& story) {
    Close(story);
    theSheet = std::make_unique<Sheet>(story);
}

// A width, a setting, and the link taken off and made again.
void Edit(StoryTest&) {
    theSheet->Control<QLineEdit>("txtColumnWidth").setText("1.25");
    theSheet->Control<QCheckBox>("chkSortIndex").click();
    theSheet->Choose("cmbSection", "Index");
    theSheet->Choose("cmbSection", "Maps");
    theSheet->Choose("CmbTemplate", "Map sheet");
    theSheet->Choose("cmbMapSeriesFrame", "Main map");
}

// A page whose form could not be made has none, one that could not be filled says so.
std::string WorkingCopy() {
    if (!theSheet || !theSheet->form || !theSheet->form->IsFilled()) return "not filled";
    return page_test::Dump(*theSheet->form->GazetteerProperties());
}

class PageFaults : public StoryTest {
protected:
    ~PageFaults() override { theSheet = nullptr; }
};

TEST_P(PageFaults, AreToldAndLoseNothing) {
    Tell(GetParam());
}

const Story kStories[] = {
    {"Open", 4, Close, Open, Close, WorkingCopy},
    {"Edit", 0, Open, Edit, Open, WorkingCopy, 3},
    {"Apply", 6,
     [](StoryTest& story) {
         Open(story);
         Edit(story);
     },
     [](StoryTest&) { theSheet->page.Apply(); }, [](StoryTest&) {}, WorkingCopy, 11},
};

INSTANTIATE_TEST_SUITE_P(AllOf, PageFaults, testing::ValuesIn(kStories),
                         [](const auto& story) { return std::string(story.param.name); });

}  // namespace
