#pragma once

#include <string>
#include <vector>

#include "model/ColumnProperties.h"
#include "model/Keys.h"
#include "page/FormControls.h"
#include "page/FormEvents.h"

namespace gazetteer {

class SymbolPreview;

/// The editors of one column, the open one. They are enabled while a column is open, and every edit
/// replaces the column's set as a whole.
class ColumnEditors {
public:
    /// All but the handler must outlive this. The columns are those of the settings; the handler
    /// takes over what was stored in them.
    ColumnEditors(QWidget& form, host::IHost& host, FormEvents& events, const Settings& settings,
                  FormEvents::Handler updateProperties);

    /// Opens a column. After a failure none is open.
    void PopulateColumnProperties(const std::string& name);
    /// Stores what the editors show. Without an open column there is nothing to store beside the
    /// rest of the form.
    void UpdateColumnProperties();
    /// Stores nothing.
    void Close();

    /// Name of the open column; empty without one. It is one step behind the selection of the list.
    const std::string& CurrentColumn() const { return currentColumn_; }
    /// The open column as the editors show it, with their symbols.
    ColumnProperties Shown() const;

private:
    template <class T>
    void ConnectSymbol(const char* button, const char* preview, host::Ref<T>& symbol);
    template <class T>
    void EditSymbol(host::Ref<T>& symbol, SymbolPreview& preview);
    host::Ref<host::IHostSymbol> AskForSymbol(const host::Ref<host::IHostSymbol>& symbol);
    void DrawPreview(SymbolPreview& preview, const host::Ref<host::IHostSymbol>& symbol);
    void SetInAllColumns(const std::vector<ColumnField>& fields);

    QWidget& form_;
    host::IHost& host_;
    FormEvents& events_;
    const Settings& settings_;
    FormEvents::Handler updateProperties_;
    FormControls<ColumnProperties> controls_;

    std::string currentColumn_;
    ColumnProperties column_;  ///< As it was opened, but with symbols of the editors' own.
};

}  // namespace gazetteer
