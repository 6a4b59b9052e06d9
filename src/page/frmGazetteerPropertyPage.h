#pragma once

#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "host/Host.h"
#include "model/ColumnProperties.h"
#include "model/Results.h"
#include "model/Settings.h"
#include "page/FormControls.h"
#include "page/FormLists.h"
#include "support/ErrorHandling.h"

namespace Ui {
class frmGazetteerPropertyPage;
}

namespace gazetteer {

class SymbolPreview;

/// The form of the property page: edits a working copy of a gazetteer's property set. Form_Activate
/// fills the controls from the copy; from then on every edit rewrites all keys of the copy at once,
/// throws the listings stored in it away and tells the page site, so that the copy is always
/// complete. The element itself is read, and taken out of draft state, but its stored set is left
/// alone.
///
/// Slots named CONTROL_Event are found and connected by their names (see HandlerWiring). All of
/// them are top procedures of the failure convention. One file per tab or theme holds what they do.
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
    /// Set by the first edit and never cleared.
    bool IsPageDirty() const { return isPageDirty_; }

    /// Whether the controls show the working copy: after Form_Activate, until Form_Deactivate.
    bool IsFilled() const { return filled_; }

public slots:
    void Form_Load();
    void Form_Activate();
    void Form_Deactivate();
    void Form_Unload();

    // Index Source.
    void cmdSetNewFileName_Click();
    void txtDatabaseFile_Change();
    void chkLinkToMapSeriesFrame_Click();
    void cmbSection_Click();
    void CmbTemplate_Click();
    void cmbMapSeriesFrame_Click();

    // Index Layout.
    void lstListingColumns_Click();
    void cmdAdd_Click();
    void cmdRemove_Click();

    // Display/Sort Order.
    void cmdOrderUp_Click();
    void cmdOrderDown_Click();
    void cmdOrderTop_Click();
    void cmdOrderBottom_Click();
    void OptDisplayDirection_Click(int Index);
    void chkSortIndex_Click();
    void lstSortOrder_ItemCheck(int Item);
    void cmdSortUp_Click();
    void cmdSortDown_Click();
    void cmdSortTop_Click();
    void cmdSortBottom_Click();
    void OptSortOrder_Click(int Index);

    // Options.
    void chkCombineListings_Click();
    void optCombineListings_Click(int Index);
    void txtCombineDelimeter_Change();
    void ChkCombineFirstAndLast_Click();
    void ChkClearRepeatingText_Click();
    void chkMultipleColumnGroups_Click();
    void txtGroupSpacing_Change();
    void ChkAddStartingBreak_Click();
    void txtDefaultPage_Change();
    void chkSamplePage_Click();
    void chkAutoRefreshListings_Click();

    // Column Text.
    void optColumnSource_Click(int Index);
    void txtExpression_Change();
    void cmdExpression_Click();

    // Font.
    void picColumnFont_Paint();
    void cmdColumnFont_Click();
    void cmbAlignment_Click();
    void cmdColumnFontToAll_Click();

    // Background.
    void chkColumnBackground_Click();
    void chkAlternateBackground_Click();
    void picBackgroundSymbol_Paint();
    void cmdColumnBackgroundsymbol_Click();
    void picAlternateBackgroundSymbol_Paint();
    void cmdAlternateBackgroundSymbol_Click();
    void cmdBackgroundToAll_Click();

    // Size/Margins.
    void txtColumnWidth_Change();
    void txtTopMargin_Change();
    void txtBottomMargin_Change();
    void txtLeftMargin_Change();
    void txtRightMargin_Change();
    void cmdMarginsToAll_Click();

    // Column Break.
    void chkBreakColumn_Click();
    void txtBreakSpacing_Change();
    void chkBreakHeader_Click();
    void picBreakFont_Paint();
    void cmdBreakFont_Click();
    void chkMissingHeaders_Click();

