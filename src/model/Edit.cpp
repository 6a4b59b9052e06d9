#include "model/Edit.h"

#include "model/ColumnProperties.h"
#include "model/KeyNames.h"
#include "support/Conversions.h"

namespace gazetteer {

void StoreEdit(host::IHost& host, Settings& settings, bool canDrawIndex,
               host::IHostPropertySet& properties) {
    settings.haveSavedListings = false;
    settings.savedListings = host.NewPropertySet();
    settings.pageGroups = host.NewPropertySet();
    settings.pageFirstListings = host.NewPropertySet();
    settings.pageLastListings = host.NewPropertySet();
    settings.canDrawIndex = canDrawIndex;
    settings.version = kSchemaVersion;

    Settings stored = settings;
    stored.columnsProperties = CopySet(host, settings.columnsProperties);
    WriteSettings(stored, properties);
}

bool ColumnsFitFrame(host::IHostLocale& locale, const Settings& settings, double frameWidth) {
    double total = 0;
    for (const std::string& name : NamesOf(*settings.columnNames))
        total +=
            ToDouble(SetUnder(*settings.columnsProperties, name)->Item(keys::kColumnWidth), locale);
    return total <= frameWidth;
}

}  // namespace gazetteer
