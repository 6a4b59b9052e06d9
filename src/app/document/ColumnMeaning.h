#pragma once

#include <optional>

#include "app/document/MapSquares.h"
#include "app/document/OpenDocument.h"
#include "app/document/References.h"
#include "model/ColumnProperties.h"
#include "pdf/structure/Meaning.h"

namespace app {

/// What the texts of a column's listings are, before and behind a leader.
struct ColumnMeaning {
    bool hasLeader = false;
    pdf::Role before = pdf::Role::Name;
    pdf::Role behind = pdf::Role::Name;
    std::optional<References> references;
    std::optional<MapSquares> squares;  ///< That they tell.
};

/// Reads a column of the bound gazetteer. References are only found where they are to lead to maps.
ColumnMeaning ReadColumn(OpenDocument& open, const gazetteer::ColumnProperties& column,
                         bool withReferences);

}  // namespace app
