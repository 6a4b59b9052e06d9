#include "listings/FirstLast.h"

#include <string>
#include <vector>

#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "support/Status.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using host::IHostPropertySet;
using host::Ref;

std::string ListingText(const std::vector<Ref<IHostPropertySet>>& columns, const std::string& row,
                        host::IHostLocale& locale) {
    std::string text;
    for (const auto& column : columns)
        text = ReplaceAll(text + ' ' + ToText(column->Item(row), locale), kDotsToken, "");
    return text;
}

// Column sets of the sort columns that make a listing's text: all but the last.
std::vector<Ref<IHostPropertySet>> TextColumns(const Settings& settings,
                                               const WorkingResults& results) {
    auto names = NamesOf(*settings.columnSortOrder);
    if (!names.empty()) names.pop_back();
    std::vector<Ref<IHostPropertySet>> columns;
    columns.reserve(names.size());
    for (const std::string& name : names) columns.push_back(SetUnder(*results.listings, name));
    return columns;
}

}  // namespace

void PopulateFirstLastListings(host::IHost& host, const Settings& settings,
                               WorkingResults& results) try {
    auto first = host.NewPropertySet();
    auto last = host.NewPropertySet();
    Status status(host);
    std::vector<Ref<IHostPropertySet>> columns;
    if (results.pageCount > 0) columns = TextColumns(settings, results);
    for (std::int32_t page = 1; page <= results.pageCount; ++page) {
        status.Show("Finding first and last listing on each page: ", page, page, results.pageCount);
        const std::string key = std::to_string(page);
        const auto rows = NamesOf(*SetUnder(*results.pageGroups, key));
        const auto text = [&](const std::string& row) {
            return ListingText(columns, row, host.Locale());
        };
        first->SetItem(key, rows.empty() ? std::string() : text(rows.front()));
        last->SetItem(key, rows.empty() ? std::string() : text(rows.back()));
    }
    results.firstListings = first;
    results.lastListings = last;
    status.Clear();
} catch (...) {
    PassOn("PopulateFirstLastListings", kManagerLabel);
}

}  // namespace gazetteer
