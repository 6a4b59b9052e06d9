#include "gis/locate/Sheets.h"

#include <algorithm>
#include <utility>

#include "gis/locate/FeatureLayer.h"
#include "gis/locate/Geos.h"
#include "gis/locate/PageOrder.h"
#include "gis/locate/SquareCutter.h"
#include "host/Failure.h"

namespace gis {
namespace {

[[noreturn]] void Fail(const std::string& sentence) {
    throw host::Failure(host::kFailureUnspecified, "ReadSheets", sentence);
}

/// The outline of a polygon without holes; nothing for other geometries.
std::vector<Point> OutlineOf(const OGRGeometry& geometry) {
    const OGRGeometry* single = &geometry;
    if (wkbFlatten(single->getGeometryType()) == wkbMultiPolygon &&
        single->toMultiPolygon()->getNumGeometries() == 1)
        single = single->toMultiPolygon()->getGeometryRef(0);
    if (wkbFlatten(single->getGeometryType()) != wkbPolygon) return {};
    const OGRPolygon& polygon = *single->toPolygon();
    std::vector<Point> outline;
    if (polygon.getNumInteriorRings() == 0 && polygon.getExteriorRing() != nullptr)
        for (const auto& point : *polygon.getExteriorRing())
            outline.push_back({point.getX(), point.getY()});
    return outline;
}

void SetReference(Sheets& sheets, const FeatureLayer& layer) {
    if (const auto* const reference = layer.Reference()) {
        sheets.reference = *reference;
        sheets.reference.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
        sheets.hasReference = true;
    }
}

Sheet MakeSheet(const LocateJob& job, const OGRGeometry& area, const std::string& page,
                const std::string& layer) {
    Sheet sheet;
    sheet.page = page;
    area.getEnvelope(&sheet.box);
    const auto outline = OutlineOf(area);
    if (!job.ownSquares) {
        const SheetGrid grid = job.grid.value_or(SheetGrid{});
        sheet.grid = Grid::Over(outline, grid.rows, grid.columns);
        if (!sheet.grid && job.grid)
            Fail(layer + ": the sheet of page \"" + page +
                 "\" is no rectangle, so that no grid can be laid over it.");
    }
    return sheet;
}

/// Sheets of one page are kept: they may be a map and its inset.
void NoteRepeatedPages(Sheets& sheets, const std::string& layer) {
    const auto& all = sheets.sheets;
    for (auto first = all.begin(); first != all.end();) {
        const auto last =
            std::find_if(first, all.end(), [&](const Sheet& s) { return s.page != first->page; });
        if (last - first > 1)
            sheets.notes.push_back(layer + ": " + std::to_string(last - first) +
                                   " sheets have the page \"" + first->page + "\".");
        first = last;
    }
}

/// Reads the sheets in the order of the layer.
void ReadInto(Sheets& sheets, FeatureLayer& layer, const LocateJob& job) {
    const std::int32_t pageField = layer.Field(job.pageField);
    const Geos geos;
    LeftOut others;
    LeftOut withoutPage;
    LeftOut mended;
    while (const auto& row = layer.Next()) {
        auto& feature = row->Feature();
        const auto* const area = feature.GetGeometryRef();
        const std::string page = WholeText(row->Value(pageField));
        bool isMended = false;
        const auto valid = IsArea(area) ? geos.ValidArea(*area, isMended) : Geos::Geometry();
        if (page.empty()) {
            withoutPage.Add(feature.GetFID());
        } else if (!valid) {
            others.Add(feature.GetFID());
        } else {
            auto sheet = MakeSheet(job, *area, page, layer.Name());
            sheet.area = geos.Shape(valid);
            // Without a grid the sheet itself is the square.
            if (!sheet.grid) sheet.squares.push_back({0, 0, sheet.area, sheet.box});
            sheets.sheets.push_back(std::move(sheet));
            if (isMended) mended.Add(feature.GetFID());
        }
    }
    withoutPage.Tell(sheets.notes, layer.Name(), "sheet without a page was left out",
                     "sheets without a page were left out");
    others.Tell(sheets.notes, layer.Name(), "sheet that is no area was left out",
                "sheets that are no areas were left out");
    mended.Tell(sheets.notes, layer.Name(), "sheet had a broken outline, which was mended",
                "sheets had broken outlines, which were mended");
}

}  // namespace

Sheets ReadSheets(const LocateJob& job) {
    Sheets sheets;
    FeatureLayer layer(job.sheets);
    SetReference(sheets, layer);
    ReadInto(sheets, layer, job);
    layer.AddNotes(sheets.notes);
    if (sheets.sheets.empty()) Fail(layer.Name() + " has no sheet: no area with a page.");
    const auto order = [](const Sheet& sheet) { return PageOrder::Of(sheet.page); };
    sheets.isInPageOrder = std::ranges::is_sorted(sheets.sheets, {}, order);
    std::ranges::stable_sort(sheets.sheets, {}, order);
    NoteRepeatedPages(sheets, layer.Name());
    if (job.ownSquares) CutSquares(*job.ownSquares, sheets);
    return sheets;
}

}  // namespace gis
