#pragma once

#include <QString>
#include <QWidget>

#include "desk/tables/DbfSchema.h"
#include "host/Tables.h"

class QLabel;
class QTreeWidget;

namespace desk {

/// The type of a field for the user's eye: "Text (40)", "Number (8.2)", "Date".
QString TypeInWords(const DbfField& field);
QString TypeInWords(const host::IHostField& field);

/// Shows what a dBase table holds: its fields, the number of its records, and what is odd about it.
class TablePreview : public QWidget {
public:
    explicit TablePreview(QWidget* parent);

    /// A table that cannot be read shows why, in one sentence.
    void ShowTable(const QString& path);
    /// Shows a text in place of a table.
    void ShowText(const QString& text);

private:
    void Fill(const QString& path);

    QLabel* name_;
    QLabel* summary_;
    QTreeWidget* fields_;
    QLabel* notes_;
};

}  // namespace desk
