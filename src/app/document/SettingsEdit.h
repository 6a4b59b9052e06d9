#pragma once

#include <string>

#include "app/document/KeyValues.h"
#include "app/document/OpenDocument.h"
#include "model/Settings.h"

namespace app {

/// An edit of a gazetteer's settings, with the rules of the property page: changes are made on a
/// working copy. Storing it drops the stored results, writes the set in the present version, ends
/// the draft state of the element, and stores whether the gazetteer can be drawn.
class SettingsEdit {
public:
    /// Works on a copy of what the gazetteer stores.
    explicit SettingsEdit(OpenDocument& open);

    /// Applies one KEY=VALUE. Throws a UsageError that names what is wrong.
    void Set(const std::string& text);
    /// Applies one KEY=VALUE to a column; the key must stand without the name of a column.
    void SetIn(const std::string& column, const std::string& text);
    /// Adds a column that looks like the first one, as the property page does when it has just been
    /// opened.
    void AddColumn(const std::string& name);

    gazetteer::Settings& Settings() { return settings_; }
    /// Returns the stored form of a column's name. Throws a UsageError for an unknown column.
    std::string ColumnName(const std::string& name);

    /// Stores the settings and warns of unusual values.
    void Store();
    /// Stores the settings without warnings, for commands that go on to edit.
    void StoreForNow();

private:
    void SetProperty(const std::string& key, const std::string& value);
    void SetColumn(const std::string& column, const std::string& key, const std::string& value);
    void SetOrder(const std::string& key, const std::string& value,
                  host::Ref<host::IHostPropertySet> gazetteer::Settings::*order, bool marks);
    bool FitsFrame() const;

    OpenDocument& open_;
    gazetteer::Settings settings_;
};

}  // namespace app
