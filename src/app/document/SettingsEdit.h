#pragma once

#include <string>
#include <vector>

#include "app/document/KeyValues.h"
#include "app/document/OpenDocument.h"
#include "model/ColumnProperties.h"
#include "model/Settings.h"

namespace app {

/// An edit of a gazetteer's settings, with the rules of the property page: changes are made on a
/// working copy, and storing them drops the stored results, makes the set one of the present
/// version, takes the element out of draft state and works out anew whether it can be drawn.
class SettingsEdit {
public:
    /// Works on a copy of what the gazetteer stores.
    explicit SettingsEdit(OpenDocument& open);

    /// Applies one KEY=VALUE. Raises a UsageError that names what is wrong.
    void Set(const std::string& text);
    /// The same, for assignments that may leave out the name of their column.
    void SetIn(const std::string& column, const std::string& text);

    gazetteer::Settings& Settings() { return settings_; }
    /// The stored form of a column's name; raises a UsageError for a column that does not exist.
    std::string ColumnName(const std::string& name);
    /// The column that is open when the page opens, the first one; null without columns.
    const gazetteer::ColumnProperties* CurrentColumn();

    /// Stores the settings, and tells of what is odd about them.
    void Store();
    /// Stores them as a step of a command that goes on to edit.
    void StoreForNow();

private:
    void SetProperty(const std::string& key, const std::string& value);
    void SetColumn(const std::string& column, const std::string& key, const std::string& value);
    void SetOrder(const std::string& key, const std::string& value,
                  host::Ref<host::IHostPropertySet> gazetteer::Settings::*order, bool marks);
    bool FitsFrame() const;

    OpenDocument& open_;
    gazetteer::Settings settings_;
    gazetteer::ColumnProperties current_;
};

}  // namespace app
