#include "app/document/PageSetup.h"

#include <cmath>

#include "app/document/Errors.h"
#include "app/document/HeadText.h"
#include "app/document/KeyValues.h"
#include "app/document/SettingsEdit.h"
#include "model/GeneralFunctions.h"

namespace app {
namespace {

constexpr double kRounding = 1e-9;  // Inches.

std::optional<SetupFault> SideFault(SetupField field, double inches, LengthUnit unit) {
    if (inches >= desk::kSmallestSheet && inches <= desk::kLargestSheet) return std::nullopt;
    return SetupFault{
        field, std::string("The ") + (field == SetupField::Width ? "width" : "height") +
                   " of the sheet must be from " + LengthText(desk::kSmallestSheet, unit) + " to " +
                   LengthText(desk::kLargestSheet, unit) + '.'};
}

std::optional<SetupFault> MarginFault(const Margins& margins, const PageSize& size) {
    const std::pair<SetupField, std::pair<const char*, double>> all[] = {
        {SetupField::Left, {"left", margins.left}},
        {SetupField::Right, {"right", margins.right}},
        {SetupField::Top, {"top", margins.top}},
        {SetupField::Bottom, {"bottom", margins.bottom}}};
    for (const auto& [field, margin] : all)
        if (margin.second < -kRounding)
            return SetupFault{field, std::string("The ") + margin.first +
                                         " margin must not be negative, since the index must lie "
                                         "on the sheet."};
    if (margins.left + margins.right >= size.width - kRounding)
        return SetupFault{SetupField::Right,
                          "The left and right margins leave no width for the index."};
    if (margins.top + margins.bottom >= size.height - kRounding)
        return SetupFault{SetupField::Bottom,
                          "The top and bottom margins leave no height for the index."};
    return std::nullopt;
}

std::optional<SetupFault> HeadFault(const Label& head) {
    if (!head.shown) return std::nullopt;
    if (head.text.find_first_not_of(' ') == std::string::npos)
        return SetupFault{SetupField::HeadText, "The running head has no text."};
    const std::string token = UnknownHeadToken(head.text);
    if (token.empty()) return std::nullopt;
    return SetupFault{SetupField::HeadText,
                      "The running head has the unknown token \"" + Shown(token) +
                          "\"; it knows $$FIRST and $$LAST, the listings of the page."};
}

bool IsNear(double one, double other) {
    return std::abs(one - other) < kRounding;
}

bool HasSameFrame(const PageSetup& one, const PageSetup& other) {
    const Margins a = one.margins.value_or(Margins{});
    const Margins b = other.margins.value_or(Margins{});
    return IsNear(one.size.width, other.size.width) && IsNear(one.size.height, other.size.height) &&
           IsNear(a.left, b.left) && IsNear(a.right, b.right) && IsNear(a.top, b.top) &&
           IsNear(a.bottom, b.bottom);
}

Margins MarginsOf(OpenDocument& open, const PageSize& size) {
    const auto frame = open.Gazetteer()->Geometry()->Bounds();
    return {frame->XMin(), size.width - frame->XMax(), size.height - frame->YMax(), frame->YMin()};
}

bool IsSame(const Label& one, const Label& other) {
    const auto font = [](const Label& label) {
        return ValueText(host::Ref<host::IHostObject>(label.symbol));
    };
    return one.shown == other.shown && one.followsIndex == other.followsIndex &&
           one.place == other.place && one.distance == other.distance && one.text == other.text &&
           font(one) == font(other);
}

void MoveFrame(OpenDocument& open, const Margins& margins, const PageSize& size) {
    const auto element = open.Gazetteer();
    auto bounds = open.Host().NewEnvelope();
    bounds->SetCoords(margins.left, margins.bottom, size.width - margins.right,
                      size.height - margins.top);
    element->SetGeometry(bounds);
    gazetteer::SetGazetteerProperties(open.Host(), element,
                                      gazetteer::CopySet(open.Host(), open.Properties()));
    SettingsEdit(open).StoreWithoutWarnings();
}

}  // namespace

Margins MarginsOf(const FrameOption& frame, const PageSize& size) {
    return {frame.left, size.width - frame.left - frame.width,
            size.height - frame.bottom - frame.height, frame.bottom};
}

std::optional<SetupFault> SizeFault(const PageSize& size, LengthUnit unit) {
    if (auto fault = SideFault(SetupField::Width, size.width, unit)) return fault;
    return SideFault(SetupField::Height, size.height, unit);
}

std::optional<SetupFault> FaultOf(const PageSetup& setup, const PageSetup& before,
                                  LengthUnit unit) {
    if (!HasSameFrame(setup, before)) {
        if (auto fault = SizeFault(setup.size, unit)) return fault;
        if (setup.margins)
            if (auto fault = MarginFault(*setup.margins, setup.size)) return fault;
    }
    return setup.head.text == before.head.text ? std::nullopt : HeadFault(setup.head);
}

PageSetup PageSetupOf(OpenDocument& open) {
    const auto& document = open.TheDesk().CurrentDocument();
    PageSetup setup;
    setup.size = {document.pageWidth, document.pageHeight};
    setup.firstSheet = document.firstSheet;
    setup.head = LabelOf(open, kHeadTag);
    setup.number = LabelOf(open, kNumberTag);
    if (open.Gazetteer()) setup.margins = MarginsOf(open, setup.size);
    return setup;
}

void ApplyPageSetup(OpenDocument& open, const PageSetup& setup) {
    const PageSetup before = PageSetupOf(open);
    if (const auto fault = FaultOf(setup, before, LengthUnit::Inches))
        throw UsageError(fault->sentence);
    auto& document = open.TheDesk().CurrentDocument();
    document.pageWidth = setup.size.width;
    document.pageHeight = setup.size.height;
    document.firstSheet = setup.firstSheet;
    if (!setup.margins) return;
    const auto frame = open.Gazetteer()->Geometry()->Bounds();
    const double middle = frame->XMin() + frame->Width() / 2;
    const bool moved = !HasSameFrame(setup, before);
    if (moved) MoveFrame(open, *setup.margins, setup.size);
    if (moved || !IsSame(setup.head, before.head)) SetLabel(open, kHeadTag, setup.head, middle);
    if (moved || !IsSame(setup.number, before.number))
        SetLabel(open, kNumberTag, setup.number, middle);
}

}  // namespace app
