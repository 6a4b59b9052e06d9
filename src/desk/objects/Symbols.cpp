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
    copy->italic_ = italic_;
    return copy;
}

host::Ref<host::IHostObject> Color::Copy() const {
    auto copy = std::make_shared<Color>(rgb_);
    copy->transparent_ = transparent_;
    copy->ink_ = ink_;
    return copy;
}

template <class Kind>
void SymbolBase<Kind>::Need(const void* part, const std::string& what) const {
    if (part != nullptr) return;
    throw host::Failure(host::kFailureTypeMismatch, KindName(),
                        std::string("A ") + KindName() + " needs a " + what + ".");
}

template <class Kind>
const SymbolCanvas& SymbolBase<Kind>::Canvas() const {
    if (!canvas_)
        throw host::Failure(host::kFailureUnspecified, KindName(),
                            "A symbol was drawn that had not been given a device.");
    return *canvas_;
}

template <class Kind>
void SymbolBase<Kind>::FailGeometry(const std::string& accepted) const {
    throw host::Failure(host::kFailureTypeMismatch, KindName(),
                        std::string("A ") + KindName() + " is drawn on " + accepted + ".");
}

template class SymbolBase<host::IHostLineSymbol>;
template class SymbolBase<host::IHostFillSymbol>;
template class SymbolBase<host::IHostTextSymbol>;

host::Ref<host::IHostObject> LineSymbol::Copy() const {
    auto copy = std::make_shared<LineSymbol>();
    copy->CopyColorFrom(*this);
    return copy;
}

host::Ref<host::IHostObject> FillSymbol::Copy() const {
    auto copy = std::make_shared<FillSymbol>();
    copy->CopyColorFrom(*this);
    copy->outline_ = CopyOf(outline_);
    return copy;
}

TextSymbol::TextSymbol(std::shared_ptr<TextEngine> engine) : engine_(std::move(engine)) {
    TextSymbol::SetFont(std::make_shared<desk::Font>());
}

void TextSymbol::SetFont(const host::Ref<host::IHostFont>& font) {
    Need(font.get(), "font");
    font_ = font;
    ownFont_ = dynamic_cast<const desk::Font*>(font.get());
    resolved_ = nullptr;
}

// Called for every measurement of a run. A font of another class has no version and is looked up
// each time.
const ResolvedFont& TextSymbol::Resolved() {
    if (resolved_ && ownFont_ && ownFont_->Version() == resolvedVersion_) return *resolved_;
    resolved_ = &engine_->Find({font_->Name(), font_->Size(), font_->Bold(), IsItalic(*font_)});
    if (ownFont_) resolvedVersion_ = ownFont_->Version();
    return *resolved_;
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
    copy->CopyColorFrom(*this);
    copy->text_ = text_;
    copy->angle_ = angle_;
    copy->vertical_ = vertical_;
    copy->horizontal_ = horizontal_;
    return copy;
}

}  // namespace desk
