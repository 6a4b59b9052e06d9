#include "desk/tables/TablePath.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "characters/FoldCase.h"
#include "desk/components/GisLibrary.h"
#include "desk/files/Files.h"
#include "desk/tables/DbfHeader.h"
#include "desk/tables/DbfTable.h"
#include "desk/tables/FilesOfFolder.h"
#include "desk/tables/RecordFile.h"
#include "host/Failure.h"

namespace desk {
namespace {

namespace fs = std::filesystem;

constexpr const char* kEnding = ".dbf";
/// The geometry of a shapefile; its table is the dBase file beside it.
constexpr const char* kShapes = ".shp";
/// A folder that is one database.
constexpr const char* kDatabaseFolder = ".gdb";

/// Whether the ending of a path is one of these.
bool EndsWithOne(const fs::path& path, const std::vector<std::string>& endings) {
    return std::ranges::find(endings, characters::FoldCase(path.extension())) != endings.end();
}

bool IsSource(const fs::path& path) {
    std::error_code ignored;
    const auto status = fs::status(path, ignored);
    return fs::exists(status) &&
           (!fs::is_directory(status) || characters::FoldCase(path.extension()) == kDatabaseFolder);
}

/// Returns the file in another case of its ending, or with the ending of dBase.
std::optional<fs::path> InOtherCase(fs::path wanted) {
    if (!wanted.has_extension()) wanted += kEnding;
    for (const fs::path& file : FilesOfFolder(wanted.parent_path()))
        if (file.stem() == wanted.stem() &&
            characters::FoldCase(file.extension()) == characters::FoldCase(wanted.extension()))
            return wanted.parent_path() / file;
    return std::nullopt;
}

/// The table of a file, which need not be the file itself.
TablePath TableOf(const fs::path& file) {
    if (characters::FoldCase(file.extension()) == kShapes)
        if (const auto table = InOtherCase(fs::path(file).replace_extension(kEnding)))
            return {*table, {}};
    return {file, {}};
}

std::optional<TablePath> FindAt(const fs::path& path) {
    if (!path.has_filename() && path.has_relative_path()) return FindAt(path.parent_path());
    if (IsSource(path)) return TableOf(path);
    if (const auto file = InOtherCase(path)) return TableOf(*file);
    for (fs::path source = path.parent_path(); source.has_relative_path();
         source = source.parent_path())
        if (IsSource(source)) {
            const TablePath table = TableOf(source);
            return TablePath{table.source, path.lexically_relative(source)};
        }
    return std::nullopt;
}

bool IsDbf(const TablePath& path) {
    if (path.IsConnection() || !path.layer.empty()) return false;
    if (!path.Exists() || characters::FoldCase(fs::path(path.source).extension()) == kEnding)
        return true;
    return !fs::is_directory(path.source) && IsDbf(RecordFile(path.source));
}

}  // namespace

bool TablePath::IsConnection() const {
    return IsConnectionName(source) && !IsSource(source);
}

bool TablePath::Exists() const {
    return IsConnection() || IsSource(source);
}

const std::vector<std::string>& TableEndings() {
    static const std::vector<std::string> endings = {
        kEnding, kShapes, ".gpkg", ".csv", ".tsv",    ".geojson", ".fgb", ".xlsx",
        ".xls",  ".ods",  ".tab",  ".mif", ".sqlite", ".gml",     ".kml", kDatabaseFolder};
    return endings;
}

bool IsContainer(const std::string& path) {
    static const std::vector<std::string> endings = {".gpkg", ".sqlite", ".xlsx", ".xls",
                                                     ".ods",  ".gml",    ".kml",  kDatabaseFolder};
    return IsSource(path) && EndsWithOne(path, endings);
}

bool IsTablePath(const std::string& path) {
    const TablePath table = FindTable(path);
    return table.IsConnection() || (table.Exists() && !table.layer.empty()) ||
           EndsWithOne(path, TableEndings());
}

TablePath FindTable(const std::string& path, const std::string& beside) {
    if (const TablePath given{path, {}}; given.Exists())
        return given.IsConnection() ? given : TableOf(path);
    // The path as given comes first, because a file name may contain a backslash.
    std::string converted = path;
    std::ranges::replace(converted, '\\', '/');
    const fs::path given = converted;
    if (const auto found = FindAt(given)) return *found;
    if (!beside.empty() && given.has_filename()) {
        const fs::path folder = beside;
        if (const auto found = FindAt(folder / given.filename())) return *found;
        if (const auto found = FindAt(folder / given.parent_path().filename() / given.filename()))
            return *found;
    }
    return {converted, {}};
}

std::shared_ptr<gis::SourceTable> OpenTable(const TablePath& path, const std::string& where) {
    const bool isDbf = IsDbf(path);
    if (isDbf && (where.empty() || !path.Exists())) return std::make_shared<DbfTable>(path.source);
    const std::string purpose = isDbf ? "Selecting records of " + path.Text()
                                      : "Reading " + path.Text() + ", which is no dBase table,";
    return LoadGisModule(purpose).OpenTable(path.source, path.layer, where);
}

bool OpensAtOnce(const TablePath& path) {
    return IsDbf(path) || GisModuleNeedsNoBuilding();
}

}  // namespace desk
