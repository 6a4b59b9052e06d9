#include "gis/locate/SquareCutter.h"

#include <algorithm>
#include <utility>

#include "gis/locate/FeatureLayer.h"
#include "gis/locate/Geos.h"
#include "gis/locate/Locator.h"
#include "gis/locate/PageOrder.h"

namespace gis {
namespace {

std::int32_t LabelIndex(std::vector<std::string>& labels, const std::string& label) {
    const auto found = std::ranges::find(labels, label);
    if (found != labels.end()) return static_cast<std::int32_t>(found - labels.begin());
    labels.push_back(label);
    return static_cast<std::int32_t>(labels.size()) - 1;
}

/// Sorts labels as pages; returns by old index the new one.
std::vector<std::int32_t> SortLabels(std::vector<std::string>& labels) {
    const auto before = labels;
    std::ranges::sort(labels, {}, PageOrder::Of);
    std::vector<std::int32_t> places;
    for (const auto& label : before)
        places.push_back(
            static_cast<std::int32_t>(std::ranges::find(labels, label) - labels.begin()));
    return places;
}

/// Whether two rectangles have more than a border in common.
bool HaveArea(OGREnvelope one, const OGREnvelope& other) {
    one.Intersect(other);
    return one.MaxX > one.MinX && one.MaxY > one.MinY;
}

class SquareCutter {
public:
    SquareCutter(const SquareLayer& place, Sheets& sheets)
        : layer_(place),
          row_(layer_.Field(place.rowField)),
          column_(layer_.Field(place.columnField)),
          sheets_(sheets),
          transformation_(TransformationTo(sheets, layer_.Reference())),
          index_(geos_, BoxesOf(sheets.sheets)) {
        for (auto& sheet : sheets.sheets) {
            areas_.push_back(geos_.PrepareCopy(*sheet.area));
            sheet.squares.clear();
        }
    }

    void Cut() {
        LeftOut others;
        LeftOut mended;
        while (const auto& row = layer_.Next()) {
            auto* const area = row->Feature().GetGeometryRef();
            bool isMended = false;
            const auto square = IsArea(area) && IsTransformed(*area)
                                    ? geos_.ValidArea(*area, isMended)
                                    : Geos::Geometry();
            if (square)
                CutOne(*row, *area, square);
            else
                others.Add(row->Feature().GetFID());
            if (square && isMended) mended.Add(row->Feature().GetFID());
        }
        layer_.AddNotes(sheets_.notes);
        others.Tell(sheets_.notes, layer_.Name(), "square that is no area was left out",
                    "squares that are no areas were left out");
        mended.Tell(sheets_.notes, layer_.Name(), "square had a broken outline, which was mended",
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
        for (const std::size_t number : index_.Find(box)) {
            auto& sheet = sheets_.sheets[number];
            if (!HaveArea(sheet.box, box)) continue;
            const auto piece = PieceOn(areas_[number], square);
            if (!piece) continue;
            OwnSquare own;
            own.row = LabelIndex(sheets_.rowLabels, WholeText(row.Value(row_)));
            own.column = LabelIndex(sheets_.columnLabels, WholeText(row.Value(column_)));
            own.area = geos_.Shape(piece);
            own.area->getEnvelope(&own.box);
            sheet.squares.push_back(std::move(own));
        }
    }

    Geos::Geometry PieceOn(const Geos::PreparedArea& sheet, const Geos::Geometry& square) const {
        return geos_.Covers(sheet, square)
                   ? geos_.Copy(square)
                   : geos_.Areas(geos_.Intersection(sheet.area.get(), square.get()));
    }

    Geos geos_;
    FeatureLayer layer_;
    std::int32_t row_;
    std::int32_t column_;
    Sheets& sheets_;
    std::unique_ptr<OGRCoordinateTransformation> transformation_;
    BoxIndex index_;  ///< Of the sheets.
    std::vector<Geos::PreparedArea> areas_;
};

}  // namespace

void CutSquares(const SquareLayer& place, Sheets& sheets) {
    SquareCutter(place, sheets).Cut();
}

}  // namespace gis
