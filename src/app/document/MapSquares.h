#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "app/document/OpenDocument.h"
#include "app/document/References.h"
#include "model/ColumnProperties.h"
#include "pdf/navigation/Target.h"

namespace app {

/// A square of the grid on a map sheet.
struct MapSquare {
    std::int32_t row = 0, column = 0;  ///< From 1, from the top and from the left.
    pdf::View place;                   ///< Points from the lower left corner of the sheet.
    std::string text;                  ///< What references print, without blanks.
};

/// The squares of the linked map, by the texts that the references of a column give them.
class MapSquares {
public:
    /// Holds none where no map is linked, where the map book tells no grid of the map or no place
    /// of it on the sheet, or where the square is composed of more than row and column.
    MapSquares(OpenDocument& open, const gazetteer::ColumnProperties& column,
               const References& references);

    /// Returns null for a text that names no square, or several. Blanks and line ends in it do not
    /// count. Valid while this exists.
    const MapSquare* Find(std::string_view text) const;

private:
    std::map<std::string, MapSquare, std::less<>> squares_;
};

}  // namespace app
