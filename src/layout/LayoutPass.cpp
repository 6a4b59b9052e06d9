#include "layout/LayoutPass.h"

#include <algorithm>

#include "support/Conversions.h"
#include "support/ErrorHandling.h"

namespace gazetteer {
namespace {

LayoutColumn MakeColumn(const std::string& name, const Settings& settings,
                        const WorkingResults& results, host::IHostLocale& locale) try {
    const auto set = SetUnder(*settings.columnsProperties, name);
    return {name, ReadColumnProperties(*set, locale), SetUnder(*results.listings, name)};
} catch (host::Failure& failure) {
    failure.AddFact("column", name);
    throw;
}

// The column whose texts decide the order of the listings; empty where none does.
std::string PrimarySortColumn(const Settings& settings) {
    if (!settings.sortColumns) return {};
    const auto order = settings.columnSortOrder->AllItems();
    for (std::size_t i = 0; i < order.names.size(); ++i)
        if (ToBoolean(order.values[i])) return order.names[i];
    return {};
}

}  // namespace

LayoutColumn::Known& LayoutColumn::Read(const std::string& rowKey, host::IHostLocale& locale) {
    for (Known& cell : known_)
        if (cell.isSet && cell.rowKey == rowKey) return cell;
    Known& cell = known_[oldest_];
    try {
        cell = {rowKey, ToText(listings->Item(rowKey), locale), true};
    } catch (host::Failure& failure) {
        failure.AddFact("column", name);
        failure.AddFact("listing", rowKey);
        throw;
    }
    oldest_ = 1 - oldest_;
    return cell;
}

const std::string& LayoutColumn::IndexLetter(const std::string& rowKey, host::IHostLocale& locale) {
    Known& cell = Read(rowKey, locale);
    if (!cell.letter) cell.letter = letters->IndexLetter(cell.text);
    return *cell.letter;
}

LayoutPass::LayoutPass(host::IHost& host, const Settings& settings, const WorkingResults& results,
                       host::Ref<host::IHostFillSymbol> transparentFill,
                       host::Ref<host::IHostDisplay> display, RowSource::Use rows)
    : host_(host),
      settings_(settings),
      results_(results),
      transparentFill_(std::move(transparentFill)),
      display_(std::move(display)),
      text_(host, display_),
      rows_(rows),
      pen_(host.NewPoint()),
      bounds_(host.NewEnvelope()) {
    for (const std::string& name : NamesOf(*settings.columnDisplayOrder))
        columns_.push_back(MakeColumn(name, settings, results, host.Locale()));
    SetIndexLetters();
}

// Only in the order of the locale has each letter its listings in one run.
void LayoutPass::SetIndexLetters() {
    if (settings_.typesetting.headingGroups != kByAlphabet) return;
    auto* const letters = dynamic_cast<host::IHostIndexLetters*>(&host_.Locale());
    const std::string primary = PrimarySortColumn(settings_);
    for (LayoutColumn& column : columns_)
        if (column.properties.breakColumn && column.name == primary) column.letters = letters;
}

bool LayoutPass::RunsRightToLeft() const {
    const std::string& direction = settings_.typesetting.direction;
    if (direction != kByLocale) return direction == kRightToLeft;
    auto* const locale = dynamic_cast<host::IHostWritingDirection*>(&host_.Locale());
    return locale != nullptr && locale->IsRightToLeft();
}

void LayoutPass::MirrorBetween(double left, double right) {
    if (RunsRightToLeft()) mirror_ = left + right;
}

const host::IHostEnvelope& LayoutPass::GetElementBounds(host::IHostElement& element) try {
    element.MeasureBounds(display_, bounds_);
    return *bounds_;
} catch (...) {
    PassOn("GetElementWidth", kManagerLabel);
}

double LayoutPass::GetElementHeight(host::IHostElement& element) try {
    element.MeasureBounds(display_, bounds_);
    return bounds_->Height();
} catch (...) {
    PassOn("GetElementHeight", kManagerLabel);
}

bool LayoutPass::HasTitle() const {
    return std::ranges::any_of(columns_, [](const auto& c) { return c.properties.showTitle; });
}

bool LayoutPass::HasBreak() const {
    return std::ranges::any_of(columns_, [](const auto& c) { return c.properties.breakColumn; });
}

}  // namespace gazetteer
