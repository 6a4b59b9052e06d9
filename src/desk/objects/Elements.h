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

/// What every element of the desk has: a name and a custom property. There may be tens of thousands
/// of elements, so the custom property, which is rare, takes memory only when it is set.
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

/// A group of elements. Its geometry is set by callers and does not follow the members.
class GroupElement final : public ElementBase<host::IHostGroupElement>,
                           public host::IHostFrameElement,
                           public host::IHostDraftOption {
public:
    host::Ref<host::IHostGeometry> Geometry() const override { return geometry_; }
    void SetGeometry(const host::Ref<host::IHostGeometry>& geometry) override {
        geometry_ = geometry;
    }
    /// The box around all members; of a group without members, that of its own geometry, or an
    /// empty box at the origin. Empty boxes at the origin do not count among the members.
    void MeasureBounds(const host::Ref<host::IHostDisplay>& display,
                       const host::Ref<host::IHostEnvelope>& bounds) override;

    std::int32_t Count() const override { return static_cast<std::int32_t>(members_.size()); }
    /// Fails for an index that no member has.
    host::Ref<host::IHostElement> Item(std::int32_t index) const override;
    /// Fails for null and for the group itself.
    void Add(const host::Ref<host::IHostElement>& element) override;
    /// Takes out the first member that is this element; the others keep their order. Fails for an
    /// element that is no member.
    void Remove(const host::Ref<host::IHostElement>& element) override;

    bool Draft() const override { return draft_; }
    void SetDraft(bool draft) override { draft_ = draft; }
    /// Accepts 0, which changes nothing that the desk shows. Fails for any other value.
    void SetValue(std::int32_t value) override;

private:
    std::vector<host::Ref<host::IHostElement>> members_;
    host::Ref<host::IHostGeometry> geometry_;
    bool draft_ = false;
};

/// A text at a point. Scales with the page at first.
class TextElement final : public ElementBase<host::IHostTextElement> {
public:
    explicit TextElement(std::shared_ptr<TextEngine> engine) : engine_(std::move(engine)) {}

    host::Ref<host::IHostGeometry> Geometry() const override { return point_; }
    /// Fails for anything but a point or null.
    void SetGeometry(const host::Ref<host::IHostGeometry>& geometry) override;
    /// Gives the upright box around the text, placed at its point by the symbol's placement and
    /// angle; without a point, at the origin. The lower edge counts as the baseline.
    void MeasureBounds(const host::Ref<host::IHostDisplay>& display,
                       const host::Ref<host::IHostEnvelope>& bounds) override;

    /// The symbol that was set; a default symbol of its own where none was.
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
    TextSymbol* ownSymbol_ = nullptr;  ///< The symbol, if it is the desk's.
    host::Ref<host::IHostPoint> point_;
    std::string text_;
    const ResolvedFont* measuredFont_ = nullptr;  ///< Of extent_; null if that is not current.
    host::TextExtent extent_;
    bool scaleWithPage_ = true;
};

class RectangleElement final : public ElementBase<host::IHostFilledElement> {
public:
    host::Ref<host::IHostGeometry> Geometry() const override { return envelope_; }
    /// Fails for anything but an envelope or null.
    void SetGeometry(const host::Ref<host::IHostGeometry>& geometry) override;
    void MeasureBounds(const host::Ref<host::IHostDisplay>& display,
                       const host::Ref<host::IHostEnvelope>& bounds) override;

    /// The symbol that was set; a default symbol of its own where none was.
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
