#pragma once

#include <QTabWidget>
#include <gtest/gtest.h>

#include "page/frmGazetteerPropertyPage.h"
#include "support/Modal.h"
#include "support/TestDesk.h"

namespace page_test {

/// What a control of the form is when nothing has been filled in.
struct ExpectedControl {
    std::string name;
    std::string flags;  ///< b bold, h hidden, d disabled, r read-only
};

struct ExpectedTab {
    const char* tabs;  ///< The tab control.
    const char* title;
    std::vector<ExpectedControl> controls;  ///< In reading order.
};

/// All tabs in reading order; the tabs of the column follow the tab that holds them.
const std::vector<ExpectedTab>& ExpectedTabs();

/// The form as it is loaded, before any element is given to it, but with its tabs open to the user.
class BareForm : public testing::Test {
public:
    BareForm() {
        for (auto* tabs : form_.findChildren<QTabWidget*>()) tabs->setEnabled(true);
    }

    template <class T = QWidget>
    T& Control(const std::string& name) {
        return support::Part<T>(form_, name.c_str());
    }
    void ShowTab(const std::string& tabs, const char* title) {
        if (tabs == "SSTabColumnProps") ShowTab("SSTabGazetteerProperties", "Index Layout");
        auto& control = Control<QTabWidget>(tabs);
        for (int i = 0; i < control.count(); ++i)
            if (control.tabText(i) == title) control.setCurrentIndex(i);
        QApplication::processEvents();
    }

    support::TestDesk desk_;
    gazetteer::frmGazetteerPropertyPage form_{desk_.HostRef()};
};

}  // namespace page_test
