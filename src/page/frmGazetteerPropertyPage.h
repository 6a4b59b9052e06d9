#pragma once

#include <QWidget>
#include <memory>

#include "host/Host.h"
#include "model/Settings.h"
#include "page/ColumnEditors.h"
#include "page/ControlValues.h"
#include "page/FormControls.h"
#include "page/FormEvents.h"
#include "page/MapSeriesLink.h"

namespace gazetteer {

/// The form of the property page. Edits a working copy of a gazetteer's property set: Form_Activate
/// fills the controls from the copy; every edit then rewrites all keys of the copy, removes the
/// stored listings from it and notifies the page site, so that the copy is always complete. The
/// form reads the element and ends its draft state, but does not change its stored set.
class frmGazetteerPropertyPage final : public QWidget {
    Q_OBJECT

public:
    explicit frmGazetteerPropertyPage(host::Ref<host::IHost> host);
    ~frmGazetteerPropertyPage() override;

    const host::Ref<host::IHostPropertySet>& GazetteerProperties() const { return properties_; }
    void SetGazetteerProperties(const host::Ref<host::IHostPropertySet>& properties) {
        properties_ = properties;
    }
    void SetGazetteerElement(const host::Ref<host::IHostGroupElement>& element) {
        element_ = element;
    }
    void SetPageSite(const host::Ref<host::IHostPageSite>& site) { pageSite_ = site; }
    /// Set by the first edit and never reset.
    bool IsPageDirty() const { return isPageDirty_; }

    // Top procedures of the failure convention, like all control events.
    void Form_Load();
    void Form_Activate();
    void Form_Deactivate();
    void Form_Unload();

    /// True from Form_Activate until Form_Deactivate, while the controls show the working copy.
    bool IsFilled() const { return filled_; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void ConnectEvents();

    // Filling the controls and storing edits.
    void PopulateForm();
    void PopulateDatabase();
    void PopulateLists();
    void SetFilled(bool filled);
    void ReleaseObjects();
    void UpdateProperties();
    bool CanDrawIndex() const;

    // Listing database.
    void cmdSetNewFileName_Click();
    void txtDatabaseFile_Change();

    // Columns and their orders.
    void UpdateColumnLists();
    void lstListingColumns_Click();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void lstSortOrder_ItemCheck();
    void Rearrange(QListWidget& list, host::Ref<host::IHostPropertySet> Settings::*order,
                   Movement movement, const char* procedure);

    // Expressions and widths of the columns.
    void cmdExpression_Click();
    void CheckColumns();
    void CheckColumnExpressions(bool ShowMessage);
    void CheckColumnSizing(bool ShowMessage);
    bool AnyColumnFromIndexLayer() const;

    host::Ref<host::IHost> host_;
    std::unique_ptr<Ui::frmGazetteerPropertyPage> ui_;
    FormEvents events_;

    host::Ref<host::IHostPropertySet> properties_;  ///< The working copy.
    host::Ref<host::IHostGroupElement> element_;
    host::Ref<host::IHostPageSite> pageSite_;
    bool isPageDirty_ = false;
    bool filled_ = false;

    /// As read by Form_Activate. Edits update only the sets; other fields are read from the
    /// controls when the working copy is written. The columns are a deep copy.
    Settings fields_;
    FormControls<Settings> controls_;
    MapSeriesLink link_;
    ColumnEditors editors_;

    host::Ref<host::CVNExpressionEngine> expressionEngine_;
    host::Ref<host::IHostTable> listingTable_;
    bool haveDatabase_ = false;
    bool expressionsValid_ = false;
    bool sizingValid_ = false;
};

}  // namespace gazetteer
