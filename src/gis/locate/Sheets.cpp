#include "gis/locate/Sheets.h"

#include <algorithm>
#include <charconv>
#include <tuple>
#include <utility>

#include "gis/locate/FeatureLayer.h"
#include "gis/locate/Geos.h"
#include "host/Failure.h"

namespace gis {
namespace {

[[noreturn]] void Fail(const std::string& sentence) {
    throw host::Failure(host::kFailureUnspecified, "ReadSheets", sentence);
}

/// Numbers come before texts, by their value.
struct PageOrder {
    bool isText;
    double number;
    std::string text;

    auto operator<=>(const PageOrder&) const = default;
};

PageOrder OrderOf(const std::string& page) {
    double number = 0;
    const char* const end = page.data() + page.size();
    const auto parsed = std::from_chars(page.data(), end, number);
    const bool isText = parsed.ec != std::errc() || parsed.ptr != end;
    return {isText, isText ? 0 : number, page};
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

bool IsArea(const OGRGeometry* geometry) {
    return geometry != nullptr && geometry->IsEmpty() == 0 && geometry->getDimension() == 2;
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
    // Without a grid the sheet itself is the square.
    if (!sheet.grid)
        sheet.squares.push_back(
            {0, 0, std::shared_ptr<const OGRGeometry>(area.clone()), sheet.box});
    return sheet;
}

std::string Numbers(const LeftOut& features) {
    std::string numbers;
    for (const auto number : features.first)
        numbers += (numbers.empty() ? "" : ", ") + std::to_string(number);
    return numbers + (features.count > std::ssize(features.first) ? ", ..." : "");
}

void NoteLeftOut(Sheets& sheets, const std::string& layer, const LeftOut& features,
                 const std::string& one, const std::string& many) {
    if (features.count > 0)
        sheets.notes.push_back(layer + ": " + std::to_string(features.count) + ' ' +
                               (features.count == 1 ? one : many) + " left out (feature " +
                               Numbers(features) + ").");
}

std::int32_t LabelIndex(std::vector<std::string>& labels, const std::string& label) {
    const auto found = std::ranges::find(labels, label);
    if (found != labels.end()) return static_cast<std::int32_t>(found - labels.begin());
    labels.push_back(label);
    return static_cast<std::int32_t>(labels.size()) - 1;
}

/// Cuts the squares to each sheet, because a square at an edge may lie on two.
class SquareCutter {
public:
    SquareCutter(const SquareLayer& place, Sheets& sheets)
        : layer_(place),
          row_(layer_.Field(place.rowField)),
          column_(layer_.Field(place.columnField)),
          sheets_(sheets) {
        for (const auto& sheet : sheets.sheets)
            areas_.push_back(geos_.Copy(*sheet.squares[0].area));
        for (auto& sheet : sheets.sheets) sheet.squares.clear();
    }

    void Cut() {
        LeftOut others;
        while (const auto& row = layer_.Next()) {
            auto* const area = row->Feature().GetGeometryRef();
            const auto square = IsArea(area) ? geos_.Copy(*area) : Geos::Geometry();
            if (square && geos_.IsValid(square))
                CutOne(*row, *area, square);
            else
                others.Add(row->Feature().GetFID());
        }
        NoteLeftOut(sheets_, layer_.Name(), others, "square that is no area was",
                    "squares that are no areas were");
    }

private:
    void CutOne(const FeatureRow& row, const OGRGeometry& area, const Geos::Geometry& square) {
        OGREnvelope box;
        area.getEnvelope(&box);
        for (std::size_t i = 0; i < areas_.size(); ++i) {
            auto& sheet = sheets_.sheets[i];
            if (sheet.box.Intersects(box) == 0) continue;
            const auto piece = geos_.Intersection(areas_[i].get(), square.get());
            if (!piece || geos_.Area(piece.get()) <= 0) continue;
            OwnSquare own;
            own.row = LabelIndex(sheets_.rowLabels, LabelOf(row.Value(row_)));
            own.column = LabelIndex(sheets_.columnLabels, LabelOf(row.Value(column_)));
            own.area.reset(OGRGeometryFactory::createFromGEOS(geos_.Context(), piece.get()));
            own.area->getEnvelope(&own.box);
            sheet.squares.push_back(std::move(own));
        }
    }

    Geos geos_;
    FeatureLayer layer_;
    std::int32_t row_;
    std::int32_t column_;
    Sheets& sheets_;
    std::vector<Geos::Geometry> areas_;
};

}  // namespace

void LeftOut::Add(std::int64_t feature) {
    constexpr std::size_t kFirst = 5;
    ++count;
    if (first.size() < kFirst) first.push_back(feature);
}

Sheets ReadSheets(const LocateJob& job) {
    Sheets sheets;
    FeatureLayer layer(job.sheets);
    const std::int32_t pageField = layer.Field(job.pageField);
    SetReference(sheets, layer);
    LeftOut others;
    LeftOut withoutPage;
    while (const auto& row = layer.Next()) {
        auto& feature = row->Feature();
        const auto* const area = feature.GetGeometryRef();
        const std::string page = LabelOf(row->Value(pageField));
        if (page.empty())
            withoutPage.Add(feature.GetFID());
        else if (!IsArea(area))
            others.Add(feature.GetFID());
        else
            sheets.sheets.push_back(MakeSheet(job, *area, page, layer.Name()));
    }
    NoteLeftOut(sheets, layer.Name(), withoutPage, "sheet without a page was",
                "sheets without a page were");
    NoteLeftOut(sheets, layer.Name(), others, "sheet that is no area was",
                "sheets that are no areas were");
    if (sheets.sheets.empty()) Fail(layer.Name() + " has no sheet: no area with a page.");
    const auto order = [](const Sheet& sheet) { return OrderOf(sheet.page); };
    sheets.isInPageOrder = std::ranges::is_sorted(sheets.sheets, {}, order);
    std::ranges::stable_sort(sheets.sheets, {}, order);
    if (job.ownSquares) SquareCutter(*job.ownSquares, sheets).Cut();
    return sheets;
}

}  // namespace gis
