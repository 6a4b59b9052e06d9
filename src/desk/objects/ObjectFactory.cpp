#include "desk/objects/ObjectFactory.h"

#include "desk/objects/Elements.h"
#include "desk/objects/Geometry.h"
#include "desk/objects/PropertySet.h"
#include "desk/objects/Symbols.h"

namespace desk {

host::Ref<host::IHostPropertySet> ObjectFactory::NewPropertySet() {
    return std::make_shared<PropertySet>();
}

host::Ref<host::IHostObjectCopy> ObjectFactory::NewObjectCopy() {
    return std::make_shared<ObjectCopy>();
}

host::Ref<host::IHostPoint> ObjectFactory::NewPoint() {
    return std::make_shared<Point>();
}

host::Ref<host::IHostEnvelope> ObjectFactory::NewEnvelope() {
    return std::make_shared<Envelope>();
}

host::Ref<host::IHostLine> ObjectFactory::NewLine() {
    return std::make_shared<Line>();
}

host::Ref<host::IHostFont> ObjectFactory::NewFont() {
    return std::make_shared<Font>();
}

host::Ref<host::IHostColor> ObjectFactory::NewColor() {
    return std::make_shared<Color>();
}

host::Ref<host::IHostTextSymbol> ObjectFactory::NewTextSymbol() {
    return std::make_shared<TextSymbol>(engine_);
}

host::Ref<host::IHostFillSymbol> ObjectFactory::NewFillSymbol() {
    return std::make_shared<FillSymbol>();
}

host::Ref<host::IHostLineSymbol> ObjectFactory::NewLineSymbol() {
    return std::make_shared<LineSymbol>();
}

host::Ref<host::IHostGroupElement> ObjectFactory::NewGroupElement() {
    return std::make_shared<GroupElement>();
}

host::Ref<host::IHostTextElement> ObjectFactory::NewTextElement() {
    return std::make_shared<TextElement>(engine_);
}

host::Ref<host::IHostFilledElement> ObjectFactory::NewRectangleElement() {
    return std::make_shared<RectangleElement>();
}

}  // namespace desk
