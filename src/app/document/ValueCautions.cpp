#include "app/document/ValueCautions.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "model/KeyNames.h"
#include "model/Keys.h"

namespace app {
namespace {

constexpr std::array<std::string_view, 4> kAlignments{"Left", "Center", "Right", "Justify"};

bool IsAlignment(const host::Variant& value) {
    const auto* text = std::get_if<std::string>(&value);
    return text && std::ranges::find(kAlignments, *text) != kAlignments.end();
}

}  // namespace

std::vector<std::string> ValueCautions(const gazetteer::Settings& settings) {
    std::vector<std::string> cautions;
    if (settings.defaultPage < 1)
        cautions.emplace_back("DefaultPage is less than 1, the first page.");
    if (settings.repeatSpacing < 0)
        cautions.emplace_back(
            "RepeatSpacing is negative, so that column groups may overlap or leave the frame.");
    for (const std::string& column : gazetteer::NamesOf(*settings.columnNames)) {
        const auto properties = gazetteer::SetUnder(*settings.columnsProperties, column);
        for (const auto& key : gazetteer::ColumnKeys()) {
            const auto value = properties->Item(key.name);
            const auto* length = std::get_if<double>(&value);
            if (length && *length < 0)
                cautions.push_back(column + '.' + key.name +
                                   " is negative, so that texts may overlap or leave the frame.");
        }
        for (const char* key : {gazetteer::keys::kAlignment, gazetteer::keys::kTitleAlignment})
            if (!IsAlignment(properties->Item(key)))
                cautions.push_back(column + '.' + key +
                                   " is none of Left, Center, Right and Justify, so that texts "
                                   "hang as their symbol says.");
    }
    return cautions;
}

}  // namespace app
