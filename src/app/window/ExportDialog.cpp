#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

#include "app/window/Dialogs.h"
#include "app/window/PageProgress.h"
#include "app/window/PathField.h"
#include "desk/drawing/PageWriter.h"
#include "desk/window/WidgetText.h"

namespace app {
namespace {

class ExportDialog : public QDialog {
public:
    // Takes the current page, the number of pages, and a file name without ending.
    ExportDialog(int page, int pages, const QString& base, QWidget* parent);

    void Propose(int page);
    QString Path() const;
    PageRange Pages() const;
    void accept() override;

private:
    QWidget* MakePages();
    QString Choose(const QString& present);
    void TakeFormat();
    void Update();
    const desk::PageFormat& Format() const;
    QStringList FilesThere() const;

    PathField* path_;
    QComboBox* format_;
    QLabel* note_;
    QRadioButton* all_;
    QRadioButton* current_;
    QRadioButton* range_;
    QSpinBox* first_;
    QSpinBox* last_;
    QPushButton* export_;
    int page_;
    int pages_;
};

QString WithEnding(const QString& path, const char* ending) {
    const bool known = desk::FormatOf(desk::FromQt(path));
    return (known ? path.chopped(QFileInfo(path).suffix().size() + 1) : path) + ending;
}

ExportDialog::ExportDialog(int page, int pages, const QString& base, QWidget* parent)
    : QDialog(parent),
      path_(new PathField(
          "exportPath", [this](const QString& present) { return Choose(present); }, this)),
      format_(new QComboBox(this)),
      note_(new QLabel(this)),
      page_(page),
      pages_(pages) {
    setWindowTitle("Export");
    for (const auto& format : desk::PageFormats()) format_->addItem(format.name);
    format_->setObjectName("exportFormat");
    note_->setTextFormat(Qt::PlainText);
    note_->setWordWrap(true);
    note_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    export_ = buttons->addButton("Export", QDialogButtonBox::AcceptRole);
    export_->setDefault(true);

    auto* form = new QFormLayout(this);
    form->addRow("&Pages:", MakePages());
    static_cast<QLabel*>(form->labelForField(all_->parentWidget()))->setBuddy(all_);
    form->addRow("&Format:", format_);
    form->addRow("Fi&le:", path_);
    form->addRow(QString(), note_);
    form->addRow(buttons);

    path_->SetPath(base + Format().ending);
    connect(format_, &QComboBox::currentIndexChanged, this, &ExportDialog::TakeFormat);
    connect(path_, &PathField::Changed, this, &ExportDialog::Update);
    for (QRadioButton* const choice : {all_, current_, range_})
        connect(choice, &QRadioButton::toggled, this, &ExportDialog::Update);
    connect(first_, &QSpinBox::valueChanged, last_, &QSpinBox::setMinimum);
    for (QSpinBox* const box : {first_, last_})
        connect(box, &QSpinBox::valueChanged, this, &ExportDialog::Update);
    connect(buttons, &QDialogButtonBox::accepted, this, &ExportDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ExportDialog::reject);
    Update();
}

QWidget* ExportDialog::MakePages() {
    auto* group = new QWidget(this);
    all_ = new QRadioButton(QString("&All %1 pages").arg(pages_), group);
    if (pages_ == 1) all_->setText("&The only page");
    current_ = new QRadioButton(QString("Page on &show (%1)").arg(page_), group);
    range_ = new QRadioButton("Pages f&rom", group);
    range_->setObjectName("exportRange");
    all_->setChecked(true);
    first_ = new QSpinBox(group);
    last_ = new QSpinBox(group);
    first_->setObjectName("exportFirst");
    last_->setObjectName("exportLast");
    first_->setAccessibleName("First page");
    last_->setAccessibleName("Last page");
    for (QSpinBox* const box : {first_, last_}) {
        box->setRange(1, pages_);
        connect(box, &QSpinBox::valueChanged, range_, [this] { range_->setChecked(true); });
    }
    last_->setValue(pages_);
    all_->setChecked(true);

    auto* range = new QHBoxLayout;
    range->addWidget(range_);
    range->addWidget(first_);
    range->addWidget(new QLabel("to", group));
    range->addWidget(last_);
    range->addStretch(1);
    auto* layout = new QVBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(all_);
    layout->addWidget(current_);
    layout->addLayout(range);
    return group;
}

void ExportDialog::Propose(int page) {
    first_->setValue(page);
    last_->setValue(page);
    range_->setChecked(true);
}

const desk::PageFormat& ExportDialog::Format() const {
    return desk::PageFormats()[static_cast<std::size_t>(format_->currentIndex())];
}

QString ExportDialog::Path() const {
    return path_->Path().isEmpty() ? QString() : WithEnding(path_->Path(), Format().ending);
}

PageRange ExportDialog::Pages() const {
    if (current_->isChecked()) return {page_, page_};
    if (range_->isChecked()) return {first_->value(), last_->value()};
    return {1, pages_};
}

void ExportDialog::TakeFormat() {
    if (!path_->Path().isEmpty()) path_->SetPath(Path());
    Update();
}

// A typed ending selects its format.
void ExportDialog::Update() {
    if (const auto* typed = desk::FormatOf(desk::FromQt(path_->Path())))
        format_->setCurrentIndex(static_cast<int>(typed - desk::PageFormats().data()));
    const PageRange pages = Pages();
    const QFileInfo file(Path());
    QString note;
    if (Format().manySheets)
        note = "One file, with a bookmark for each page.";
    else if (!Path().isEmpty())
        note = QString("One file for each page: %1-%2%3%4")
                   .arg(file.completeBaseName())
                   .arg(pages.first)
                   .arg(Format().ending, pages.last > pages.first ? " and so on." : ".");
    note_->setText(note);
    export_->setEnabled(!path_->Path().isEmpty());
}

QString ExportDialog::Choose(const QString& present) {
    QStringList filters;
    for (const auto& format : desk::PageFormats())
        filters << QString("%1 (*%2)").arg(format.name, format.ending);
    QString filter = filters[format_->currentIndex()];
    // accept() asks once whether all existing files may be replaced.
    QString path = QFileDialog::getSaveFileName(this, "Export", present, filters.join(";;"),
                                                &filter, QFileDialog::DontConfirmOverwrite);
    if (path.isEmpty()) return {};
    if (desk::FormatOf(desk::FromQt(path))) return path;
    const auto chosen = static_cast<std::size_t>(filters.indexOf(filter));
    return WithEnding(path, desk::PageFormats()[chosen].ending);
}

// Returns the existing files that the export would replace.
QStringList ExportDialog::FilesThere() const {
    QStringList there;
    const auto look = [&](const std::string& path) {
        if (QFileInfo::exists(desk::ToQt(path))) there << desk::ToQt(path);
    };
    const PageRange pages = Pages();
    const std::string path = desk::FromQt(Path());
    if (Format().manySheets)
        look(path);
    else
        for (auto page = pages.first; page <= pages.last; ++page) look(NumberedPath(path, page));
    return there;
}

void ExportDialog::accept() {
    if (!export_->isEnabled()) return;
    const QStringList there = FilesThere();
    if (there.isEmpty()) return QDialog::accept();
    const QString question =
        there.size() == 1
            ? QString("The file \"%1\" is there already. Replace it?").arg(there[0])
            : QString("%1 of the files are there already. Replace them?").arg(there.size());
    QMessageBox box(QMessageBox::Question, windowTitle(), question,
                    QMessageBox::Yes | QMessageBox::No, this);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    if (box.exec() == QMessageBox::Yes) QDialog::accept();
}

}  // namespace

QString ExportPages(WindowSession& session, QWidget& window, std::optional<int> onlyPage) {
    const QFileInfo document(desk::ToQt(session.Path()));
    const QString base = QDir::cleanPath(document.path() + '/' + document.completeBaseName());
    ExportDialog dialog(session.Page(), session.Pages(), base, &window);
    if (onlyPage) dialog.Propose(*onlyPage);
    if (dialog.exec() != QDialog::Accepted) return {};
    const std::string path = desk::FromQt(QFileInfo(dialog.Path()).absoluteFilePath());
    const PageRange pages = dialog.Pages();
    const bool done =
        WithProgress(session, window, {"Export", "Exporting"}, pages,
                     [&](const SheetListener& before) { session.Export(path, pages, before); });
    if (!done) return {};
    return QString("Exported %1 to %2")
        .arg(CountedPages(pages), QFileInfo(dialog.Path()).fileName());
}

}  // namespace app
