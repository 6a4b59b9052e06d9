#include "app/tables/DbfLimits.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "app/document/Errors.h"
#include "characters/FoldCase.h"
#include "characters/Utf8.h"

namespace app {
namespace {

constexpr std::size_t kMostNameBytes = 10;
constexpr std::int32_t kMostBytes = 254;
// Decimals of a number, as FieldMeasure finds them at most, and the number from which on they have
// at least nine digits that count.
constexpr double kLeastPart = 1e-15;
constexpr double kLeastExact = 1e-6;

void CutTo(std::string& text, std::size_t bytes) {
    if (text.size() > bytes)
        text.resize(characters::WholeCharacters(std::string_view(text).substr(0, bytes)));
}

}  // namespace

DbfLimits::DbfLimits(const std::string& path, std::vector<gis::SourceField>& fields)
    : path_(path), isDbf_(characters::FoldCase(std::filesystem::path(path).extension()) == ".dbf") {
    if (!isDbf_) return;
    ShortenNames(fields);
    for (auto& field : fields) {
        if (field.length <= kMostBytes) continue;
        field.length = kMostBytes;
        if (field.kind != gis::FieldKind::Number) continue;
        field.kind = gis::FieldKind::Text;
        warnings_.push_back("the field \"" + field.name + "\" of " + path_ +
                            " is one of texts, since its numbers have too many digits.");
    }
}

void DbfLimits::ShortenNames(std::vector<gis::SourceField>& fields) {
    std::vector<std::string> taken;
    for (auto& field : fields) {
        const std::string whole = field.name;
        CutTo(field.name, kMostNameBytes);
        for (int number = 2;
             std::ranges::find(taken, characters::FoldCase(field.name)) != taken.end(); ++number) {
            const std::string end = '_' + std::to_string(number);
            CutTo(field.name, kMostNameBytes - end.size());
            field.name += end;
        }
        taken.push_back(characters::FoldCase(field.name));
        if (field.name != whole)
            warnings_.push_back("the field \"" + whole + "\" is named \"" + field.name + "\" in " +
                                path_ + ", where names have ten bytes.");
    }
}

void DbfLimits::Apply(std::int64_t record, std::vector<host::Variant>& row) {
    if (!isDbf_) return;
    for (auto& value : row) {
        if (const auto* const real = std::get_if<double>(&value); real != nullptr)
            CountRounded(record, *real);
        auto* const text = std::get_if<std::string>(&value);
        if (text == nullptr || std::ssize(*text) <= kMostBytes) continue;
        if (cutTexts_++ == 0) {
            firstRecord_ = record;
            firstText_ = *text;
        }
        CutTo(*text, kMostBytes);
    }
}

void DbfLimits::CountRounded(std::int64_t record, double number) {
    if (std::abs(number) >= kLeastExact) return;
    const double rounded = std::round(number / kLeastPart) * kLeastPart;
    if (std::abs(rounded - number) <= 1e-9 * std::abs(number)) return;
    if (roundedNumbers_++ == 0) firstRounded_ = record;
}

std::vector<std::string> DbfLimits::Warnings() const {
    auto warnings = warnings_;
    if (cutTexts_ > 0)
        warnings.push_back(std::to_string(cutTexts_) +
                           (cutTexts_ == 1 ? " text was" : " texts were") +
                           " cut to the 254 bytes "
                           "that a field of " +
                           path_ + " holds; the first is " + Shown(firstText_) + " in record " +
                           std::to_string(firstRecord_) + '.');
    if (roundedNumbers_ > 0)
        warnings.push_back(std::to_string(roundedNumbers_) +
                           (roundedNumbers_ == 1 ? " number was" : " numbers were") +
                           " rounded to the 15 decimals that " + path_ +
                           " holds; the first is in record " + std::to_string(firstRounded_) + '.');
    return warnings;
}

}  // namespace app
