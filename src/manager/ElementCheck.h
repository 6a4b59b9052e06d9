#pragma once

#include <string>
#include <vector>

#include "host/Host.h"
#include "manager/ColumnExpressions.h"
#include "model/Results.h"

namespace gazetteer {

/// The result of checking an element: the verdict, what was opened, and the reasons against.
struct ElementCheck {
    bool canDraw = false;
    bool linkValid = false;
    host::Ref<host::IHostTable> databaseTable;  ///< Null where the database could not be opened.

    std::vector<std::string> sectionKeys;
    std::vector<std::string> templateKeys;
    std::vector<host::Ref<host::IHostMapFrame>> seriesFrames;
    host::Ref<host::IHostMapFrame> seriesMapFrame;
    host::Ref<host::IHostIndexLayer> seriesFrameLayer;
    host::Ref<host::IHostTable> indexLayerTable;

    Findings findings;  ///< Empty exactly when the element can be drawn.
};

/// Inner procedure: whether the gazetteer of an element can be drawn as it is stored: its listing
/// database opens, its column expressions are valid, and, with a link, the link leads to a frame.
/// The element's settings are read anew. Changes nothing but the series manager's frame.
ElementCheck CheckElementProperties(host::IHost& host, const SiblingObjects& siblings,
                                    const host::Ref<host::IHostElement>& element);

}  // namespace gazetteer
