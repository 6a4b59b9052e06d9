#include "app/tables/DbfLimits.h"

#include <algorithm>
#include <filesystem>

#include "app/document/Errors.h"
#include "desk/unicode/FoldCase.h"
#include "desk/unicode/Utf8.h"

namespace app {
namespace {

constexpr std::size_t kMostNameBytes = 10;
constexpr std::size_t kMostTextBytes = 254;

void CutTo(std::string& text, std::size_t bytes) {
    if (text.size() > bytes)
        text.resize(desk::WholeCharacters(std::string_view(text).substr(0, bytes)));
}

}  // namespace

DbfLimits::DbfLimits(const std::string& path, std::vector<gis::SourceField>& fields)
    : path_(path), isDbf_(desk::FoldCase(std::filesystem::path(path).extension()) == ".dbf") {
    if (!isDbf_) return;
    ShortenNames(fields);
    for (auto& field : fields)
        field.length = std::min(field.length, static_cast<std::int32_t>(kMostTextBytes));
}

void DbfLimits::ShortenNames(std::vector<gis::SourceField>& fields) {
    std::vector<std::string> taken;
    for (auto& field : fields) {
        const std::string whole = field.name;
        CutTo(field.name, kMostNameBytes);
        for (int number = 2; std::ranges::find(taken, desk::FoldCase(field.name)) != taken.end();
             ++number) {
            const std::string end = '_' + std::to_string(number);
            CutTo(field.name, kMostNameBytes - end.size());
            field.name += end;
        }
        taken.push_back(desk::FoldCase(field.name));
        if (field.name != whole)
            warnings_.push_back("the field \"" + whole + "\" is named \"" + field.name + "\" in " +
                                path_ + ", where names have ten bytes.");
    }
}

void DbfLimits::Apply(std::int64_t record, std::vector<host::Variant>& row) {
    if (!isDbf_) return;
    for (auto& value : row) {
        auto* const text = std::get_if<std::string>(&value);
        if (text == nullptr || text->size() <= kMostTextBytes) continue;
        if (cutTexts_++ == 0) {
            firstRecord_ = record;
            firstText_ = *text;
        }
        CutTo(*text, kMostTextBytes);
    }
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
    return warnings;
}

}  // namespace app
