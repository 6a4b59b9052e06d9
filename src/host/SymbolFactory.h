#pragma once

#include "host/Symbols.h"

namespace host {

/// Makes symbols and what they consist of.
struct IHostSymbolFactory : virtual IHostObject {
    virtual Ref<IHostFont> NewFont() = 0;
    virtual Ref<IHostColor> NewColor() = 0;
    virtual Ref<IHostTextSymbol> NewTextSymbol() = 0;
    virtual Ref<IHostFillSymbol> NewFillSymbol() = 0;
    virtual Ref<IHostLineSymbol> NewLineSymbol() = 0;
};

}  // namespace host
