#pragma once

#include <cstdint>
#include <string>

#include "host/Geometry.h"
#include "host/Symbols.h"
#include "host/Variant.h"

namespace host {

struct IHostDisplay;

/// A graphic on the layout page.
struct IHostElement : virtual IHostObject {
    /// The live geometry; null for an element that has none of its own.
    virtual Ref<IHostGeometry> Geometry() const = 0;
    virtual void SetGeometry(const Ref<IHostGeometry>& geometry) = 0;
    /// Fills the envelope with the element's bounds in inches; of a group, those of all members.
    virtual void MeasureBounds(const Ref<IHostDisplay>& display,
                               const Ref<IHostEnvelope>& bounds) = 0;
};

/// Tag of an element, saved with it.
struct IHostElementName : virtual IHostObject {
    virtual std::string Name() const = 0;
    virtual void SetName(const std::string& name) = 0;
};

/// One value that components attach to an element, saved with it. Empty at first.
struct IHostCustomProperty : virtual IHostObject {
    virtual Variant CustomProperty() const = 0;
    virtual void SetCustomProperty(Variant value) = 0;
};

/// An element with members. Index 0 lies lowest; later members are drawn on top.
struct IHostGroupElement : virtual IHostElement {
    virtual std::int32_t Count() const = 0;
    virtual Ref<IHostElement> Item(std::int32_t index) const = 0;
    virtual void Add(const Ref<IHostElement>& element) = 0;
    virtual void Remove(const Ref<IHostElement>& element) = 0;
};

/// Whether an element shows a placeholder in place of its content.
struct IHostFrameElement : virtual IHostObject {
    virtual bool Draft() const = 0;
    virtual void SetDraft(bool draft) = 0;
};

/// The host's own draft setting of an element, beside IHostFrameElement::Draft. Only 0, off, is
/// set.
struct IHostDraftOption : virtual IHostObject {
    virtual void SetValue(std::int32_t value) = 0;
};

struct IHostTextElement : virtual IHostElement {
    virtual Ref<IHostTextSymbol> Symbol() const = 0;
    virtual void SetSymbol(const Ref<IHostTextSymbol>& symbol) = 0;
    virtual std::string Text() const = 0;
    virtual void SetText(const std::string& text) = 0;
    virtual bool ScaleWithPage() const = 0;
    virtual void SetScaleWithPage(bool scale) = 0;
};

/// A rectangle with a fill; its geometry is an envelope.
struct IHostFilledElement : virtual IHostElement {
    virtual Ref<IHostFillSymbol> Symbol() const = 0;
    virtual void SetSymbol(const Ref<IHostFillSymbol>& symbol) = 0;
};

/// Elements one after another. Next gives null at the end.
struct IHostElementContainer : virtual IHostObject {
    virtual void Reset() = 0;
    virtual Ref<IHostElement> Next() = 0;
};

struct IHostMapFrame : virtual IHostElement {};

/// Makes elements of a page.
struct IHostElementFactory : virtual IHostObject {
    virtual Ref<IHostGroupElement> NewGroupElement() = 0;
    virtual Ref<IHostTextElement> NewTextElement() = 0;
    virtual Ref<IHostFilledElement> NewRectangleElement() = 0;
};

}  // namespace host
