#include "layout/LayoutContext.h"

#include <algorithm>

#include "support/Conversions.h"

namespace gazetteer {

std::string LayoutColumn::Cell(const std::string& rowKey, host::IHostLocale& locale) const {
    return ToText(listings->Item(rowKey), locale);
}

LayoutContext::LayoutContext(host::IHost& host, const Settings& settings,
                             const WorkingResults& results,
                             host::Ref<host::IHostFillSymbol> transparentFill,
                             host::Ref<host::IHostDisplay> display)
    : host_(host),
      settings_(settings),
      results_(results),
      transparentFill_(std::move(transparentFill)),
      display_(std::move(display)),
      text_(host, display_) {
    for (const std::string& name : NamesOf(*settings.columnDisplayOrder)) {
        const auto set = SetUnder(*settings.columnsProperties, name);
        columns_.push_back(
            {name, ReadColumnProperties(*set, host.Locale()), SetUnder(*results.listings, name)});
    }
}

bool LayoutContext::HasTitle() const {
    return std::ranges::any_of(columns_, [](const auto& c) { return c.properties.showTitle; });
}

bool LayoutContext::HasBreak() const {
    return std::ranges::any_of(columns_, [](const auto& c) { return c.properties.breakColumn; });
}

}  // namespace gazetteer
