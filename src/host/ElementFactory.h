#pragma once

#include "host/Elements.h"

namespace host {

/// Makes elements of a page.
struct IHostElementFactory : virtual IHostObject {
    virtual Ref<IHostGroupElement> NewGroupElement() = 0;
    virtual Ref<IHostTextElement> NewTextElement() = 0;
    virtual Ref<IHostFilledElement> NewRectangleElement() = 0;
};

}  // namespace host
