#pragma once

#include "host/MapBook.h"

namespace host {

/// Makes what tells of the map book of the current document, and what composes texts.
struct IHostMapBookFactory : virtual IHostObject {
    virtual Ref<CVNLayoutContext> NewLayoutContext() = 0;
    virtual Ref<CVNMapBook> NewMapBook() = 0;
    virtual Ref<MapSeriesManager> NewMapSeriesManager() = 0;
    virtual Ref<CVNExpressionEngine> NewExpressionEngine() = 0;
};

}  // namespace host
