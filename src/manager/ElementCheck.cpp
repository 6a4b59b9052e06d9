#include "manager/ElementCheck.h"

#include <algorithm>
#include <utility>

#include "listings/IndexTable.h"
#include "manager/SeriesLink.h"
#include "model/GeneralFunctions.h"
#include "model/KeyNames.h"
#include "model/Keys.h"
#include "model/Paths.h"
#include "model/Settings.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

using host::IHostPropertySet;

bool Holds(const std::vector<std::string>& keys, const std::string& key) {
    return std::ranges::find(keys, key) != keys.end();
}

// Takes the last frame of the stored name, with its index layer.
void TakeFrame(const SiblingObjects& siblings, const std::string& name, ElementCheck& check) {
    for (const auto& frame : check.seriesFrames) {
        if (Require<host::IHostElementName>(frame)->Name() != name) continue;
        check.seriesMapFrame = frame;
        siblings.seriesManager->ClearFrame();
        siblings.seriesManager->SetFrame(frame);
        check.seriesFrameLayer = siblings.seriesManager->IndexLayer();
        if (!check.seriesFrameLayer) FailTypeMismatch();
        check.indexLayerTable = check.seriesFrameLayer->Table();
        check.linkValid = true;
    }
}

// The stored source of an element's listings.
struct StoredSource {
    StoredSource(const IHostPropertySet& properties, host::IHostLocale& locale)
        : linked(ToBoolean(properties.Item(keys::kLinkToMapSeries))),
          section(ToText(properties.Item(keys::kMapSeriesSectionKey), locale)),
          templateKey(ToText(properties.Item(keys::kMapSeriesTemplateKey), locale)),
          frameName(ToText(properties.Item(keys::kMapSeriesFrameName), locale)),
          database(ToText(properties.Item(keys::kIndexDatabaseFile), locale)) {}

    bool linked;
    std::string section;
    std::string templateKey;
    std::string frameName;
    std::string database;
};

// Follows the stored link from section to template to frame.
void CheckLink(const SiblingObjects& siblings, const StoredSource& stored, ElementCheck& check) {
    const auto& [linked, section, templateKey, frameName, database] = stored;
    if (section.empty() || section == kNoSelection) {
        check.findings.emplace_back("No section of the map book is chosen for the link.");
        return;
    }
    auto& book = *siblings.mapBook;
    check.sectionKeys = book.SectionKeys(book.SectionBook(section));
    if (!Holds(check.sectionKeys, section)) {
        check.findings.push_back("The linked section \"" + section + "\" is not in the map book.");
        return;
    }
    check.templateKeys = book.TemplateKeys(section);
    if (!Holds(check.templateKeys, templateKey)) {
        check.findings.push_back("The linked template \"" + templateKey +
                                 "\" is not in the section \"" + section + "\".");
        return;
    }
    check.seriesFrames =
        GetMapSeriesFrames(*siblings.seriesManager, book.TemplateLayout(templateKey));
    TakeFrame(siblings, frameName, check);
    if (!check.linkValid)
        check.findings.push_back("There is no map series frame \"" + frameName +
                                 "\" with an index layer on the template \"" + templateKey + "\".");
}

void CheckDatabase(host::IHost& host, const std::string& path, ElementCheck& check) {
    if (path.empty()) {
        check.findings.emplace_back("No listing database is set.");
    } else if (!host.FileExists(path)) {
        check.findings.push_back("The listing database \"" + path + "\" does not exist.");
    } else {
        check.databaseTable = OpenTableFile(host, path);
    }
}

// Whether a stored value is a length. One that is no number fails when it is read.
bool HoldsLength(const host::Variant& value, host::IHostLocale& locale) try {
    return IsLength(ToDouble(value, locale));
} catch (const host::Failure&) {
    return true;
}

// Whether the values under the keys of lengths are lengths, whatever type they are stored with.
template <class Key>
bool CheckLengths(const IHostPropertySet& set, const Key* (*find)(std::string_view),
                  host::IHostLocale& locale, const std::string& owner, Findings& findings) {
    bool valid = true;
    const auto items = set.AllItems();
    for (std::size_t i = 0; i < items.names.size(); ++i) {
        const auto* const key = find(items.names[i]);
        if (!key || key->kind != ValueKind::Double || HoldsLength(items.values[i], locale))
            continue;
        findings.push_back(owner + items.names[i] +
                           " must be a number of inches from -1000 to 1000.");
        valid = false;
    }
    return valid;
}

// Longer lengths would take time and memory without end, or leave no place on any sheet.
bool CheckAllLengths(const IHostPropertySet& properties, host::IHostLocale& locale,
                     Findings& findings) {
    bool valid = CheckLengths(properties, FindPropertyKey, locale, "", findings);
    const auto columns = SetUnder(properties, keys::kColumnsProperties);
    for (const std::string& name : NamesOf(*SetUnder(properties, keys::kColumnNames)))
        valid = CheckLengths(*SetUnder(*columns, name), FindColumnKey, locale,
                             "Column \"" + name + "\": ", findings) &&
                valid;
    return valid;
}

// Whether the index table accepts the column names and can sort by the sort columns.
bool CheckColumnNames(const IHostPropertySet& properties, Findings& findings) {
    auto names = NamesOf(*SetUnder(properties, keys::kColumnNames));
    std::vector<std::string> sorted;
    const auto order = SetUnder(properties, keys::kColumnSortOrder)->AllItems();
    if (ToBoolean(properties.Item(keys::kSortColumns)))
        for (std::size_t i = 0; i < order.names.size(); ++i)
            if (ToBoolean(order.values[i])) sorted.push_back(order.names[i]);
    for (const std::string& name : sorted)
        if (!Holds(names, name)) names.push_back(name);
    bool valid = true;
    for (const std::string& name : names) {
        auto refusal = IndexTableRefusal(name, Holds(sorted, name));
        if (refusal.empty()) continue;
        findings.push_back(std::move(refusal));
        valid = false;
    }
    return valid;
}

}  // namespace

ElementCheck CheckElementProperties(host::IHost& host, const SiblingObjects& siblings,
                                    const host::Ref<host::IHostElement>& element) try {
    ElementCheck check;
    if (!siblings.expressionEngine)
        throw host::Failure(host::kFailureUnspecified, "",
                            "The map series library could not be reached.");
    if (!HasGazetteerProperties(host, element)) {
        check.findings.emplace_back("The element is no gazetteer.");
        return check;
    }
    auto& locale = host.Locale();
    const auto properties = StoredGazetteerProperties(element);
    const StoredSource stored(*properties, locale);
    if (stored.linked) CheckLink(siblings, stored, check);
    CheckDatabase(host, stored.database, check);

    bool columnsValid = false;
    if (check.databaseTable)
        columnsValid = CheckColumnExpressions(
            *siblings.expressionEngine, locale, *properties,
            {check.databaseTable, check.linkValid ? check.indexLayerTable : nullptr},
            check.findings);
    const bool namesValid = check.databaseTable && CheckColumnNames(*properties, check.findings);
    const bool lengthsValid =
        check.databaseTable && CheckAllLengths(*properties, locale, check.findings);
    check.canDraw =
        columnsValid && namesValid && lengthsValid && (!stored.linked || check.linkValid);
    return check;
} catch (...) {
    PassOn("CheckElementProperties", kManagerLabel);
}

}  // namespace gazetteer
