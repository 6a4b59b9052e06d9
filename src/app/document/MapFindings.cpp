#include "app/document/FindFindings.h"
#include "app/document/ListingPlaces.h"
#include "app/document/References.h"
#include "model/ColumnProperties.h"
#include "support/Conversions.h"

namespace app {
namespace {

Finding WithoutPage(OpenDocument& open, const std::string& row, const std::string& column,
                    std::string_view page, const std::string& maps) {
    const std::string listing = ListingText(open, row);
    Finding finding{{},
                    "listing \"" + listing + "\", column \"" + column +
                        "\": there is no map page " + std::string(page) + " in \"" + maps + "\".",
                    listing,
                    column};
    finding.row = row;
    return finding;
}

}  // namespace

void AddMapFindings(OpenDocument& open, const MapPages& maps, FindingList& list) {
    auto& locale = open.Host().Locale();
    const gazetteer::Settings& settings = open.Manager().BoundSettings();
    const auto& listings = *open.Manager().Working().listings;
    for (const std::string& column : gazetteer::NamesOf(*settings.columnDisplayOrder)) {
        const auto set = gazetteer::SetUnder(*settings.columnsProperties, column);
        const auto references =
            References::Of(settings, gazetteer::ReadColumnProperties(*set, locale).expression);
        if (!references) continue;
        const auto cells = gazetteer::SetUnder(listings, column)->AllItems();
        for (std::size_t i = 0; i < cells.names.size(); ++i) {
            const std::string text =
                References::DrawnText(gazetteer::ToText(cells.values[i], locale));
            for (const FoundReference& reference : references->Find(text))
                if (!maps.Has(reference.page))
                    list.Add(findings::kNoTarget, [&] {
                        return WithoutPage(open, cells.names[i], column, reference.page,
                                           maps.Path());
                    });
        }
    }
}

}  // namespace app
