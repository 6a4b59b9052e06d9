#pragma once

#include <string>
#include <vector>

#include "desk/expressions/ExpressionEngine.h"
#include "desk/window/DialogParent.h"

namespace desk {

/// Opens the expression dialog. Used as the desk's ExpressionEngine::Editor.
class ExpressionEditor {
public:
    /// The locale formats numbers in the preview; it is a name as for IcuLocale.
    explicit ExpressionEditor(ParentWidget parent, std::string locale = {});

    /// Returns the new expression, or an empty text if the user cancelled.
    std::string operator()(const host::Ref<host::IHostTable>& table, const std::string& expression,
                           const std::vector<host::TokenDescription>& tokens) const;

private:
    ParentWidget parent_;
    std::string locale_;
};

}  // namespace desk
