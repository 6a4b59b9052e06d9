#include "desk/window/TablePreview.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "desk/tables/PlainObjects.h"
#include "desk/tables/TablePath.h"
#include "desk/window/WidgetText.h"
#include "host/Failure.h"

namespace desk {
namespace {

/// Bytes. Larger tables are not read through to count their records.
constexpr qint64 kReadThrough = 64 << 20;

/// Warnings shown.
constexpr std::size_t kNotes = 3;

QLabel* WrappedLabel(QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A long name must not widen the panel.
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

QString Records(const gis::SourceTable& table) {
    const QString path = ToQt(table.Path());
    const QLocale locale;
    if (QFileInfo(path).size() > kReadThrough) {
        const auto rows = table.CountRows();
        if (rows == 0) return "Many records";
        const bool isDbf = path.endsWith(".dbf", Qt::CaseInsensitive);
        return locale.toString(rows) + (isDbf ? " records with deleted ones" : " records");
    }
    const auto count = table.LiveRecords();
    return locale.toString(count) + (count == 1 ? " record" : " records");
}

QString Notes(const gis::SourceTable& table) {
    QStringList notes;
    const auto& warnings = table.Notes().All();
    for (std::size_t i = 0; i < warnings.size() && i < kNotes; ++i) notes << ToQt(warnings[i]);
    return notes.join('\n');
}

QString Sized(const QString& type, int length) {
    return length > 0 ? type + " (" + QString::number(length) + ")" : type;
}

}  // namespace

QString TypeInWords(const gis::SourceField& field) {
    switch (field.kind) {
        case gis::FieldKind::Text:
            return Sized("Text", field.length);
        case gis::FieldKind::Number:
            return field.decimals == 0 ? Sized("Number", field.length)
                                       : "Number (" + QString::number(field.length) + "." +
                                             QString::number(field.decimals) + ")";
        case gis::FieldKind::Date:
            return "Date";
        case gis::FieldKind::Logical:
            return "Yes or no";
        case gis::FieldKind::Memo:
            return "Memo, not read";
        case gis::FieldKind::Unknown:
            break;
    }
    return "Not read";
}

QString TypeInWords(const host::IHostField& field) {
    switch (field.Type()) {
        case host::kFieldTypeText:
            return Sized("Text", field.Length());
        case host::kFieldTypeObjectId:
            return "Identifier";
        case kFieldTypeNumber:
            return Sized("Number", field.Length());
        case kFieldTypeDate:
            return "Date";
        case kFieldTypeLogical:
            return "Yes or no";
        default:
            return "Other";
    }
}

TablePreview::TablePreview(QWidget* parent)
    : QWidget(parent),
      name_(WrappedLabel(this)),
      summary_(WrappedLabel(this)),
      fields_(new QTreeWidget(this)),
      notes_(WrappedLabel(this)) {
    name_->setObjectName("previewName");
    summary_->setObjectName("previewSummary");
    notes_->setObjectName("previewNotes");
    QFont bold = font();
    bold.setBold(true);
    name_->setFont(bold);
    fields_->setObjectName("previewFields");
    fields_->setHeaderLabels({"Field", "Type"});
    fields_->setRootIsDecorated(false);
    fields_->setUniformRowHeights(true);
    fields_->setTabKeyNavigation(false);
    fields_->setAccessibleName("Fields of the table");
    fields_->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(name_);
    layout->addWidget(summary_);
    layout->addWidget(fields_, 1);
    layout->addWidget(notes_);
    layout->addStretch(0);
    ShowText({});
}

void TablePreview::ShowText(const QString& text) {
    name_->clear();
    name_->hide();
    summary_->setText(text);
    fields_->clear();
    fields_->hide();
    notes_->clear();
    notes_->hide();
    summary_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void TablePreview::ShowTable(const QString& path) {
    ShowText({});
    name_->setText(QFileInfo(path).fileName());
    name_->show();
    try {
        Fill(path);
    } catch (const host::Failure& failure) {
        fields_->hide();
        summary_->setText(ToQt(failure.cause));
    }
}

void TablePreview::Fill(const QString& path) {
    const TablePath place = FindTable(FromQt(path));
    if (!OpensAtOnce(place)) {
        fields_->hide();
        return summary_->setText(
            "What reads this format is made when a table of it is first chosen.");
    }
    const auto opened = OpenTable(place);
    const auto& table = *opened;
    const auto fields = table.SourceFields();
    for (const gis::SourceField& field : fields)
        new QTreeWidgetItem(fields_, {ToQt(field.name), TypeInWords(field)});
    summary_->setText(Records(table) + ", " + QLocale().toString(fields.size()) +
                      (fields.size() == 1 ? " field" : " fields") + "\nText in " +
                      ToQt(table.Encoding()));
    fields_->show();
    notes_->setText(Notes(table));
    notes_->setVisible(!notes_->text().isEmpty());
}

}  // namespace desk
