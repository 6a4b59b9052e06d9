#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include "app/document/Errors.h"
#include "app/document/KeyValues.h"
#include "app/tables/BookFile.h"
#include "app/window/Dialogs.h"
#include "app/window/PageSizeBox.h"
#include "app/window/PathField.h"
#include "app/window/WaitPointer.h"
#include "app/window/layers/LocatePage.h"
#include "desk/tables/TablePath.h"
#include "desk/window/WidgetText.h"
#include "model/Paths.h"

namespace app {
namespace {

constexpr std::int32_t kMostNamed = 16;  // Some tables have hundreds of fields.
constexpr int kPause = 800;              // Milliseconds after which typing has ended.

void TakeLocated(const LocatedFiles& located, NewDocumentOptions& options) {
    options.listingDatabase = located.table;
    if (located.book.empty()) return;
    options.book = located.book;
    options.assignments = LinkToWrittenBook();
}

/// Pages of which only the one on show takes part in the size.
class SourcePages : public QTabWidget {
public:
    using QTabWidget::QTabWidget;
    QSize sizeHint() const override {
        // That of QTabWidget is the largest of all pages.
        const QSize more = currentWidget()->sizeHint() - currentWidget()->minimumSizeHint();
        return minimumSizeHint() + more.expandedTo({0, 0});
    }
};

class NewDocumentDialog : public QDialog {
public:
    NewDocumentDialog(WindowSession& session, QWidget* parent);

    void SetTable(const QString& path) { table_->SetPath(path); }
    void accept() override;

private:
    QString ChooseTable();
    QString ChooseBook(const QString& present);
    QWidget* TablePage();
    bool IsFromLayers() const;
    void ShowPage();
    void TableChanged();
    void CheckTable();
    void CheckSize();
    void ShowUsable();
    NewDocumentOptions Options() const;

