#include "gis/locate/Sheets.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <tuple>
#include <utility>

#include "gis/locate/FeatureLayer.h"
#include "gis/locate/Geos.h"
#include "gis/locate/Locator.h"
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
    // "Nan" and "Inf" may be places.
    const bool isText = parsed.ec != std::errc() || parsed.ptr != end || !std::isfinite(number);
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

/// The geometry itself or, if it is no valid area, what GEOS makes of it; null where it cannot.
Geos::Geometry ValidArea(const Geos& geos, const OGRGeometry& geometry, bool& isMended) {
    auto area = geos.Copy(geometry);
    isMended = area && !geos.IsValid(area);
    return isMended ? geos.Areas(geos.MakeValid(area)) : std::move(area);
}

std::shared_ptr<const OGRGeometry> FromGeos(const Geos& geos, const Geos::Geometry& area) {
    return std::shared_ptr<const OGRGeometry>(
        OGRGeometryFactory::createFromGEOS(geos.Context(), area.get()));
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

std::string Numbers(const LeftOut& features) {
    std::string numbers;
    for (const auto number : features.first)
        numbers += (numbers.empty() ? "" : ", ") + std::to_string(number);
    return numbers + (features.count > std::ssize(features.first) ? ", ..." : "");
}

void NoteFeatures(Sheets& sheets, const std::string& layer, const LeftOut& features,
                  const std::string& one, const std::string& many) {
    if (features.count > 0)
        sheets.notes.push_back(layer + ": " + std::to_string(features.count) + ' ' +
                               (features.count == 1 ? one : many) + " (feature " +
                               Numbers(features) + ").");
}

std::int32_t LabelIndex(std::vector<std::string>& labels, const std::string& label) {
    const auto found = std::ranges::find(labels, label);
    if (found != labels.end()) return static_cast<std::int32_t>(found - labels.begin());
    labels.push_back(label);
    return static_cast<std::int32_t>(labels.size()) - 1;
}

/// Sorts labels as pages; returns by old index the new one.
std::vector<std::int32_t> SortLabels(std::vector<std::string>& labels) {
    const auto before = labels;
    std::ranges::sort(labels, {}, OrderOf);
    std::vector<std::int32_t> places;
    for (const auto& label : before)
        places.push_back(
            static_cast<std::int32_t>(std::ranges::find(labels, label) - labels.begin()));
    return places;
}

void AddNotes(Sheets& sheets, const FeatureLayer& layer) {
    const auto& notes = layer.Notes().All();
    sheets.notes.insert(sheets.notes.end(), notes.begin(), notes.end());
}

/// Cuts the squares to each sheet, because a square at an edge may lie on two.
class SquareCutter {
public:
    SquareCutter(const SquareLayer& place, Sheets& sheets)
        : layer_(place),
          row_(layer_.Field(place.rowField)),
          column_(layer_.Field(place.columnField)),
          sheets_(sheets),
          transformation_(TransformationTo(sheets, layer_.Reference())) {
        for (const auto& sheet : sheets.sheets)
            areas_.push_back(geos_.Copy(*sheet.squares[0].area));
        for (auto& sheet : sheets.sheets) sheet.squares.clear();
    }

    void Cut() {
        LeftOut others;
        LeftOut mended;
        while (const auto& row = layer_.Next()) {
            auto* const area = row->Feature().GetGeometryRef();
            bool isMended = false;
            const auto square = IsArea(area) && IsTransformed(*area)
                                    ? ValidArea(geos_, *area, isMended)
                                    : Geos::Geometry();
            if (square)
                CutOne(*row, *area, square);
            else
                others.Add(row->Feature().GetFID());
            if (square && isMended) mended.Add(row->Feature().GetFID());
        }
        AddNotes(sheets_, layer_);
        NoteFeatures(sheets_, layer_.Name(), others, "square that is no area was left out",
                     "squares that are no areas were left out");
        NoteFeatures(sheets_, layer_.Name(), mended,
                     "square had a broken outline, which was mended",
                     "squares had broken outlines, which were mended");
        NoteSheetsWithout();
        SortByLabels();
    }

private:
    bool IsTransformed(OGRGeometry& area) const {
        const GdalMessages messages;
        return !transformation_ || area.transform(transformation_.get()) == OGRERR_NONE;
    }

    void NoteSheetsWithout() {
        for (const auto& sheet : sheets_.sheets)
            if (sheet.squares.empty())
                sheets_.notes.push_back(layer_.Name() + ": the sheet of page \"" + sheet.page +
                                        "\" has no square.");
    }

    void SortByLabels() {
        const auto rows = SortLabels(sheets_.rowLabels);
        const auto columns = SortLabels(sheets_.columnLabels);
        for (auto& sheet : sheets_.sheets)
            for (auto& square : sheet.squares) {
                square.row = rows[static_cast<std::size_t>(square.row)];
                square.column = columns[static_cast<std::size_t>(square.column)];
            }
    }

    void CutOne(const FeatureRow& row, const OGRGeometry& area, const Geos::Geometry& square) {
        OGREnvelope box;
        area.getEnvelope(&box);
        for (std::size_t i = 0; i < areas_.size(); ++i) {
            auto& sheet = sheets_.sheets[i];
            if (sheet.box.Intersects(box) == 0) continue;
            const auto piece = geos_.Areas(geos_.Intersection(areas_[i].get(), square.get()));
            if (!piece) continue;
            OwnSquare own;
            own.row = LabelIndex(sheets_.rowLabels, LabelOf(row.Value(row_)));
            own.column = LabelIndex(sheets_.columnLabels, LabelOf(row.Value(column_)));
            own.area = FromGeos(geos_, piece);
            own.area->getEnvelope(&own.box);
            sheet.squares.push_back(std::move(own));
        }
    }

    Geos geos_;
    FeatureLayer layer_;
    std::int32_t row_;
    std::int32_t column_;
    Sheets& sheets_;
    std::unique_ptr<OGRCoordinateTransformation> transformation_;
    std::vector<Geos::Geometry> areas_;
};

}  // namespace

