#include "app/document/MapPages.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "desk/drawing/PageWriter.h"
#include "listings/PageCorrection.h"
#include "model/Results.h"
#include "support/Conversions.h"

namespace app {
namespace {

namespace fs = std::filesystem;

/// Returns the path from the folder of one file to another one, with slashes.
std::string PathFrom(const std::string& file, const std::string& to) {
    std::error_code error;
    const fs::path folder = fs::absolute(file, error).parent_path();
    const fs::path path = fs::proximate(to, folder, error);
    return (error ? fs::path(to) : path).generic_string();
}

std::size_t ToSize(std::int32_t number) {
    return static_cast<std::size_t>(number);
}

}  // namespace

MapPages::MapPages(MapFile maps, const std::string& indexPath) try : maps_(std::move(maps)) {
    if (!maps_.isSameFile) file_ = PathFrom(indexPath, maps_.path);
    pages_ = pdf::ReadPages(maps_.path);
    const bool haveLabels = std::ranges::any_of(
        pages_, [](const pdf::ExistingPage& page) { return !page.name.empty(); });
    areNumbersTold_ = maps_.firstPage || haveLabels;
    if (maps_.firstPage || !haveLabels) NumberFrom(2 - maps_.firstPage.value_or(1));
    FindPlaces();
} catch (const pdf::Error& error) {
    throw CommandError(error.what());
}

void MapPages::NumberFrom(std::int64_t first) {
    for (pdf::ExistingPage& page : pages_) page.name = std::to_string(first++);
}

void MapPages::FindPlaces() {
    places_.clear();
    for (std::size_t i = 0; i < pages_.size(); ++i)
        places_.emplace(WithoutBlanks(pages_[i].name), i);
    places_.erase("");
}

void MapPages::NumberByBook(OpenDocument& open) {
    const auto frame = open.Manager().SeriesMapFrame();
    if (areNumbersTold_ || !frame) return;
    auto& locale = open.Host().Locale();
    const gazetteer::Settings& settings = open.Manager().BoundSettings();
    const auto siblings = gazetteer::SiblingObjects::Create(open.Host());
    const std::string& section = settings.mapSeriesSectionKey;
    if (!gazetteer::MakePageCorrection(settings, siblings, frame, locale).isByBook ||
        siblings.mapBook->SectionPages(section).size() != pages_.size())
        return;
    NumberFrom(gazetteer::ToLong(siblings.mapBook->SectionStartPage(section), locale));
    FindPlaces();
}

bool MapPages::Has(std::string_view page) const {
    return places_.contains(WithoutBlanks(page));
}

const pdf::Target* MapPages::Find(std::string_view page, const MapSquare* square) {
    const auto found = places_.find(WithoutBlanks(page));
    if (found == places_.end()) return nullptr;
    TargetKey key{found->second, 0, 0};
    if (square) key = {found->second, ToSize(square->row), ToSize(square->column)};
    auto [target, isNew] = targets_.try_emplace(key);
    if (isNew) target->second = MakeTarget(found->second, square);
    return &target->second;
}

pdf::Target MapPages::MakeTarget(std::size_t place, const MapSquare* square) const {
    const pdf::ExistingPage& page = pages_[place];
    pdf::Target target;
    target.file = file_;
    target.page = static_cast<int>(place);
    target.name = "gazetteer.page." + std::to_string(place + 1);
    target.description = page.name;
    if (!square) return target;
    target.view = pdf::OnPage(page, square->place);
    target.name += '.' + std::to_string(square->row) + '.' + std::to_string(square->column);
    target.description += ", " + square->text;
    return target;
}

std::vector<pdf::Destination> MapPages::Destinations() const {
    std::vector<pdf::Destination> destinations;
    for (const auto& [key, target] : targets_)
        destinations.push_back({target.name, target.page, target.view});
    return destinations;
}

std::shared_ptr<MapPages> OpenMaps(const MapFile& maps, const std::string& output) {
    if (maps.path.empty()) {
        if (maps.firstPage) throw UsageError("--first-map-page goes with --maps or --append-to.");
        return nullptr;
    }
    const auto* const format = desk::FormatOf(output);
    if (!format || !format->manySheets)
        throw UsageError("The output \"" + output +
                         "\" must end in .pdf: only a PDF has links to maps.");
    if (IsSameFile(maps.path, output))
        throw UsageError("The file \"" + output + "\" cannot be written: the maps are in it.");
    return std::make_shared<MapPages>(maps, output);
}

}  // namespace app