    WindowSession& session_;
    PathField* table_;
    QLabel* tableNote_;
    QTabWidget* pages_;
    LocatePage* layers_;
    PathField* book_;
    PageSizeBox* size_;
    QLabel* sizeNote_;
    QCheckBox* ready_;
    QPushButton* create_;
    bool tableUsable_ = false;
    QTimer checkSoon_;
};

NewDocumentDialog::NewDocumentDialog(WindowSession& session, QWidget* parent)
    : QDialog(parent),
      session_(session),
      table_(new PathField(
          "table", [this](const QString&) { return ChooseTable(); }, this)),
      tableNote_(new QLabel(this)),
      pages_(new SourcePages(this)),
      layers_(new LocatePage(session, this)),
      book_(new PathField(
          "book", [this](const QString& present) { return ChooseBook(present); }, this)),
      size_(new PageSizeBox(this)),
      sizeNote_(new QLabel(this)),
      ready_(new QCheckBox("&Ready to print", this)) {
    setWindowTitle("New Document");
    tableNote_->setObjectName("tableNote");
    tableNote_->setTextFormat(Qt::PlainText);
    tableNote_->setWordWrap(true);
    tableNote_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    sizeNote_->setObjectName("sizeNote");
    sizeNote_->setTextFormat(Qt::PlainText);
    sizeNote_->setWordWrap(true);
    sizeNote_->hide();
    ready_->setObjectName("readyToPrint");
    ready_->setChecked(true);
    ready_->setToolTip(
        "Set small type with dot leaders in as many columns as fit, headings of the alphabet's "
        "letters that stay with their listings, lines on one grid, a running head and the sheet's "
        "number");
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    create_ = buttons->addButton("Create", QDialogButtonBox::AcceptRole);
    create_->setDefault(true);

    pages_->setObjectName("sources");
    pages_->addTab(TablePage(), "From a &Table");
    pages_->addTab(layers_, "From Map La&yers");
    auto* form = new QFormLayout(this);
    form->addRow(pages_);
    form->addRow("&Map book (optional):", book_);
    form->addRow("&Page size:", size_);
    static_cast<QLabel*>(form->labelForField(size_))->setBuddy(size_->First());
    form->addRow(QString(), sizeNote_);
    form->addRow(QString(), ready_);
    form->addRow(buttons);

    checkSoon_.setSingleShot(true);
    connect(&checkSoon_, &QTimer::timeout, this, &NewDocumentDialog::CheckTable);
    connect(table_, &PathField::Changed, this, &NewDocumentDialog::TableChanged);
    connect(layers_, &LocatePage::Changed, this, &NewDocumentDialog::ShowUsable);
    connect(pages_, &QTabWidget::currentChanged, this, &NewDocumentDialog::ShowPage);
    connect(size_, &PageSizeBox::Changed, this, &NewDocumentDialog::CheckSize);
    connect(buttons, &QDialogButtonBox::accepted, this, &NewDocumentDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &NewDocumentDialog::reject);
    size_->SetSize(ParsePageSize(WindowUnit() == LengthUnit::Inches ? "letter" : "a4"));
    CheckTable();
    ShowPage();
}

QWidget* NewDocumentDialog::TablePage() {
    auto* page = new QWidget(this);
    auto* form = new QFormLayout(page);
    form->addRow("&Listing table:", table_);
    form->addRow(QString(), tableNote_);
    return page;
}

// The dialog is as large as the page on show needs.
void NewDocumentDialog::ShowPage() {
    for (int i = 0; i < pages_->count(); ++i) {
        const auto size =
            i == pages_->currentIndex() ? QSizePolicy::Preferred : QSizePolicy::Ignored;
        pages_->widget(i)->setSizePolicy(size, size);
    }
    ShowUsable();
    pages_->updateGeometry();
    adjustSize();
}

bool NewDocumentDialog::IsFromLayers() const {
    return pages_->currentWidget() == layers_;
}

// Asks a server only when its name is typed to the end.
void NewDocumentDialog::TableChanged() {
    if (!desk::TablePath{desk::FromQt(table_->Path()), {}}.IsConnection()) {
        checkSoon_.stop();
        return CheckTable();
    }
    tableUsable_ = false;
    tableNote_->setText("A table of a server.");
    ShowUsable();
    checkSoon_.start(kPause);
}

// Shows the fields of the table, or why it cannot be used.
void NewDocumentDialog::CheckTable() {
    QString note = "A table with a field Page and, as a rule, Listing, Row and Column.";
    tableUsable_ = false;
    const QString path = table_->Path();
    const auto table = desk::FindTable(desk::FromQt(path));
    if (!path.isEmpty() && !table.Exists()) {
        note = "There is no such file.";
    } else if (!path.isEmpty()) {
        try {
            const WaitPointer wait;
            const auto opened = gazetteer::OpenTableFile(session_.Host(), desk::FromQt(path));
            const auto fields = opened->Fields();
            tableUsable_ = fields->FindField("Page") >= 0;
            note = (tableUsable_ ? "Fields: " : "The table has no field Page; its fields are ") +
                   desk::ToQt(FieldNames(*fields, kMostNamed)) + (tableUsable_ ? "" : ".");
        } catch (const std::exception&) {
            note = desk::ToQt(CurrentSentence());
        }
    }
    tableNote_->setText(note);
    ShowUsable();
}

void NewDocumentDialog::CheckSize() {
    const QString fault = size_->Fault();
    sizeNote_->setText(fault);
    sizeNote_->setVisible(!fault.isEmpty());
    ShowUsable();
}

void NewDocumentDialog::ShowUsable() {
    const bool isUsable = IsFromLayers() ? layers_->IsUsable() : tableUsable_;
    create_->setEnabled(isUsable && sizeNote_->text().isEmpty());
    book_->setEnabled(!IsFromLayers() || !layers_->WritesBook());
}

NewDocumentOptions NewDocumentDialog::Options() const {
    NewDocumentOptions options;
    options.listingDatabase = desk::FromQt(table_->Path());
    options.book = desk::FromQt(book_->Path());
    const PageSize size = size_->Size();
    options.pageSize = NumberText(size.width) + 'x' + NumberText(size.height);
    return options;
}

void NewDocumentDialog::accept() {
    if (!create_->isEnabled()) return;
    try {
        auto options = Options();
        LocatedFiles located;
        if (IsFromLayers()) {
            located = layers_->Write();
            if (located.table.empty()) return;
            TakeLocated(located, options);
        }
        const WaitPointer wait;
        session_.StartNew(options, ready_->isChecked(), located.notices);
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
