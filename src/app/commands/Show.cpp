#include <cstdio>
#include <nlohmann/json.hpp>

#include "app/commands/Commands.h"
#include "app/commands/Session.h"
#include "app/work/Errors.h"
#include "model/Settings.h"
#include "support/Conversions.h"

namespace app {
namespace {

using Json = nlohmann::ordered_json;
using gazetteer::ToObject;
using host::IHostPropertySet;

Json PageJson(gazetteer::CVNGazetteerManager& manager, std::int32_t page) {
    const auto rows = gazetteer::SetUnder(*manager.Working().pageGroups, std::to_string(page));
    return {{"page", page},
            {"name", std::get<std::string>(manager.PageName(page))},
            {"first", manager.FirstListing(page)},
            {"last", manager.LastListing(page)},
            {"rows", gazetteer::NamesOf(*rows)}};
}

Json ListingsJson(const IHostPropertySet& listings) {
    Json json = Json::array();
    const auto columns = listings.AllItems();
    for (std::size_t i = 0; i < columns.names.size(); ++i) {
        const auto cells = ToObject<IHostPropertySet>(columns.values[i])->AllItems();
        for (std::size_t row = 0; row < cells.names.size(); ++row) {
            if (i == 0) json.push_back({{"row", cells.names[row]}, {"cells", Json::object()}});
            json[row]["cells"][columns.names[i]] = std::get<std::string>(cells.values[row]);
        }
    }
    return json;
}

Json ShowJson(gazetteer::CVNGazetteerManager& manager, bool drawable) {
    Json json = {{"drawable", drawable},
                 {"defaultPage", drawable ? manager.BoundSettings().defaultPage : 0},
                 {"pageCount", drawable ? manager.Working().pageCount : 0},
                 {"columns", Json::array()},
                 {"pages", Json::array()},
                 {"listings", Json::array()}};
    if (!drawable) return json;
    json["columns"] = gazetteer::NamesOf(*manager.BoundSettings().columnDisplayOrder);
    for (std::int32_t page = 1; page <= manager.Working().pageCount; ++page)
        json["pages"].push_back(PageJson(manager, page));
    json["listings"] = ListingsJson(*manager.Working().listings);
    return json;
}

void Print(gazetteer::CVNGazetteerManager& manager, bool drawable,
           const gazetteer::Findings& reasons) {
    if (!drawable) {
        std::puts(reasons.empty() ? "The gazetteer has no page."
                                  : "The gazetteer cannot be drawn:");
        for (const auto& reason : reasons) std::printf("  %s\n", reason.c_str());
        return;
    }
    std::printf("Pages: %d\nDefault page: %d\n", manager.Working().pageCount,
                manager.BoundSettings().defaultPage);
    for (std::int32_t page = 1; page <= manager.Working().pageCount; ++page)
        std::printf("%5d %s\n", page, std::get<std::string>(manager.PageName(page)).c_str());
}

}  // namespace

int Show(const CommonOptions& common, const DocumentOptions& options) {
    Session session(common);
    session.Look(options.document);
    gazetteer::Findings reasons;
    bool drawable = session.CanDraw(reasons);
    auto& manager = session.Manager();
    if (drawable) {
        if (!session.Bind()) return kCouldNot;
        reasons = manager.LastFindings();
    }
    drawable = drawable && manager.CanDraw() && session.PageCount() > 0;
    if (options.json)
        std::puts(ShowJson(manager, drawable).dump(1).c_str());
    else
        Print(manager, drawable, reasons);
    return kDone;
}

}  // namespace app