    // Title.
    void chkDisplayTitle_Click();
    void txtColumnTitle_Change();
    void picTitleFont_Paint();
    void cmdTitleFont_Click();
    void picTitleBackground_Paint();
    void cmdTitleBackground_Click();
    void cmbTitleAlignment_Change();
    void cmdTitleSymbolsToAll_Click();

protected:
    void changeEvent(QEvent* event) override;

private:
    template <class T>
    using SymbolField = host::Ref<T> ColumnProperties::*;

    /// The failure exit of an event that has one step.
    template <class Body>
    void Top(const char* procedure, Body body) try {
        body();
    } catch (...) {
        ShowAtTop(host_->Dialogs(), procedure, kFormLabel);
    }
    /// An event that only passes an edit on to an update procedure.
    void OnChange(const char* procedure, void (frmGazetteerPropertyPage::*takeOver)());

    // Filling.
    void PopulateForm();
    void PopulateLink();
    void PopulateDatabase();
    void PopulateLists();
    void ReleaseObjects();
    void SetFilled(bool filled);

    // Taking edits over.
    void UpdateProperties();
    bool CanDrawIndex() const;
    bool IsLinkTicked() const;

    // Index Source.
    bool FindTemplates();
    bool FindFrames();
    void ForgetFrames();
    void EnableIndexLayerOption();
    std::string PickListingDatabase();

    // Column list.
    void UpdateColumnLists();
    void ShowSelectedColumn();
    void SaveEditors();
    void RearrangeColumnOrder(Movement movement);
    void RearrangeSortOrder(Movement movement);

    // Column editors.
    void PopulateColumnProperties();
    void UpdateColumnProperties();
    ColumnProperties ReadEditors() const;
    void SetInAllColumns(const std::vector<const char*>& keys);
    template <class T>
    void EditSymbol(SymbolField<T> field, SymbolPreview& preview);
    host::Ref<host::IHostSymbol> AskForSymbol(const host::Ref<host::IHostSymbol>& symbol);
    void DrawPreview(SymbolPreview& preview, const host::Ref<host::IHostSymbol>& symbol);
    void PaintPreview(SymbolPreview& preview, const host::Ref<host::IHostSymbol>& symbol);

    // Checks.
    void CheckColumnExpressions(bool ShowMessage);
    void CheckColumnSizing(bool ShowMessage);
    host::Ref<host::IHostTable> OpenIndexLayer();
    bool AnyColumnFromIndexLayer() const;
    bool IsLinkedInFact() const { return IsLinkTicked() && haveMapSeriesFrame_; }

    host::Ref<host::IHost> host_;
    std::unique_ptr<Ui::frmGazetteerPropertyPage> ui_;
    FormControls controls_;

    host::Ref<host::IHostPropertySet> properties_;  ///< The working copy.
    host::Ref<host::IHostGroupElement> element_;
    host::Ref<host::IHostPageSite> pageSite_;
    bool isPageDirty_ = false;
    bool filled_ = false;
    /// Code is filling controls: change handlers do nothing.
    bool populating_ = false;

    SiblingObjects siblings_;
    /// What the drop-down lists of the link offer behind "<None>", in their order.
    std::vector<std::string> sectionKeys_;
    std::vector<std::string> templateKeys_;
    std::vector<host::Ref<host::IHostMapFrame>> frames_;
    host::Ref<host::IHostMapFrame> mapFrame_;
    host::Ref<host::IHostTable> listingTable_;

    /// As Form_Activate read them. Of the keys that controls show, only the sets, the three keys of
    /// the link and the columns follow the edits; the others are read off the controls when the
    /// working copy is written. Columns are the form's own deep copy.
    Settings fields_;
    /// The column that the editors hold; one step behind the selection of the list.
    std::string currentColumn_;
    /// The open column, with symbols of the form's own; null before any column is open.
    ColumnProperties editors_;

    bool haveDatabase_ = false;
    bool haveMapSeriesFrame_ = false;
    bool expressionsValid_ = false;
    bool sizingValid_ = false;
};

}  // namespace gazetteer
