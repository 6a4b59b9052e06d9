#include "desk/objects/Symbols.h"

#include <utility>

#include "desk/text/TextEngine.h"
#include "host/Failure.h"

namespace desk {

namespace {

template <class T>
host::Ref<T> CopyOf(const host::Ref<T>& object) {
    return object ? host::As<T>(object->Copy()) : nullptr;
}

void Need(const void* part, const char* symbol, const char* what) {
    if (part != nullptr) return;
    throw host::Failure(host::kFailureTypeMismatch, symbol,
                        std::string("A ") + symbol + " needs a " + what + ".");
}

std::int32_t Placement(std::int32_t placement) {
    if (placement >= 0 && placement <= 3) return placement;
    throw host::Failure(
        host::kFailureOverflow, "TextSymbol",
        "The placement of a text is a number from 0 to 3, not " + std::to_string(placement) + ".");
}

}  // namespace

host::Ref<host::IHostObject> Font::Copy() const {
    auto copy = std::make_shared<Font>();
    copy->name_ = name_;
    copy->size_ = size_;
    copy->bold_ = bold_;
    return copy;
}

host::Ref<host::IHostObject> Color::Copy() const {
    auto copy = std::make_shared<Color>(rgb_);
    copy->transparent_ = transparent_;
    return copy;
}

LineSymbol::LineSymbol() : color_(std::make_shared<desk::Color>()) {}

void LineSymbol::SetColor(const host::Ref<host::IHostColor>& color) {
    Need(color.get(), "line symbol", "colour");
    color_ = color;
}

host::Ref<host::IHostObject> LineSymbol::Copy() const {
    auto copy = std::make_shared<LineSymbol>();
    copy->color_ = CopyOf(color_);
    return copy;
}

FillSymbol::FillSymbol() : color_(std::make_shared<desk::Color>()) {}

void FillSymbol::SetColor(const host::Ref<host::IHostColor>& color) {
    Need(color.get(), "fill symbol", "colour");
    color_ = color;
}

void FillSymbol::SetOutline(const host::Ref<host::IHostLineSymbol>& outline) {
    outline_ = outline;
}

host::Ref<host::IHostObject> FillSymbol::Copy() const {
    auto copy = std::make_shared<FillSymbol>();
    copy->color_ = CopyOf(color_);
    copy->outline_ = CopyOf(outline_);
    return copy;
}

TextSymbol::TextSymbol(std::shared_ptr<TextEngine> engine)
    : engine_(std::move(engine)), color_(std::make_shared<desk::Color>()) {
    TextSymbol::SetFont(std::make_shared<desk::Font>());
}

void TextSymbol::SetFont(const host::Ref<host::IHostFont>& font) {
    Need(font.get(), "text symbol", "font");
    font_ = font;
    ownFont_ = dynamic_cast<const desk::Font*>(font.get());
    resolved_ = nullptr;
}

// Asked at every measurement of a run. A font of another kind may change unseen.
const ResolvedFont& TextSymbol::Resolved() {
    if (resolved_ && ownFont_ && ownFont_->Version() == resolvedVersion_) return *resolved_;
    resolved_ = &engine_->Find({font_->Name(), font_->Size(), font_->Bold()});
    if (ownFont_) resolvedVersion_ = ownFont_->Version();
    return *resolved_;
}

void TextSymbol::SetColor(const host::Ref<host::IHostColor>& color) {
    Need(color.get(), "text symbol", "colour");
    color_ = color;
}

void TextSymbol::SetVerticalPlacement(std::int32_t placement) {
    vertical_ = Placement(placement);
}

void TextSymbol::SetHorizontalPlacement(std::int32_t placement) {
    horizontal_ = Placement(placement);
}

host::TextExtent TextSymbol::MeasureText(
    host::DeviceContext /*device*/,
    const host::Ref<host::IHostDisplayTransformation>& /*transformation*/,
    const std::string& text) {
    return engine_->Measure(Resolved(), text);
}

host::Ref<host::IHostObject> TextSymbol::Copy() const {
    auto copy = std::make_shared<TextSymbol>(engine_);
    copy->SetFont(CopyOf(font_));
    copy->color_ = CopyOf(color_);
    copy->text_ = text_;
    copy->angle_ = angle_;
    copy->vertical_ = vertical_;
    copy->horizontal_ = horizontal_;
    return copy;
}

}  // namespace desk
