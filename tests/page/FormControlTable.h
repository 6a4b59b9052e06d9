#pragma once

#include <vector>

namespace page_test {

/// What a control of the form is when nothing has been filled in.
struct ExpectedControl {
    const char* name;
    const char* kind;
    const char* text = "";
    const char* flags = "";  ///< b bold, h hidden, d disabled, r read-only
};

struct ExpectedTab {
    const char* tabs;  ///< The tab control.
    const char* title;
    std::vector<ExpectedControl> controls;  ///< In reading order.
};

/// All tabs in reading order; the tabs of the column follow the tab that holds them.
const std::vector<ExpectedTab>& ExpectedTabs();

}  // namespace page_test
