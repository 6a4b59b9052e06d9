#pragma once

#include "Symbols.h"

/// The elements of a page, and what a page is measured on.
namespace texthost {

template <class Kind>
class Element : public Kind, public host::IHostElementName, public host::IHostCustomProperty {
public:
    Ref<host::IHostGeometry> Geometry() const override { return geometry_; }
    void SetGeometry(const Ref<host::IHostGeometry>& geometry) override { geometry_ = geometry; }
    std::string Name() const override { return name_; }
    void SetName(const std::string& name) override { name_ = name; }
    host::Variant CustomProperty() const override { return custom_; }
    void SetCustomProperty(host::Variant value) override { custom_ = std::move(value); }

protected:
    Ref<host::IHostGeometry> geometry_;

private:
    std::string name_;
    host::Variant custom_;
};

class GroupElement final : public Element<host::IHostGroupElement>,
                           public host::IHostFrameElement,
                           public host::IHostDraftOption {
public:
    std::int32_t Count() const override { return static_cast<std::int32_t>(members_.size()); }
    Ref<host::IHostElement> Item(std::int32_t index) const override {
        return members_.at(static_cast<std::size_t>(index));
    }
    void Add(const Ref<host::IHostElement>& element) override { members_.push_back(element); }
    void Remove(const Ref<host::IHostElement>& element) override { std::erase(members_, element); }
    bool Draft() const override { return draft_; }
    void SetDraft(bool draft) override { draft_ = draft; }
    void SetValue(std::int32_t) override {}

    void MeasureBounds(const Ref<host::IHostDisplay>& display,
                       const Ref<host::IHostEnvelope>& bounds) override {
        const auto own = geometry_ ? geometry_->Bounds() : std::make_shared<Envelope>();
        bounds->SetCoords(own->XMin(), own->YMin(), own->XMax(), own->YMax());
        const auto one = std::make_shared<Envelope>();
        for (std::size_t i = 0; i < members_.size(); ++i) {
            members_[i]->MeasureBounds(display, one);
            const auto& so_far = i == 0 ? *one : *bounds;
            bounds->SetCoords(
                std::min(so_far.XMin(), one->XMin()), std::min(so_far.YMin(), one->YMin()),
                std::max(so_far.XMax(), one->XMax()), std::max(so_far.YMax(), one->YMax()));
        }
    }

private:
    std::vector<Ref<host::IHostElement>> members_;
    bool draft_ = false;
};

class TextElement final : public Element<host::IHostTextElement> {
public:
    Ref<host::IHostTextSymbol> Symbol() const override { return symbol_; }
    void SetSymbol(const Ref<host::IHostTextSymbol>& symbol) override { symbol_ = symbol; }
    std::string Text() const override { return text_; }
    void SetText(const std::string& text) override { text_ = text; }
    bool ScaleWithPage() const override { return scale_; }
    void SetScaleWithPage(bool scale) override { scale_ = scale; }

    /// The text hangs on its point by its placements; it is never turned here.
    void MeasureBounds(const Ref<host::IHostDisplay>& display,
                       const Ref<host::IHostEnvelope>& bounds) override {
        const auto size =
            symbol_->MeasureText(display->DeviceContext(), display->Transformation(), text_);
        const double width = size.xSize / host::kPointsPerInch;
        const double height = size.ySize / host::kPointsPerInch;
        const auto point = host::As<host::IHostPoint>(geometry_);
        const auto horizontal = symbol_->HorizontalPlacement();
        const auto vertical = symbol_->VerticalPlacement();
        const double x = (point ? point->X() : 0) - (horizontal == 1   ? width / 2
                                                     : horizontal == 2 ? width
                                                                       : 0);
        const double top = (point ? point->Y() : 0) + (vertical == 0   ? 0
                                                       : vertical == 1 ? height / 2
                                                                       : height);
        bounds->SetCoords(x, top - height, x + width, top);
    }

private:
    Ref<host::IHostTextSymbol> symbol_ = std::make_shared<TextSymbol>();
    std::string text_;
    bool scale_ = true;
};

class RectangleElement final : public Element<host::IHostFilledElement> {
public:
    Ref<host::IHostFillSymbol> Symbol() const override { return symbol_; }
    void SetSymbol(const Ref<host::IHostFillSymbol>& symbol) override { symbol_ = symbol; }
    void MeasureBounds(const Ref<host::IHostDisplay>&,
                       const Ref<host::IHostEnvelope>& bounds) override {
        const auto own = geometry_ ? geometry_->Bounds() : std::make_shared<Envelope>();
        bounds->SetCoords(own->XMin(), own->YMin(), own->XMax(), own->YMax());
    }

private:
    Ref<host::IHostFillSymbol> symbol_ = std::make_shared<FillSymbol>();
};

class DisplayTransformation final : public host::IHostDisplayTransformation {
public:
    Ref<host::IHostEnvelope> ShownExtent() const override { return shown_; }
    void SetShownExtent(const Ref<host::IHostEnvelope>& extent) override { shown_ = extent; }
    Ref<host::IHostEnvelope> FullExtent() const override { return full_; }
    void SetFullExtent(const Ref<host::IHostEnvelope>& extent) override { full_ = extent; }
    host::PixelRectangle DeviceRectangle() const override { return rectangle_; }
    void SetDeviceRectangle(const host::PixelRectangle& rectangle) override {
        rectangle_ = rectangle;
    }
    double DotsPerInch() const override { return dotsPerInch_; }
    void SetDotsPerInch(double dotsPerInch) override { dotsPerInch_ = dotsPerInch; }

private:
    Ref<host::IHostEnvelope> shown_ = std::make_shared<Envelope>();
    Ref<host::IHostEnvelope> full_ = std::make_shared<Envelope>();
    host::PixelRectangle rectangle_;
    double dotsPerInch_ = host::kPointsPerInch;
};

class Display final : public host::IHostDisplay {
public:
    host::DeviceContext DeviceContext() const override { return 1; }
    Ref<host::IHostDisplayTransformation> Transformation() const override { return nullptr; }
    void BeginDrawing(host::DeviceContext, int) override {}
    void EndDrawing() override {}
};

/// The running program as the component sees it: document, view and status bar in one. A run shows
/// its progress in the status bar, which a terminal has none of. A host that has one derives from
/// it.
class Application : public host::IHostApplication,
                    public host::IHostDocument,
                    public host::IHostActiveView,
                    public host::IHostStatusBar,
                    public host::IHostProgressAnimation,
                    public std::enable_shared_from_this<Application> {
public:
    Ref<host::IHostDocument> Document() override { return shared_from_this(); }
    Ref<host::IHostStatusBar> StatusBar() override { return shared_from_this(); }
    host::WindowHandle WindowHandle() override { return 0; }
    Ref<host::IHostActiveView> ActiveView() override { return shared_from_this(); }
    Ref<host::IHostCommandBars> CommandBars() override { Fail("There are no commands."); }
    Ref<host::IHostDisplay> Display() override { return display_; }
    void Refresh() override {}
    void SetText(std::int32_t, const std::string&) override {}
    Ref<host::IHostProgressAnimation> ProgressAnimation() override { return shared_from_this(); }
    void Show() override {}
    void Play() override {}
    void Hide() override {}
    void Stop() override {}

private:
    Ref<host::IHostDisplay> display_ = std::make_shared<texthost::Display>();
};

}  // namespace texthost
