#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host/Elements.h"
#include "host/Symbols.h"

namespace desk {

class TextEngine;
class TextSymbol;
struct ResolvedFont;

/// Name and custom property, common to all elements. The custom property is rare and allocated only
/// when set, since a page may have tens of thousands of elements.
template <class Kind>
class ElementBase : public Kind, public host::IHostElementName, public host::IHostCustomProperty {
public:
    std::string Name() const override { return name_; }
    void SetName(const std::string& name) override { name_ = name; }

    host::Variant CustomProperty() const override {
        return custom_ ? *custom_ : host::Variant(host::Empty{});
    }
    void SetCustomProperty(host::Variant value) override {
        custom_ = std::make_unique<host::Variant>(std::move(value));
    }

private:
    std::string name_;
    std::unique_ptr<host::Variant> custom_;
};

/// A group of elements. Callers set its geometry; it does not follow the members.
class GroupElement final : public ElementBase<host::IHostGroupElement>,
                           public host::IHostFrameElement,
                           public host::IHostDraftOption {
public:
    host::Ref<host::IHostGeometry> Geometry() const override { return geometry_; }
    void SetGeometry(const host::Ref<host::IHostGeometry>& geometry) override {
        geometry_ = geometry;
    }
    /// Sets the box around all members. Without members, sets the box of the group's own geometry,
    /// or an empty box at the origin. Members with an empty box at the origin are ignored.
    void MeasureBounds(const host::Ref<host::IHostDisplay>& display,
                       const host::Ref<host::IHostEnvelope>& bounds) override;

    std::int32_t Count() const override { return static_cast<std::int32_t>(members_.size()); }
    /// Throws for an index out of range.
    host::Ref<host::IHostElement> Item(std::int32_t index) const override;
    /// Throws for null and for the group itself.
    void Add(const host::Ref<host::IHostElement>& element) override;
    /// Removes the first occurrence of the element and keeps the order of the others. Throws for an
    /// element that is not a member.
    void Remove(const host::Ref<host::IHostElement>& element) override;

    bool Draft() const override { return draft_; }
    void SetDraft(bool draft) override { draft_ = draft; }
    /// Accepts only 0, which has no effect in the desk. Throws for any other value.
    void SetValue(std::int32_t value) override;

private:
    std::vector<host::Ref<host::IHostElement>> members_;
    host::Ref<host::IHostGeometry> geometry_;
    bool draft_ = false;
};

/// A text at a point. ScaleWithPage is initially true.
class TextElement final : public ElementBase<host::IHostTextElement> {
public:
    explicit TextElement(std::shared_ptr<TextEngine> engine) : engine_(std::move(engine)) {}

    host::Ref<host::IHostGeometry> Geometry() const override { return point_; }
    /// Throws for anything but a point or null.
    void SetGeometry(const host::Ref<host::IHostGeometry>& geometry) override;
    /// Sets the upright box around the text, placed at its point by the symbol's placement and
    /// angle, or at the origin without a point. The lower edge is used as the baseline.
    void MeasureBounds(const host::Ref<host::IHostDisplay>& display,
                       const host::Ref<host::IHostEnvelope>& bounds) override;

    /// Returns the symbol that was set, or a default symbol.
    host::Ref<host::IHostTextSymbol> Symbol() const override;
    void SetSymbol(const host::Ref<host::IHostTextSymbol>& symbol) override;
    std::string Text() const override { return text_; }
    void SetText(const std::string& text) override {
        text_ = text;
        measuredFont_ = nullptr;
    }
    bool ScaleWithPage() const override { return scaleWithPage_; }
    void SetScaleWithPage(bool scale) override { scaleWithPage_ = scale; }

private:
    host::TextExtent Extent(const host::Ref<host::IHostDisplay>& display);

    std::shared_ptr<TextEngine> engine_;
    mutable host::Ref<host::IHostTextSymbol> symbol_;
    TextSymbol* ownSymbol_ = nullptr;  ///< The symbol if it is a desk::TextSymbol, else null.
    host::Ref<host::IHostPoint> point_;
    std::string text_;
    const ResolvedFont* measuredFont_ = nullptr;  ///< The font of extent_; null if extent_ is out
                                                  ///< of date.
    host::TextExtent extent_;
    bool scaleWithPage_ = true;
};

class RectangleElement final : public ElementBase<host::IHostFilledElement> {
public:
    host::Ref<host::IHostGeometry> Geometry() const override { return envelope_; }
    /// Throws for anything but an envelope or null.
    void SetGeometry(const host::Ref<host::IHostGeometry>& geometry) override;
    void MeasureBounds(const host::Ref<host::IHostDisplay>& display,
                       const host::Ref<host::IHostEnvelope>& bounds) override;

    /// Returns the symbol that was set, or a default symbol.
    host::Ref<host::IHostFillSymbol> Symbol() const override;
    void SetSymbol(const host::Ref<host::IHostFillSymbol>& symbol) override { symbol_ = symbol; }

private:
    mutable host::Ref<host::IHostFillSymbol> symbol_;
    host::Ref<host::IHostEnvelope> envelope_;
};

class MapFrame : public ElementBase<host::IHostMapFrame> {
public:
    host::Ref<host::IHostGeometry> Geometry() const override { return geometry_; }
    void SetGeometry(const host::Ref<host::IHostGeometry>& geometry) override {
        geometry_ = geometry;
    }
    void MeasureBounds(const host::Ref<host::IHostDisplay>& display,
                       const host::Ref<host::IHostEnvelope>& bounds) override;

private:
    host::Ref<host::IHostGeometry> geometry_;
};

class ElementContainer final : public host::IHostElementContainer {
public:
    explicit ElementContainer(std::vector<host::Ref<host::IHostElement>> elements)
        : elements_(std::move(elements)) {}

    void Reset() override { next_ = 0; }
    host::Ref<host::IHostElement> Next() override {
        return next_ < elements_.size() ? elements_[next_++] : nullptr;
    }

private:
    std::vector<host::Ref<host::IHostElement>> elements_;
    std::size_t next_ = 0;
};

}  // namespace desk
