#pragma once

#include <QDialog>
#include <functional>
#include <utility>
#include <vector>

#include "host/PropertyPages.h"

class QAbstractButton;
class QDialogButtonBox;
class QTabWidget;

namespace desk {

class SheetPage;

/// A modal sheet of property pages with OK, Apply and Cancel. Shows the pages that apply to the
/// objects, lowest priority number first, and releases them on closing; a single page has no tab.
/// Shows a page's failures in a message; none propagates. If a text box does not accept its text
/// after an apply, the sheet shows that box and stays open until OK is pressed again.
class PropertySheet : public QDialog {
    Q_OBJECT

public:
    PropertySheet(std::vector<host::Ref<host::IComPropertyPage>> pages,
                  host::Ref<host::IHostObjectSet> objects, QWidget* parent);
    ~PropertySheet() override;

    /// `apply` is called with the work of each Apply, does it, and returns whether it is done. If
    /// not, the edits stay to be applied and the sheet stays open.
    void ApplyThrough(std::function<bool(const std::function<void()>& work)> apply) {
        applyThrough_ = std::move(apply);
    }

    void done(int result) override;

Q_SIGNALS:
    /// The pages have written their edits to the objects.
    void Applied();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void AddPage(const host::Ref<host::IComPropertyPage>& page);
    void LayOut();
    void HandleButton(QAbstractButton* button);
    void ShowTab(int tab);
    bool ShowRefusedText() const;
    bool Apply();
    void Release();
    void UpdateButtons();
    void NoteChange();

    host::Ref<host::IHostObjectSet> objects_;
    std::vector<SheetPage*> pages_;  ///< One per tab.
    QTabWidget* tabs_ = nullptr;     ///< Null if no page applies.
    QDialogButtonBox* buttons_;
    std::function<bool(const std::function<void()>& work)> applyThrough_;
    int shownTab_ = -1;     ///< The tab whose page is shown; -1: none.
    bool changed_ = false;  ///< Something was edited since the last apply.
    bool applying_ = false;
};

}  // namespace desk
