#pragma once

#include <string>
#include <vector>

#include "desk/expressions/ExpressionEngine.h"
#include "desk/window/DialogParent.h"

namespace desk {

/// The expression editor of a host with a window, to be used as an ExpressionEngine::Editor.
class ExpressionEditor {
public:
    /// Numbers in the preview are written as in the locale, a name as IcuLocale takes it.
    explicit ExpressionEditor(ParentWidget parent, std::string locale = {});

    /// The new expression; empty where the user cancelled.
    std::string operator()(const host::Ref<host::IHostTable>& table, const std::string& expression,
                           const std::vector<host::TokenDescription>& tokens) const;

private:
    ParentWidget parent_;
    std::string locale_;
};

}  // namespace desk
