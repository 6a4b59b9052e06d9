#pragma once

#include <QApplication>
#include <QTabWidget>
#include <gtest/gtest.h>

#include "page/frmGazetteerPropertyPage.h"
#include "support/TestDesk.h"

namespace page_test {

/// The form as it is loaded, before any element is given to it, but with its tabs open to the user.
class BareForm : public testing::Test {
public:
    BareForm() {
        for (auto* tabs : form_.findChildren<QTabWidget*>()) tabs->setEnabled(true);
    }

    void ShowTab(const char* tabs, const char* title) {
        if (std::string(tabs) == "SSTabColumnProps")
            ShowTab("SSTabGazetteerProperties", "Index Layout");
        auto& control = *form_.findChild<QTabWidget*>(tabs);
        for (int i = 0; i < control.count(); ++i)
            if (control.tabText(i) == title) control.setCurrentIndex(i);
        QApplication::processEvents();
    }

    support::TestDesk desk_;
    gazetteer::frmGazetteerPropertyPage form_{desk_.HostRef()};
};

}  // namespace page_test
