#include "app/document/MapSquares.h"

#include <set>
#include <vector>

#include "desk/expressions/ExpressionEngine.h"
#include "host/Geometry.h"
#include "listings/PageCorrection.h"
#include "support/Text.h"

namespace app {
namespace {

using Part = desk::ExpressionPart;

/// The values of row and column that stand in a square's text.
struct Labels {
    std::string row, column;
};

Labels LabelsOf(const MapSquare& square, host::IHostIndexGrid& grid, bool fromDatabase) {
    if (fromDatabase) return {std::to_string(square.row), std::to_string(square.column)};
    return {grid.RowLabel(square.row), grid.ColumnLabel(square.column)};
}

/// Returns null for a part that is neither text nor row nor column.
const std::string* TextOf(const Part& part, const Labels& labels, bool fromDatabase) {
    if (part.kind == Part::Kind::Literal) return &part.text;
    if (part.kind == Part::Kind::Field && !fromDatabase) return nullptr;
    if (gazetteer::EqualsInAnyCase(part.text, "row")) return &labels.row;
    if (gazetteer::EqualsInAnyCase(part.text, "column")) return &labels.column;
    return nullptr;
}

/// Empty for an expression that has other parts.
std::string Compose(const std::vector<Part>& parts, const Labels& labels, bool fromDatabase) {
    std::string text;
    for (const Part& part : parts) {
        const std::string* const piece = TextOf(part, labels, fromDatabase);
        if (!piece) return {};
        text += *piece;
    }
    return WithoutBlanks(text);
}

pdf::View PlaceOf(const MapSquare& square, const host::IHostIndexGrid& grid,
                  const host::IHostEnvelope& map) {
    const double width = map.Width() / grid.ColumnCount();
    const double height = map.Height() / grid.RowCount();
    const double left = map.XMin() + width * (square.column - 1);
    const double top = map.YMax() - height * (square.row - 1);
    return {left * host::kPointsPerInch, (top - height) * host::kPointsPerInch,
            (left + width) * host::kPointsPerInch, top * host::kPointsPerInch};
}

}  // namespace

MapSquares::MapSquares(OpenDocument& open, const gazetteer::ColumnProperties& column,
                       const References& references) {
    const auto frame = open.Manager().SeriesMapFrame();
    const auto grid = frame ? gazetteer::FindIndexGrid(frame) : nullptr;
    const auto geometry = frame ? frame->Geometry() : nullptr;
    if (!grid || !geometry) return;
    const auto map = geometry->Bounds();
    const auto expression =
        desk::ParseExpression(open.Manager().DatabaseTable(), references.SquareExpression());
    std::set<std::string> doubled;
    for (MapSquare square{1, 1, {}, {}}; square.row <= grid->RowCount(); ++square.row)
        for (square.column = 1; square.column <= grid->ColumnCount(); ++square.column) {
            const Labels labels = LabelsOf(square, *grid, column.fromDatabase);
            square.text = Compose(expression.parts, labels, column.fromDatabase);
            square.place = PlaceOf(square, *grid, *map);
            if (!squares_.emplace(square.text, square).second) doubled.insert(square.text);
        }
    for (const std::string& text : doubled) squares_.erase(text);
    squares_.erase("");
}

const MapSquare* MapSquares::Find(std::string_view text) const {
    if (squares_.empty()) return nullptr;
    const auto found = squares_.find(WithoutBlanks(text));
    return found == squares_.end() ? nullptr : &found->second;
}

}  // namespace app
