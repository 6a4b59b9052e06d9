#include <cstdio>
#include <memory>
#include <ranges>

#include "app/commands/CommandSession.h"
#include "app/commands/Commands.h"
#include "app/commands/HelpTexts.h"
#include "app/commands/JsonAnswer.h"
#include "app/document/Errors.h"
#include "app/document/RunTexts.h"
#include "model/Settings.h"
#include "support/Conversions.h"

namespace app {
namespace {

struct ShowOptions {
    std::string document;
    bool json = false;
};

using gazetteer::ToObject;
using host::IHostPropertySet;

void WritePage(JsonAnswer& json, gazetteer::CVNGazetteerManager& manager, std::int32_t page) {
    const auto rows = gazetteer::SetUnder(*manager.Working().pageGroups, std::to_string(page));
    json.Member("page", page);
    json.Member("name", std::get<std::string>(manager.PageName(page)));
    json.Member("first", manager.FirstListing(page));
    json.Member("last", manager.LastListing(page));
    json.Member("rows", gazetteer::NamesOf(*rows));
}

void WriteListings(JsonAnswer& json, const IHostPropertySet& listings) {
    const auto columns = listings.AllItems();
    std::vector<host::PropertyItems> cells;
    for (const auto& column : columns.values)
        cells.push_back(ToObject<IHostPropertySet>(column)->AllItems());
    const std::size_t count = cells.empty() ? 0 : cells.front().names.size();
    json.Objects("listings", std::views::iota(std::size_t{0}, count), [&](std::size_t row) {
        json.Member("row", cells.front().names[row]);
        json.Object("cells", [&] {
            for (std::size_t i = 0; i < cells.size(); ++i)
                if (row < cells[i].values.size())
                    json.Member(columns.names[i], std::get<std::string>(cells[i].values[row]));
        });
    });
}

void WriteResults(JsonAnswer& json, gazetteer::CVNGazetteerManager& manager) {
    const std::int32_t pages = manager.Working().pageCount;
    json.Member("drawable", true);
    json.Member("defaultPage", manager.BoundSettings().defaultPage);
    json.Member("pageCount", pages);
    json.Member("columns", gazetteer::NamesOf(*manager.BoundSettings().columnDisplayOrder));
    json.Objects("pages", std::views::iota(1, pages + 1),
                 [&](std::int32_t page) { WritePage(json, manager, page); });
    WriteListings(json, *manager.Working().listings);
}

// The same keys where there are no results.
void WriteNothing(JsonAnswer& json) {
    json.Member("drawable", false);
    json.Member("defaultPage", 0);
    json.Member("pageCount", 0);
    for (const char* key : {"columns", "pages", "listings"})
        json.Member(key, std::vector<std::string>());
}

void Print(gazetteer::CVNGazetteerManager& manager, bool drawable,
           const gazetteer::Findings& reasons) {
    if (!drawable) {
        std::puts(reasons.empty() ? "The gazetteer has no page."
                                  : UndrawableLines(reasons).c_str());
        return;
    }
    std::printf("Pages: %d\nDefault page: %d\n", manager.Working().pageCount,
                manager.BoundSettings().defaultPage);
    for (std::int32_t page = 1; page <= manager.Working().pageCount; ++page)
        std::printf("%5d %s\n", page, std::get<std::string>(manager.PageName(page)).c_str());
}

int Show(const CommonOptions& common, const ShowOptions& options) {
    CommandSession session(common);
    auto& document = session.Look(options.document);
    gazetteer::Findings reasons;
    bool drawable = document.CanDraw(reasons);
    auto& manager = document.Manager();
    if (drawable) {
        if (!session.Bind()) return kCouldNot;
        reasons = manager.LastFindings();
    }
    drawable = drawable && manager.CanDraw() && document.PageCount() > 0;
    if (options.json)
        PrintAnswer(1, [&](JsonAnswer& json) {
            if (drawable)
                WriteResults(json, manager);
            else
                WriteNothing(json);
        });
    else
        Print(manager, drawable, reasons);
    return kDone;
}

}  // namespace

void AddShow(Arguments& program) {
    const auto options = std::make_shared<ShowOptions>();
    auto command =
        AddCommand(program, "show", "Show page count, default page and the name of each page",
                   [options](const CommonOptions& common) { return Show(common, *options); });
    AddDocument(command, options->document)
        .Flag("--json", options->json, "As JSON, with all listings")
        .Help(kShowHelp);
}

}  // namespace app
