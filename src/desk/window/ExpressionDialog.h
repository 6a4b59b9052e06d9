#pragma once

#include <QDialog>
#include <memory>
#include <string>
#include <vector>

#include "desk/window/ExpressionPreview.h"

class QDialogButtonBox;
class QLabel;
class QListWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace desk {

class ExpressionText;

/// What an expression is written with.
struct ExpressionParts {
    host::Ref<host::IHostTable> table;  ///< May be null.
    std::vector<host::TokenDescription> tokens;
    host::Ref<host::IHostLocale> locale;
};

/// The window in which an expression is written: the fields, the tokens, the text, and what the
/// first records give. Only a valid expression that is not empty can be confirmed.
class ExpressionDialog : public QDialog {
public:
    ExpressionDialog(ExpressionParts parts, const std::string& expression, QWidget* parent);
    ~ExpressionDialog() override;

    std::string Expression() const;

private:
    void LayOut();
    QWidget* Column(const QString& label, QTreeWidget* list, const QString& button);
    void FillFields();
    void FillTokens();
    void OpenPreview();
    void Insert(const QTreeWidgetItem* item);
    void Judge();
    void ShowTexts(const std::string& expression);

    ExpressionParts parts_;
    std::unique_ptr<ExpressionPreview> preview_;  ///< Null where the table cannot be read.
    QTreeWidget* fields_;
    QTreeWidget* tokens_;
    ExpressionText* text_;
    QLabel* finding_;
    QListWidget* texts_;
    QLabel* note_;
    QDialogButtonBox* buttons_;
};

}  // namespace desk
