#include "listings/RepeatingText.h"

#include "model/ColumnProperties.h"
#include "model/KeyNames.h"
#include "support/Conversions.h"
#include "support/ErrorHandling.h"
#include "support/Text.h"

namespace gazetteer {
namespace {

using host::Ref;

bool HoldsReference(const std::string& expression) {
    for (const char* token : {"$$ROW", "$$PAGE_NUMBER", "$$COLUMN"})
        if (ContainsInAnyCase(expression, token)) return true;
    return false;
}

// A blank, since some hosts give an empty text no height.
void BlankTexts(const host::IHostGroupElement& cell) {
    for (std::int32_t i = 0; i < cell.Count(); ++i)
        if (const auto text = host::As<host::IHostTextElement>(cell.Item(i))) text->SetText(" ");
}

}  // namespace

Ref<host::IHostElement> ClearRepeatingText(host::IHost& host, const Settings& settings,
                                           const WorkingResults& results,
                                           const Ref<host::IHostElement>& rowGroup,
                                           const std::string& thisRow,
                                           const std::string& previousRow) try {
    auto& locale = host.Locale();
    const auto row = host::As<host::IHostGroupElement>(rowGroup);
    const auto names = NamesOf(*settings.columnDisplayOrder);
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto column = SetUnder(*settings.columnsProperties, names[i]);
        if (HoldsReference(ToText(column->Item(keys::kExpression), locale))) continue;
        const auto cells = SetUnder(*results.listings, names[i]);
        if (locale.CompareText(ToText(cells->Item(thisRow), locale),
                               ToText(cells->Item(previousRow), locale)) != 0)
            break;
        BlankTexts(*host::As<host::IHostGroupElement>(row->Item(static_cast<std::int32_t>(i))));
    }
    return rowGroup;
} catch (...) {
    PassOn("ClearRepeatingText", kManagerLabel);
}

}  // namespace gazetteer
