#include "desk/window/ExpressionEditor.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "desk/locale/IcuLocale.h"
#include "desk/window/ExpressionPreview.h"
#include "desk/window/ExpressionText.h"
#include "desk/window/TablePreview.h"
#include "desk/window/WidgetText.h"
#include "host/Failure.h"

namespace desk {
namespace {

/// The text that an item inserts into the expression.
constexpr int kInsertRole = Qt::UserRole;

constexpr char kEmptyHint[] =
    "An empty expression would leave the old one in place: write one, or press Cancel.";

/// Makes rows high enough for their wrapped text. A tree view wraps a text only if the row is
/// already high enough.
class WrappedItems : public QStyledItemDelegate {
public:
    explicit WrappedItems(QTreeWidget* list) : QStyledItemDelegate(list), list_(list) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        if (index.column() == 0) return size;
        const int margin = list_->style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
        const QRect text = option.fontMetrics.boundingRect(
            QRect(0, 0, list_->columnWidth(index.column()) - 2 * margin, 0), Qt::TextWordWrap,
            index.data().toString());
        return {0, text.height() + 2};
    }

private:
    QTreeWidget* list_;
};

/// A list of two columns in which Return inserts the current item.
class PieceList : public QTreeWidget {
public:
    PieceList(const QStringList& headers, QWidget* parent) : QTreeWidget(parent) {
        setHeaderLabels(headers);
        setRootIsDecorated(false);
        setWordWrap(true);
        setItemDelegate(new WrappedItems(this));
        setAllColumnsShowFocus(true);
        setTabKeyNavigation(false);
        header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
        // The heights of wrapped texts depend on the width.
        connect(header(), &QHeaderView::sectionResized, this,
                [this] { scheduleDelayedItemsLayout(); });
    }

    void Add(const QString& name, const QString& meaning, const QString& inserted) {
        auto* item = new QTreeWidgetItem(this, {name, meaning});
        item->setData(0, kInsertRole, inserted);
        item->setToolTip(1, meaning);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        QTreeWidget::keyPressEvent(event);
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) event->accept();
    }
};

