#include "app/document/FindFindings.h"
#include "app/document/ListingPlaces.h"
#include "app/document/References.h"
#include "model/ColumnProperties.h"
#include "model/Results.h"
#include "support/Conversions.h"
#include "support/Text.h"

namespace app {
namespace {

/// Returns the references of a stored text: what is behind its leader, as it is drawn.
std::string ReferenceText(std::string text) {
    if (const auto leader = text.rfind(gazetteer::kDotsToken); leader != std::string::npos)
        text.erase(0, leader + std::size(gazetteer::kDotsToken) - 1);
    text = gazetteer::ReplaceAll(std::move(text), gazetteer::kLastCombineToken, "");
    return gazetteer::ReplaceAll(std::move(text), gazetteer::kNewLineToken, "\n");
}

std::string BehindLeader(const std::string& expression) {
    const auto leader = expression.rfind(gazetteer::kDotsToken);
    return leader == std::string::npos
               ? expression
               : expression.substr(leader + std::size(gazetteer::kDotsToken) - 1);
}

}  // namespace

void AddMapFindings(OpenDocument& open, const MapFile& maps, FindingList& list) {
    MapPages pages(maps, maps.path);
    const gazetteer::Settings& settings = open.Manager().BoundSettings();
    const auto& results = open.Manager().Working();
    for (const std::string& column : gazetteer::NamesOf(*settings.columnDisplayOrder)) {
        const auto set = gazetteer::SetUnder(*settings.columnsProperties, column);
        const auto properties = gazetteer::ReadColumnProperties(*set, open.Host().Locale());
        const auto references = References::Of(settings, BehindLeader(properties.expression));
        if (!references) continue;
        const auto cells = gazetteer::SetUnder(*results.listings, column)->AllItems();
        for (std::size_t i = 0; i < cells.names.size(); ++i) {
            const std::string text =
                ReferenceText(gazetteer::ToText(cells.values[i], open.Host().Locale()));
            for (const FoundReference& reference : references->Find(text)) {
                if (pages.Find(reference.page)) continue;
                list.Add(findings::kNoTarget, [&] {
                    const std::string listing = ListingText(open, cells.names[i]);
                    const std::string page(reference.page);
                    return Finding{{},
                                   "listing \"" + listing + "\", column \"" + column +
                                       "\": there is no map page " + page + " in \"" + maps.path +
                                       "\".",
                                   listing,
                                   column,
                                   0,
                                   0,
                                   cells.names[i]};
                });
            }
        }
    }
}

}  // namespace app
