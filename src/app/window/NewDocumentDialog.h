#pragma once

#include <QDialog>
#include <functional>

#include "app/document/NewDocument.h"
#include "host/Host.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;

namespace app {

class PathField;

/// Asks what a new document is to be made from.
class NewDocumentDialog : public QDialog {
    Q_OBJECT

public:
    /// Makes the document; answers what kept it from being made, or an empty text.
    using Maker = std::function<QString(const NewDocumentOptions& options, bool readyToPrint)>;

    /// The dialog stays open until the maker has made the document or the user gives up.
    NewDocumentDialog(host::IHost& host, Maker maker, QWidget* parent);

    void SetTable(const QString& path);
    void accept() override;

private:
    QString ChooseTable(const QString& present);
    QString ChooseBook(const QString& present);
    void LookAtTable();
    void UpdateSize();
    NewDocumentOptions Options() const;
    QWidget* MakeSize();

    host::IHost& host_;
    Maker maker_;
    PathField* table_;
    QLabel* tableNote_;
    PathField* book_;
    QComboBox* size_;
    QDoubleSpinBox* width_;
    QDoubleSpinBox* height_;
    QCheckBox* ready_;
    QPushButton* create_;
};

}  // namespace app
