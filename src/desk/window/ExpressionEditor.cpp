#include "desk/window/ExpressionEditor.h"

#include <utility>

#include "desk/locale/IcuLocale.h"
#include "desk/window/ExpressionDialog.h"

namespace desk {

ExpressionEditor::ExpressionEditor(ParentWidget parent, std::string locale)
    : parent_(std::move(parent)), locale_(std::move(locale)) {}

std::string ExpressionEditor::operator()(const host::Ref<host::IHostTable>& table,
                                         const std::string& expression,
                                         const std::vector<host::TokenDescription>& tokens) const {
    ExpressionDialog dialog({table, tokens, std::make_shared<IcuLocale>(locale_)}, expression,
                            DialogParent(parent_));
    return dialog.exec() == QDialog::Accepted ? dialog.Expression() : std::string();
}

}  // namespace desk
