#include "desk/objects/Elements.h"

#include <algorithm>
#include <typeinfo>

#include "desk/objects/Geometry.h"
#include "desk/objects/Symbols.h"
#include "host/Display.h"
#include "host/Failure.h"

namespace desk {

namespace {

/// Like host::As, but faster for the desk's own classes; used for every text and background.
template <class Interface, class Usual>
host::Ref<Interface> FastAs(const host::Ref<host::IHostGeometry>& geometry) {
    if (!geometry) return nullptr;
    const host::IHostGeometry& object = *geometry;
    if (typeid(object) != typeid(Usual)) return host::As<Interface>(geometry);
    auto* usual = static_cast<Usual*>(dynamic_cast<void*>(geometry.get()));
    return host::Ref<Interface>(geometry, usual);
}

void MeasureGeometry(const host::Ref<host::IHostGeometry>& geometry,
                     const host::Ref<host::IHostEnvelope>& bounds) {
    if (!geometry) return bounds->SetCoords(0, 0, 0, 0);
    const auto box = geometry->Bounds();
    bounds->SetCoords(box->XMin(), box->YMin(), box->XMax(), box->YMax());
}

}  // namespace

void GroupElement::MeasureBounds(const host::Ref<host::IHostDisplay>& display,
                                 const host::Ref<host::IHostEnvelope>& bounds) {
    if (members_.empty()) return MeasureGeometry(geometry_, bounds);
    Box all;
    for (const auto& member : members_) {
        member->MeasureBounds(display, bounds);
        const Box box{bounds->XMin(), bounds->YMin(), bounds->XMax(), bounds->YMax()};
        if (box != Box{0, 0, 0, 0}) all.Include(box);
    }
    if (all.IsEmpty()) all = Box{0, 0, 0, 0};
    bounds->SetCoords(all.xmin, all.ymin, all.xmax, all.ymax);
}

host::Ref<host::IHostElement> GroupElement::Item(std::int32_t index) const {
    if (index >= 0 && index < Count()) return members_[static_cast<std::size_t>(index)];
    throw host::Failure(
        host::kFailureNotFound, "GroupElement.Item",
        "A group of " + std::to_string(Count()) + " has no member " + std::to_string(index) + ".");
}

void GroupElement::Add(const host::Ref<host::IHostElement>& element) {
    if (!element || element.get() == this) {
        throw host::Failure(host::kFailureTypeMismatch, "GroupElement.Add",
                            element ? "A group cannot be a member of itself."
                                    : "A group cannot take in an element that is none.");
    }
    // Most groups are cells with a background and a text.
    if (members_.empty()) members_.reserve(2);
    members_.push_back(element);
}

void GroupElement::Remove(const host::Ref<host::IHostElement>& element) {
    const auto found = std::find(members_.begin(), members_.end(), element);
    if (found == members_.end()) {
        throw host::Failure(host::kFailureNotFound, "GroupElement.Remove",
                            "The element to remove is no member of the group.");
    }
    members_.erase(found);
}

void GroupElement::SetValue(std::int32_t value) {
    if (value == 0) return;
    throw host::Failure(
        host::kFailureOverflow, "GroupElement.SetValue",
        "The draft option of an element takes 0, not " + std::to_string(value) + ".");
}

void TextElement::SetGeometry(const host::Ref<host::IHostGeometry>& geometry) {
    auto point = FastAs<host::IHostPoint, Point>(geometry);
    if (geometry && !point) {
        throw host::Failure(host::kFailureTypeMismatch, "TextElement.SetGeometry",
                            "A text stands on a point; another geometry was set.");
    }
    point_ = std::move(point);
}

void TextElement::MeasureBounds(const host::Ref<host::IHostDisplay>& display,
                                const host::Ref<host::IHostEnvelope>& bounds) {
    const host::TextExtent extent = Extent(display);
    const Box box = HangingBox(extent, symbol_->HorizontalPlacement(), symbol_->VerticalPlacement(),
                               symbol_->Angle());
    const double x = point_ ? point_->X() : 0;
    const double y = point_ ? point_->Y() : 0;
    bounds->SetCoords(x + box.xmin, y + box.ymin, x + box.xmax, y + box.ymax);
}

/// Caches the extent, because a row asks for the bounds of its cells and then for its own.
host::TextExtent TextElement::Extent(const host::Ref<host::IHostDisplay>& display) {
    if (!symbol_) SetSymbol(std::make_shared<TextSymbol>(engine_));
    const ResolvedFont* const font = ownSymbol_ ? &ownSymbol_->Resolved() : nullptr;
    if (font && font == measuredFont_) return extent_;
    const auto device = display ? display->DeviceContext() : 0;
    const auto transformation =
        display ? display->Transformation() : host::Ref<host::IHostDisplayTransformation>();
    extent_ = symbol_->MeasureText(device, transformation, text_);
    measuredFont_ = font;
    return extent_;
}

host::Ref<host::IHostTextSymbol> TextElement::Symbol() const {
    if (!symbol_) symbol_ = std::make_shared<TextSymbol>(engine_);
    return symbol_;
}

void TextElement::SetSymbol(const host::Ref<host::IHostTextSymbol>& symbol) {
    symbol_ = symbol;
    const auto* const known = symbol.get();
    ownSymbol_ = known && typeid(*known) == typeid(TextSymbol)
                     ? static_cast<TextSymbol*>(dynamic_cast<void*>(symbol.get()))
                     : nullptr;
}

void RectangleElement::SetGeometry(const host::Ref<host::IHostGeometry>& geometry) {
    auto envelope = FastAs<host::IHostEnvelope, Envelope>(geometry);
    if (geometry && !envelope) {
        throw host::Failure(host::kFailureTypeMismatch, "RectangleElement.SetGeometry",
                            "The geometry of a rectangle is an envelope; another one was set.");
    }
    envelope_ = std::move(envelope);
}

void RectangleElement::MeasureBounds(const host::Ref<host::IHostDisplay>& /*display*/,
                                     const host::Ref<host::IHostEnvelope>& bounds) {
    if (!envelope_) return bounds->SetCoords(0, 0, 0, 0);
    bounds->SetCoords(envelope_->XMin(), envelope_->YMin(), envelope_->XMax(), envelope_->YMax());
}

host::Ref<host::IHostFillSymbol> RectangleElement::Symbol() const {
    if (!symbol_) symbol_ = std::make_shared<FillSymbol>();
    return symbol_;
}

void MapFrame::MeasureBounds(const host::Ref<host::IHostDisplay>& /*display*/,
                             const host::Ref<host::IHostEnvelope>& bounds) {
    MeasureGeometry(geometry_, bounds);
}

}  // namespace desk
