#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

#include "desk/window/ObjectSet.h"
#include "faults/StoryTest.h"
#include "page/GazetteerPropertyPage.h"
#include "page/frmGazetteerPropertyPage.h"
#include "support/SetDump.h"
#include "support/Widgets.h"

/// What a user does at the property page, with calls of the host failing in turn.
namespace {

using faults::Story;
using faults::StoryTest;

class Site final : public host::IHostPageSite {
public:
    void PageChanged() override {}
};

/// The page on the story's element, as a property sheet would bring it up.
class Sheet {
public:
    explicit Sheet(StoryTest& story) : page(story.host) {
        page.SetPageSite(std::make_shared<Site>());
        page.SetObjects(std::make_shared<desk::ObjectSet>(
            std::vector<host::Ref<host::IHostObject>>{story.element}));
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

    void Choose(const char* list, const char* entry) {
        auto& box = support::Part<QComboBox>(*form, list);
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
    support::Part<QLineEdit>(*theSheet->form, "txtColumnWidth").setText("1.25");
    support::Part<QCheckBox>(*theSheet->form, "chkSortIndex").click();
    theSheet->Choose("cmbSection", "Index");
    theSheet->Choose("cmbSection", "Maps");
    theSheet->Choose("CmbTemplate", "Map sheet");
    theSheet->Choose("cmbMapSeriesFrame", "Main map");
}

// A page whose form could not be made has none, one that could not be filled says so.
std::string WorkingCopy() {
    if (!theSheet || !theSheet->form || !theSheet->form->IsFilled()) return "not filled";
    return support::Dump(*theSheet->form->GazetteerProperties());
}

class PageFaults : public StoryTest {
protected:
    ~PageFaults() override { theSheet = nullptr; }
};

TEST_P(PageFaults, AreToldAndLoseNothing) {
    Tell(GetParam());
}

void OpenAndEdit(StoryTest& story) {
    Open(story);
    Edit(story);
}

const Story kStories[] = {
    {.name = "Open", .prepare = Close, .act = Open, .again = Close, .look = WorkingCopy},
    {.name = "Edit", .prepare = Open, .act = Edit, .again = Open, .look = WorkingCopy, .stride = 3},
    {.name = "Apply",
     .prepare = OpenAndEdit,
     .act = [](StoryTest&) { theSheet->page.Apply(); },
     .look = WorkingCopy,
     .stride = 11},
};

INSTANTIATE_TEST_SUITE_P(AllOf, PageFaults, testing::ValuesIn(kStories),
                         testing::PrintToStringParamName());

}  // namespace
