#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

#include "app/document/Errors.h"
#include "app/document/KeyValues.h"
#include "app/window/Dialogs.h"
#include "app/window/PathField.h"
#include "app/window/WaitPointer.h"
#include "desk/window/WidgetText.h"
#include "model/Paths.h"

namespace app {
namespace {

enum Size { kLetter, kA4, kCustom };

constexpr double kLeastSheet = 1;  // Inches.
constexpr double kMostSheet = 200;
constexpr std::int32_t kMostNamed = 16;  // Some tables have hundreds of fields.

class NewDocumentDialog : public QDialog {
public:
    NewDocumentDialog(WindowSession& session, QWidget* parent);

    void SetTable(const QString& path) { table_->SetPath(path); }
    void accept() override;

private:
    QString ChooseTable();
    QString ChooseBook(const QString& present);
    void CheckTable();
    void UpdateSize();
    NewDocumentOptions Options() const;
    QWidget* MakeSize();

    WindowSession& session_;
    PathField* table_;
    QLabel* tableNote_;
    PathField* book_;
    QComboBox* size_;
    QDoubleSpinBox* width_;
    QDoubleSpinBox* height_;
    QCheckBox* ready_;
    QPushButton* create_;
};

QDoubleSpinBox* LengthBox(const QString& name, double value, QWidget* parent) {
    auto* box = new QDoubleSpinBox(parent);
    box->setAccessibleName(name);
    box->setRange(kLeastSheet, kMostSheet);
    box->setDecimals(2);
    box->setSingleStep(0.25);
    box->setSuffix(" in");
    box->setValue(value);
    return box;
}

NewDocumentDialog::NewDocumentDialog(WindowSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      table_(new PathField(
          "table", [this](const QString&) { return ChooseTable(); }, this)),
      tableNote_(new QLabel(this)),
      book_(new PathField(
          "book", [this](const QString& present) { return ChooseBook(present); }, this)),
      ready_(new QCheckBox("&Ready to print", this)) {
    setWindowTitle("New Document");
    tableNote_->setObjectName("tableNote");
    tableNote_->setTextFormat(Qt::PlainText);
    tableNote_->setWordWrap(true);
    tableNote_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    ready_->setObjectName("readyToPrint");
    ready_->setChecked(true);
    ready_->setToolTip(
        "Set small type with dot leaders in as many columns as fit, a running head and the sheet's "
        "number");
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    create_ = buttons->addButton("Create", QDialogButtonBox::AcceptRole);
    create_->setDefault(true);

    auto* form = new QFormLayout(this);
    form->addRow("&Listing table:", table_);
    form->addRow(QString(), tableNote_);
    form->addRow("&Map book (optional):", book_);
    form->addRow("&Page size:", MakeSize());
    static_cast<QLabel*>(form->labelForField(size_->parentWidget()))->setBuddy(size_);
    form->addRow(QString(), ready_);
    form->addRow(buttons);

    connect(table_, &PathField::Changed, this, &NewDocumentDialog::CheckTable);
    connect(size_, &QComboBox::currentIndexChanged, this, &NewDocumentDialog::UpdateSize);
    connect(buttons, &QDialogButtonBox::accepted, this, &NewDocumentDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &NewDocumentDialog::reject);
    size_->setCurrentIndex(QLocale().measurementSystem() == QLocale::MetricSystem ? kA4 : kLetter);
    UpdateSize();
    CheckTable();
}

QWidget* NewDocumentDialog::MakeSize() {
    auto* row = new QWidget(this);
    size_ = new QComboBox(row);
    size_->setObjectName("pageSize");
    size_->addItems({"Letter", "A4", "Custom"});
    width_ = LengthBox("Page width", 8.5, row);
    height_ = LengthBox("Page height", 11, row);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(size_);
    layout->addWidget(width_);
    layout->addWidget(new QLabel(QString(QChar(0x00D7)), row));
    layout->addWidget(height_);
    layout->addStretch(1);
    return row;
}

// The boxes show named sizes too, but cannot be edited then.
void NewDocumentDialog::UpdateSize() {
    const int size = size_->currentIndex();
    for (QDoubleSpinBox* const box : {width_, height_}) box->setEnabled(size == kCustom);
    if (size == kCustom) return;
    const PageSize named = ParsePageSize(size == kA4 ? "a4" : "letter");
    width_->setValue(named.width);
    height_->setValue(named.height);
}

// Shows the fields of the table, or why it cannot be used.
void NewDocumentDialog::CheckTable() {
    QString note = "A dBase table with a field Page and, as a rule, Listing, Row and Column.";
    bool usable = false;
    const QString path = table_->Path();
    if (!path.isEmpty() && !QFileInfo(path).isFile()) {
        note = "There is no such file.";
    } else if (!path.isEmpty()) {
        try {
            const auto table = gazetteer::OpenTableFile(session_.Host(), desk::FromQt(path));
            const auto fields = table->Fields();
            usable = fields->FindField("Page") >= 0;
            note = (usable ? "Fields: " : "The table has no field Page; its fields are ") +
                   desk::ToQt(FieldNames(*fields, kMostNamed)) + (usable ? "" : ".");
        } catch (const std::exception&) {
            note = desk::ToQt(CurrentSentence());
        }
    }
    tableNote_->setText(note);
    create_->setEnabled(usable);
}

NewDocumentOptions NewDocumentDialog::Options() const {
    NewDocumentOptions options;
    options.listingDatabase = desk::FromQt(table_->Path());
    options.book = desk::FromQt(book_->Path());
    const int size = size_->currentIndex();
    if (size == kA4) options.pageSize = "a4";
    if (size == kCustom)
        options.pageSize = NumberText(width_->value()) + 'x' + NumberText(height_->value());
    return options;
}

void NewDocumentDialog::accept() {
    if (!create_->isEnabled()) return;
    try {
        const WaitPointer wait;
        session_.StartNew(Options(), ready_->isChecked());
    } catch (const RunCancelled&) {
        return;
    } catch (const std::exception&) {
        return session_.Warn("New Document", CurrentSentence());
    }
    QDialog::accept();
}

QString NewDocumentDialog::ChooseTable() {
    const auto dialog = session_.Host().NewObjectDialog();
    dialog->SetObjectFilter(session_.Host().NewTableFilter());
    dialog->SetTitle("Choose the Listing Table");
    host::Ref<host::IHostObjectSelection> selection;
    bool accepted = false;
    dialog->DoModal(static_cast<host::WindowHandle>(winId()), selection, accepted);
    const auto picked = accepted && selection ? selection->Next() : nullptr;
    if (!picked) return {};
    const QString path = desk::ToQt(picked->FullName());
    const bool folder = QFileInfo(path).isDir();
    return folder ? path + '/' + desk::ToQt(dialog->Name()) : path;
}

QString NewDocumentDialog::ChooseBook(const QString& present) {
    const QString start = present.isEmpty() ? QFileInfo(table_->Path()).path() : present;
    return QFileDialog::getOpenFileName(this, "Choose the Map Book", start,
                                        "Map books (*.json);;All files (*)");
}

}  // namespace

bool MakeNewDocument(WindowSession& session, const QString& table, QWidget& window) {
    NewDocumentDialog dialog(session, &window);
    if (!table.isEmpty()) dialog.SetTable(table);
    return dialog.exec() == QDialog::Accepted;
}

}  // namespace app
