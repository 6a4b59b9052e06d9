#pragma once

#include <string>
#include <vector>

#include "model/ColumnProperties.h"
#include "model/Keys.h"
#include "page/FormControls.h"
#include "page/FormEvents.h"

namespace gazetteer {

class SymbolPreview;

/// The editors of the open column. They are enabled while a column is open; every edit replaces the
/// column's set.
class ColumnEditors {
public:
    /// The references must outlive this. The columns are those of the settings; the handler is
    /// called after a column was stored in them.
    ColumnEditors(QWidget& form, host::IHost& host, FormEvents& events, const Settings& settings,
                  FormEvents::Handler updateProperties);

    /// Opens a column. If it throws, no column is open.
    void PopulateColumnProperties(const std::string& name);
    /// Stores the values of the editors and calls the handler; without an open column only calls
    /// the handler.
    void UpdateColumnProperties();
    /// Closes the column without storing it.
    void Close();

    /// Name of the open column; empty if none. While the selection changes, the previous column.
    const std::string& CurrentColumn() const { return currentColumn_; }
    /// Returns the open column with the values of the editors.
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
    ColumnProperties column_;  ///< As opened, but with copies of the symbols.
};

}  // namespace gazetteer