void LeftOut::Add(std::int64_t feature) {
    constexpr std::size_t kFirst = 5;
    ++count;
    if (first.size() < kFirst) first.push_back(feature);
}

namespace {

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
        const std::string page = LabelOf(row->Value(pageField));
        bool isMended = false;
        const auto valid = IsArea(area) ? ValidArea(geos, *area, isMended) : Geos::Geometry();
        if (page.empty()) {
            withoutPage.Add(feature.GetFID());
        } else if (!valid) {
            others.Add(feature.GetFID());
        } else {
            auto sheet = MakeSheet(job, *area, page, layer.Name());
            // Without a grid the sheet itself is the square.
            if (!sheet.grid) sheet.squares.push_back({0, 0, FromGeos(geos, valid), sheet.box});
            sheets.sheets.push_back(std::move(sheet));
            if (isMended) mended.Add(feature.GetFID());
        }
    }
    NoteFeatures(sheets, layer.Name(), withoutPage, "sheet without a page was left out",
                 "sheets without a page were left out");
    NoteFeatures(sheets, layer.Name(), others, "sheet that is no area was left out",
                 "sheets that are no areas were left out");
    NoteFeatures(sheets, layer.Name(), mended, "sheet had a broken outline, which was mended",
                 "sheets had broken outlines, which were mended");
}

}  // namespace

Sheets ReadSheets(const LocateJob& job) {
    Sheets sheets;
    FeatureLayer layer(job.sheets);
    SetReference(sheets, layer);
    ReadInto(sheets, layer, job);
    AddNotes(sheets, layer);
    if (sheets.sheets.empty()) Fail(layer.Name() + " has no sheet: no area with a page.");
    const auto order = [](const Sheet& sheet) { return OrderOf(sheet.page); };
    sheets.isInPageOrder = std::ranges::is_sorted(sheets.sheets, {}, order);
    std::ranges::stable_sort(sheets.sheets, {}, order);
    NoteRepeatedPages(sheets, layer.Name());
    if (job.ownSquares) SquareCutter(*job.ownSquares, sheets).Cut();
    return sheets;
}

}  // namespace gis
