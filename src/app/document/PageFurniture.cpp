#include "app/document/PageFurniture.h"

#include <cmath>
#include <string_view>

#include "app/document/HeadText.h"
#include "app/document/KeyValues.h"
#include "model/DefaultSymbols.h"
#include "model/KeyNames.h"
#include "model/Settings.h"
#include "support/Conversions.h"
#include "support/Text.h"

namespace app {
namespace {

namespace keys = gazetteer::keys;
using TextRef = host::Ref<host::IHostTextElement>;

constexpr double kPoints = 9;          // Font size in points.
constexpr double kHeadAbove = 0.13;    // Inches from the frame to the middle of the head.
constexpr double kNumberBelow = 0.17;  // Inches from the frame to the middle of the number.

// In the set that is a label's custom property.
constexpr char kFollowsIndexFont[] = "FollowsIndexFont";
constexpr char kText[] = "Text";

bool HasTag(const host::Ref<host::IHostElement>& element, std::string_view tag) {
    const auto named = host::As<host::IHostElementName>(element);
    return named && named->Name() == tag;
}

bool IsHead(std::string_view tag) {
    return tag == kHeadTag;
}

TextRef FindLabel(OpenDocument& open, const char* tag) {
    for (const auto& element : open.TheDesk().CurrentDocument().elements)
        if (HasTag(element, tag))
            if (auto text = host::As<host::IHostTextElement>(element)) return text;
    return nullptr;
}

TextRef NewLabel(OpenDocument& open, const char* tag) {
    auto label = open.Host().NewTextElement();
    label->SetScaleWithPage(false);
    host::As<host::IHostElementName>(label)->SetName(tag);
    open.TheDesk().CurrentDocument().elements.push_back(label);
    return label;
}

// Returns an item of the label's custom property; Empty without it.
host::Variant CustomItem(const TextRef& label, std::string_view name) {
    const auto owner = host::As<host::IHostCustomProperty>(label);
    const auto set =
        owner ? gazetteer::ToObject<host::IHostPropertySet>(owner->CustomProperty()) : nullptr;
    return set ? ItemOf(*set, name) : host::Variant();
}

bool FollowsIndex(const TextRef& label) {
    const auto value = CustomItem(label, kFollowsIndexFont);
    const auto* const follows = std::get_if<bool>(&value);
    return follows && *follows;
}

std::string HeadPattern(const TextRef& label) {
    const auto value = CustomItem(label, kText);
    const auto* const text = std::get_if<std::string>(&value);
    return text ? *text : kUsualHead;
}

void StoreCustom(OpenDocument& open, const TextRef& element, const char* tag, const Label& label) {
    const auto custom = open.Host().NewPropertySet();
    custom->SetItem(kFollowsIndexFont, label.followsIndex);
    if (IsHead(tag) && label.text != kUsualHead) custom->SetItem(kText, label.text);
    host::As<host::IHostCustomProperty>(element)->SetCustomProperty(
        host::Ref<host::IHostObject>(custom));
}

double EdgeAt(const host::IHostEnvelope& frame, LabelPlace place) {
    if (place == LabelPlace::Left) return frame.XMin();
    if (place == LabelPlace::Right) return frame.XMax();
    return frame.XMin() + frame.Width() / 2;
}

LabelPlace PlaceAt(const host::IHostEnvelope& frame, double x, std::int32_t alignment) {
    constexpr double kNear = 1e-6;  // Inches.
    for (const auto place : {LabelPlace::Left, LabelPlace::Center, LabelPlace::Right})
        if (alignment == static_cast<std::int32_t>(place) &&
            std::abs(x - EdgeAt(frame, place)) < kNear)
            return place;
    return LabelPlace::Elsewhere;
}

Label DefaultLabel(host::IHost& host, const char* tag) {
    const bool isHead = IsHead(tag);
    auto symbol = gazetteer::MakeTextSymbol(host, kPoints, isHead);
    symbol->Font()->SetName("Liberation Sans");
    return {false,     true, symbol, LabelPlace::Center, isHead ? kHeadAbove : kNumberBelow,
            kUsualHead};
}

}  // namespace

std::int64_t SheetNumber(OpenDocument& open, std::int32_t page) {
    const auto first = open.TheDesk().CurrentDocument().firstSheet;
    if (first > 0) return std::int64_t{first} + page - 1;
    auto& host = open.Host();
    const auto context = host.NewLayoutContext();
    const auto key = context->CurrentTemplateKey();
    if (std::holds_alternative<host::Empty>(key)) return page;
    const auto book = host.NewMapBook();
    const std::string section = book->TemplateSection(gazetteer::ToText(key, host.Locale()));
    const auto start = gazetteer::ToLong(book->SectionStartPage(section), host.Locale());
    return std::int64_t{start} + page - 1;
}

Label LabelOf(OpenDocument& open, const char* tag) {
    Label label = DefaultLabel(open.Host(), tag);
    const auto element = FindLabel(open, tag);
    if (!element) return label;
    label.shown = true;
    label.followsIndex = FollowsIndex(element);
    label.symbol = host::As<host::IHostTextSymbol>(element->Symbol()->Copy());
    label.text = HeadPattern(element);
    const auto point = host::As<host::IHostPoint>(element->Geometry());
    if (!point || !open.Gazetteer()) return label;
    const auto frame = open.Gazetteer()->Geometry()->Bounds();
    label.place = PlaceAt(*frame, point->X(), label.symbol->HorizontalPlacement());
    label.distance = IsHead(tag) ? point->Y() - frame->YMax() : frame->YMin() - point->Y();
    return label;
}

void SetLabel(OpenDocument& open, const char* tag, const Label& label, double middleBefore) {
    auto element = FindLabel(open, tag);
    if (!label.shown) {
        if (element)
            std::erase_if(open.TheDesk().CurrentDocument().elements,
                          [&](const auto& other) { return HasTag(other, tag); });
        return;
    }
    if (!element) element = NewLabel(open, tag);
    const auto frame = open.Gazetteer()->Geometry()->Bounds();
    const auto before = host::As<host::IHostPoint>(element->Geometry());
    auto point = open.Host().NewPoint();
    point->SetX(EdgeAt(*frame, label.place));
    if (label.place == LabelPlace::Elsewhere && before)
        point->SetX(before->X() - middleBefore + EdgeAt(*frame, LabelPlace::Center));
    point->SetY(IsHead(tag) ? frame->YMax() + label.distance : frame->YMin() - label.distance);
    if (label.place != LabelPlace::Elsewhere)
        label.symbol->SetHorizontalPlacement(static_cast<std::int32_t>(label.place));
    element->SetGeometry(point);
    element->SetSymbol(label.symbol);
    StoreCustom(open, element, tag, label);
}

void AddPageFurniture(OpenDocument& open) {
    for (const char* const tag : {kHeadTag, kNumberTag}) {
        Label label = DefaultLabel(open.Host(), tag);
        label.shown = true;
        SetLabel(open, tag, label, 0);
    }
}

std::string IndexFamily(OpenDocument& open) {
    const auto properties = open.Properties();
    if (!properties) return {};
    const auto names =
        gazetteer::NamesOf(*gazetteer::SetUnder(*properties, keys::kColumnDisplayOrder), 1);
    if (names.empty()) return {};
    const auto columns = gazetteer::SetUnder(*properties, keys::kColumnsProperties);
    const auto column = gazetteer::SetUnder(*columns, names.front());
    const auto symbol =
        gazetteer::ToObject<host::IHostTextSymbol>(column->Item(keys::kColumnFontSymbol));
    return symbol ? symbol->Font()->Name() : "";
}

void UseColumnFont(OpenDocument& open) {
    const std::string family = IndexFamily(open);
    if (family.empty()) return;
    for (const char* const tag : {kHeadTag, kNumberTag}) {
        const auto label = FindLabel(open, tag);
        if (label && FollowsIndex(label)) label->Symbol()->Font()->SetName(family);
    }
}

void LabelSheet(OpenDocument& open, std::int32_t page) {
    const auto head = FindLabel(open, kHeadTag);
    const auto number = FindLabel(open, kNumberTag);
    // Without labels the map book is not needed and may be missing.
    if (!head && !number) return;
    UseColumnFont(open);
    if (number) number->SetText(std::to_string(SheetNumber(open, page)));
    if (!head) return;
    const auto first = gazetteer::WithoutOuterBlanks(open.Manager().FirstListing(page));
    const auto last = gazetteer::WithoutOuterBlanks(open.Manager().LastListing(page));
    const double width = open.Gazetteer()->Geometry()->Bounds()->Width();
    head->SetText(HeadText(open.Host(), *head->Symbol(), HeadPattern(head), first, last, width));
}

}  // namespace app
