#pragma once

#include <memory>
#include <utility>

#include "host/Elements.h"
#include "host/Geometry.h"
#include "host/PropertySet.h"
#include "host/Symbols.h"

namespace desk {

class TextEngine;

class ObjectFactory : public virtual host::IHostPropertySetFactory,
                      public virtual host::IHostGeometryFactory,
                      public virtual host::IHostSymbolFactory,
                      public virtual host::IHostElementFactory {
public:
    /// All objects that measure or draw texts share the engine.
    explicit ObjectFactory(std::shared_ptr<TextEngine> engine) : engine_(std::move(engine)) {}

    host::Ref<host::IHostPropertySet> NewPropertySet() override;
    host::Ref<host::IHostObjectCopy> NewObjectCopy() override;
    host::Ref<host::IHostPoint> NewPoint() override;
    host::Ref<host::IHostEnvelope> NewEnvelope() override;
    host::Ref<host::IHostLine> NewLine() override;
    host::Ref<host::IHostFont> NewFont() override;
    host::Ref<host::IHostColor> NewColor() override;
    host::Ref<host::IHostTextSymbol> NewTextSymbol() override;
    host::Ref<host::IHostFillSymbol> NewFillSymbol() override;
    host::Ref<host::IHostLineSymbol> NewLineSymbol() override;
    host::Ref<host::IHostGroupElement> NewGroupElement() override;
    host::Ref<host::IHostTextElement> NewTextElement() override;
    host::Ref<host::IHostFilledElement> NewRectangleElement() override;

protected:
    const std::shared_ptr<TextEngine>& Engine() const { return engine_; }

private:
    std::shared_ptr<TextEngine> engine_;
};

}  // namespace desk
