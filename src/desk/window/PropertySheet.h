#pragma once

#include <QDialog>
#include <vector>

#include "host/PropertyPages.h"

class QAbstractButton;
class QDialogButtonBox;
class QTabWidget;

namespace desk {

class SheetPage;

/// A modal sheet of property pages with OK, Apply and Cancel. Takes the pages that apply to the
/// objects, lowest priority number first, and lets go of them when it is closed. No failure of a
/// page leaves it: it is told in a message.
class PropertySheet : public QDialog {
    Q_OBJECT

public:
    PropertySheet(std::vector<host::Ref<host::IComPropertyPage>> pages,
                  host::Ref<host::IHostObjectSet> objects, QWidget* parent);
    ~PropertySheet() override;

    void done(int result) override;

Q_SIGNALS:
    /// The pages' edits have been written to the objects.
    void Applied();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Take(const host::Ref<host::IComPropertyPage>& page);
    void Lay();
    void Press(QAbstractButton* button);
    void Turn(int tab);
    void Apply();
    void LetGo();
    void UpdateButtons();
    void NoteChange();

    host::Ref<host::IHostObjectSet> objects_;
    std::vector<SheetPage*> pages_;  ///< One for each tab.
    QTabWidget* tabs_ = nullptr;     ///< Null where no page applies.
    QDialogButtonBox* buttons_;
    int shownTab_ = -1;     ///< The tab whose page has been told to show itself.
    bool changed_ = false;  ///< Something has been edited since the last apply.
    bool applying_ = false;
};

}  // namespace desk
