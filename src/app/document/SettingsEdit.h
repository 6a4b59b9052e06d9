#pragma once

#include <optional>
#include <string>

#include "app/document/KeyValues.h"
#include "app/document/OpenDocument.h"
#include "model/Settings.h"
#include "model/Typesetting.h"

namespace app {

/// An edit of a gazetteer's settings on a working copy, by the rules of the property page. Storing
/// removes the stored results, writes the set in the current version, ends the draft state of the
/// element, and records whether the gazetteer can be drawn.
class SettingsEdit {
public:
    explicit SettingsEdit(OpenDocument& open);

    /// Applies one KEY=VALUE; "Typesetting.KEY" is one of the second set, which "Typesetting=none"
    /// takes away. Throws UsageError with the fault.
    void Set(const std::string& text);
    /// Applies one KEY=VALUE to a column; KEY has no column name.
    void SetIn(const std::string& column, const std::string& text);
    /// Adds a column with the properties of the first one (the property page takes the open one).
    void AddColumn(const std::string& name);

    gazetteer::Settings& Settings() { return settings_; }
    /// Nothing: the plain rules, and no set of them is stored.
    std::optional<gazetteer::Typesetting>& Typesetting();
    /// Returns the column's name as stored. Throws UsageError for an unknown column.
    std::string ColumnName(const std::string& name);

    /// Stores the settings and warns about unusual values.
    void Store();
    void StoreWithoutWarnings();

private:
    void SetProperty(const std::string& key, const std::string& value);
    void SetColumn(const std::string& column, const std::string& key, const std::string& value);
    void SetTypesetting(const std::string& key, const std::string& value);
    void SetOrder(const std::string& key, const std::string& value,
                  host::Ref<host::IHostPropertySet> gazetteer::Settings::*order, bool marks);
    bool FitsFrame() const;

    OpenDocument& open_;
    gazetteer::Settings settings_;
    /// Read only when it is asked for, so that a set which cannot be read can be taken away.
    std::optional<std::optional<gazetteer::Typesetting>> typesetting_;
};

}  // namespace app
