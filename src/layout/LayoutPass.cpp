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

}  // namespace

const std::string& LayoutColumn::Cell(const std::string& rowKey, host::IHostLocale& locale) {
    for (const Known& cell : known_)
        if (cell.isSet && cell.rowKey == rowKey) return cell.text;
    Known& cell = known_[oldest_];
    try {
        cell = {rowKey, ToText(listings->Item(rowKey), locale), true};
    } catch (host::Failure& failure) {
        failure.AddFact("column", name);
        failure.AddFact("listing", rowKey);
        throw;
    }
    oldest_ = 1 - oldest_;
    return cell.text;
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
