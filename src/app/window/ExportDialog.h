#pragma once

#include <QDialog>

#include "app/document/Sheets.h"
#include "desk/drawing/PageWriter.h"

class QComboBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace app {

class PathField;

/// Asks which pages are to be written, and where to.
class ExportDialog : public QDialog {
    Q_OBJECT

public:
    /// With the page on show, the number of pages, and a file name without its ending.
    ExportDialog(int page, int pages, const QString& base, QWidget* parent);

    QString Path() const;
    PageRange Pages() const;
    void accept() override;

private:
    QWidget* MakePages(int page, int pages);
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

}  // namespace app