QLabel* WrappedLabel(const char* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

/// Turns a finding such as "no field named Foo" into a sentence.
QString Sentence(const std::string& finding) {
    QString sentence = ToQt(finding) + ".";
    sentence[0] = sentence[0].toUpper();
    return sentence;
}

struct ExpressionParts {
    host::Ref<host::IHostTable> table;  ///< May be null.
    std::vector<host::TokenDescription> tokens;
    host::Ref<host::IHostLocale> locale;
};

/// The expression dialog: fields, tokens, text, and a preview with the first records. Only a valid
/// expression that is not empty can be confirmed.
class ExpressionDialog : public QDialog {
public:
    ExpressionDialog(ExpressionParts parts, const std::string& expression, QWidget* parent);

    std::string Expression() const;

private:
    void LayOut();
    QWidget* Column(const QString& label, QTreeWidget* list, const QString& button);
    void FillFields();
    void FillTokens();
    void OpenPreview();
    void Insert(const QTreeWidgetItem* item);
    void CheckText();
    void ShowTexts(const std::string& expression);

    ExpressionParts parts_;
    std::unique_ptr<ExpressionPreview> preview_;  ///< Null if the table cannot be read.
    QTreeWidget* fields_;
    QTreeWidget* tokens_;
    ExpressionText* text_;
    QLabel* finding_;
    QListWidget* texts_;
    QLabel* note_;
    QDialogButtonBox* buttons_;
};

ExpressionDialog::ExpressionDialog(ExpressionParts parts, const std::string& expression,
                                   QWidget* parent)
    : QDialog(parent),
      parts_(std::move(parts)),
      fields_(new PieceList({"Field", "Type"}, this)),
      tokens_(new PieceList({"Token", "Stands for"}, this)),
      text_(new ExpressionText(expression, this)),
      finding_(WrappedLabel("finding", this)),
      texts_(new QListWidget(this)),
      note_(WrappedLabel("note", this)),
      buttons_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this)) {
    setWindowTitle("Text Expression");
    fields_->setObjectName("fields");
    tokens_->setObjectName("tokens");
    text_->setObjectName("expression");
    texts_->setObjectName("texts");
    LayOut();
    FillFields();
    FillTokens();
    OpenPreview();
    connect(text_, &QPlainTextEdit::textChanged, this, &ExpressionDialog::CheckText);
    connect(buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    CheckText();
    text_->setFocus();
}

void ExpressionDialog::LayOut() {
    auto* layout = new QVBoxLayout(this);
    auto* lists = new QHBoxLayout;
    lists->addWidget(Column("&Fields of the table:", fields_, "Insert Fi&eld"), 2);
    lists->addWidget(Column("&Tokens:", tokens_, "Insert T&oken"), 3);
    layout->addLayout(lists, 3);
    auto* textLabel = new QLabel("E&xpression:", this);
    textLabel->setBuddy(text_);
    layout->addWidget(textLabel);
    layout->addWidget(text_, 1);
    layout->addWidget(finding_);
    auto* textsLabel = new QLabel("First &records:", this);
    textsLabel->setBuddy(texts_);
    layout->addWidget(textsLabel);
    layout->addWidget(texts_, 2);
    layout->addWidget(note_);
    layout->addWidget(buttons_);
    texts_->setMinimumHeight(fontMetrics().lineSpacing() * 6);
    texts_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    // Reserves the line for the finding, so that the layout does not move.
    finding_->setMinimumHeight(fontMetrics().lineSpacing());
    ResizeToScreen(*this,
                   {fontMetrics().averageCharWidth() * 100, fontMetrics().lineSpacing() * 38});
}

QWidget* ExpressionDialog::Column(const QString& label, QTreeWidget* list, const QString& button) {
    auto* column = new QWidget(this);
    auto* heading = new QLabel(label, column);
    heading->setBuddy(list);
    auto* insert = new QPushButton(button, column);
    insert->setAutoDefault(false);
    connect(insert, &QPushButton::clicked, this, [this, list] { Insert(list->currentItem()); });
    connect(list, &QTreeWidget::itemActivated, this, &ExpressionDialog::Insert);
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(heading);
    list->setMinimumHeight(fontMetrics().lineSpacing() * 4);
    layout->addWidget(list, 1);
    layout->addWidget(insert, 0, Qt::AlignLeft);
    return column;
}

void ExpressionDialog::FillFields() {
    if (!parts_.table) return;
    const auto fields = parts_.table->Fields();
    for (std::int32_t i = 0; i < fields->FieldCount(); ++i) {
        const auto field = fields->Field(i);
        const QString name = ToQt(field->Name());
        static_cast<PieceList*>(fields_)->Add(name, TypeInWords(*field), "[" + name + "]");
    }
    fields_->setCurrentItem(fields_->topLevelItem(0));
}

void ExpressionDialog::FillTokens() {
    for (const auto& token : parts_.tokens)
        static_cast<PieceList*>(tokens_)->Add(ToQt(token.token), ToQt(token.description),
                                              ToQt(token.token));
    tokens_->setCurrentItem(tokens_->topLevelItem(0));
}

void ExpressionDialog::OpenPreview() {
    try {
        preview_ = std::make_unique<ExpressionPreview>(parts_.table, parts_.locale);
        // Prevents a line break inside $$.
        note_->setText(ToQt(preview_->Sources()).replace("$$", "$\u2060$\u2060"));
    } catch (const host::Failure& failure) {
        note_->setText("The table cannot be read. " + ToQt(failure.cause));
    }
}

void ExpressionDialog::Insert(const QTreeWidgetItem* item) {
    if (item != nullptr) text_->Insert(item->data(0, kInsertRole).toString());
}

std::string ExpressionDialog::Expression() const {
    return text_->Text();
}

void ExpressionDialog::CheckText() {
    const std::string expression = Expression();
    const auto finding = ExpressionEngine(parts_.locale).Explain(parts_.table, expression);
    text_->Mark(finding.begin, finding.length);
    if (!finding.text.empty())
        finding_->setText(Sentence(finding.text));
    else
        finding_->setText(expression.empty() ? kEmptyHint : "");
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(finding.text.empty() && !expression.empty());
    texts_->clear();
    if (finding.text.empty() && preview_) ShowTexts(expression);
}

void ExpressionDialog::ShowTexts(const std::string& expression) {
    try {
        for (const std::string& text : preview_->Texts(expression)) texts_->addItem(ToQt(text));
    } catch (const host::Failure& failure) {
        texts_->clear();
        note_->setText(ToQt(failure.cause));
    }
}

}  // namespace

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
