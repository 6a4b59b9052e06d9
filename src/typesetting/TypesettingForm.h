#pragma once

#include <QPushButton>
#include <QRadioButton>
#include <QWidget>
#include <optional>
#include <vector>

#include "page/StoredEdits.h"
#include "typesetting/KeyControl.h"
#include "typesetting/SamplePicture.h"

namespace gazetteer {

/// The form of the page "Typesetting". Edits a copy of a gazetteer's settings of typesetting, or
/// that there are none; only StoreEdits changes the element.
class TypesettingForm final : public QWidget, public EditsBeside {
    Q_OBJECT

public:
    explicit TypesettingForm(host::Ref<host::IHost> host);
    ~TypesettingForm() override;

    /// Takes the stored settings of the element.
    void SetElement(const host::Ref<host::IHostGroupElement>& element);
    void SetPageSite(const host::Ref<host::IHostPageSite>& site) { pageSite_ = site; }
    /// Set by the first edit and never reset.
    bool IsPageDirty() const { return isPageDirty_; }

    /// The copy; nothing stands for the plain rules.
    std::optional<Typesetting> Edited() const;
    /// The element does not have what was edited.
    bool HasEdits() const;
    void StoreEdits() override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MakeControls();
    void Arrange();
    void FitToScreen();
    void Fill();
    void TakeEdit();
    void ChooseRules();
    void SetUsualValues();
    void Edit(const char* procedure, const std::function<void()>& edit);
    void ShowState();

    host::Ref<host::IHost> host_;
    host::Ref<host::IHostGroupElement> element_;
    host::Ref<host::IHostPageSite> pageSite_;
    bool isPageDirty_ = false;
    bool populating_ = false;

    Typesetting values_;         ///< Of the controls, also while the plain rules are chosen.
    bool isPlain_ = true;        ///< The plain rules are chosen.
    bool hasOwnValues_ = false;  ///< The values were stored or edited.

    QRadioButton* plain_;
    QRadioButton* typeset_;
    QPushButton* usual_;
    SamplePicture* picture_;
    QWidget* boxes_ = nullptr;
    std::vector<KeyControl> controls_;
};

}  // namespace gazetteer
