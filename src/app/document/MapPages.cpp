#include "app/document/MapPages.h"

#include <filesystem>
#include <utility>

#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "desk/drawing/PageWriter.h"
#include "pdf/existing/PageNames.h"

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

}  // namespace

MapPages::MapPages(MapFile maps, const std::string& indexPath) try : maps_(std::move(maps)) {
    if (!maps_.isSameFile) file_ = PathFrom(indexPath, maps_.path);
    const auto pages = pdf::ReadPageNames(maps_.path);
    for (std::size_t i = 0; i < pages.names.size(); ++i) {
        const auto page = static_cast<int>(i);
        const std::string name =
            maps_.firstPage ? std::to_string(page + 2 - *maps_.firstPage) : pages.names[i];
        pages_.emplace(name, page);
    }
} catch (const pdf::Error& error) {
    throw CommandError(error.what());
}

const pdf::Target* MapPages::Find(std::string_view page) {
    const auto found = pages_.find(page);
    if (found == pages_.end()) return nullptr;
    const auto known = targets_.find(found->second);
    if (known != targets_.end()) return &known->second;
    pdf::Target target;
    target.file = file_;
    target.page = found->second;
    target.name = "gazetteer.page." + found->first;
    target.description = "Page " + found->first;
    return &targets_.emplace(found->second, std::move(target)).first->second;
}

std::vector<pdf::Destination> MapPages::Destinations() const {
    std::vector<pdf::Destination> destinations;
    for (const auto& [page, target] : targets_)
        destinations.push_back({target.name, page, target.view});
    return destinations;
}

std::shared_ptr<MapPages> OpenMaps(const MapFile& maps, const std::string& output) {
    if (maps.path.empty()) return nullptr;
    const auto* const format = desk::FormatOf(output);
    if (!format || !format->manySheets)
        throw UsageError("The output \"" + output +
                         "\" must end in .pdf: only a PDF has links to maps.");
    if (IsSameFile(maps.path, output))
        throw UsageError("The file \"" + output + "\" cannot be written: the maps are in it.");
    return std::make_shared<MapPages>(maps, output);
}

}  // namespace app
