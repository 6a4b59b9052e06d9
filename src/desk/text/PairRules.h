#pragma once

#include "desk/text/ShapeLine.h"

namespace desk {

/// What a font's rules allow to conclude about a plain line from its single glyphs and its pairs.
struct PairRules {
    /// Whether the width of a line is a sum over its glyphs and pairs, as far as nothing joins.
    bool positionsByPairs = false;
    /// Glyphs that take part in rules on several glyphs at once, other than pairs' positions. Such
    /// a rule acts only where at least two of them stand side by side, and within these.
    SetHandle joining;
    /// Glyphs that may be replaced for the sake of any other glyph in the line.
    SetHandle unsteady;
};

/// The rules of a font for lines that begin as the plain glyphs.
PairRules ReadPairRules(hb_face_t* face, const Writing& writing, const hb_set_t* plain);

}  // namespace desk
