#pragma once

#include <QString>
#include <QWidget>

#include "gis/module/SourceTable.h"
#include "host/Tables.h"

class QLabel;
class QTreeWidget;

namespace desk {

/// Returns the type of a field for display, such as "Text (40)", "Number (8.2)" or "Date".
QString TypeInWords(const gis::SourceField& field);
QString TypeInWords(const host::IHostField& field);

/// Shows the fields of a table, the number of its records, and the reader's warnings.
class TablePreview : public QWidget {
public:
    explicit TablePreview(QWidget* parent);

    /// Shows the reason, in one sentence, if the table cannot be read.
    void ShowTable(const QString& path);
    void ShowText(const QString& text);

private:
    void Fill(const QString& path);

    QLabel* name_;
    QLabel* summary_;
    QTreeWidget* fields_;
    QLabel* notes_;
};

}  // namespace desk
