#include "app/tables/TableOutput.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <utility>

#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/tables/DbfLimits.h"
#include "app/tables/FieldMeasure.h"
#include "characters/FoldCase.h"
#include "desk/components/GisLibrary.h"
#include "desk/files/ReplacingFile.h"

namespace app {

namespace {

/// Returns true also for the table beside the geometry of a Shapefile.
bool IsOfSource(const std::string& path, const std::string& source) {
    if (IsOfTable(path, source)) return true;
    auto table = std::filesystem::path(source);
    if (characters::FoldCase(table.extension()) != ".shp") return false;
    return IsOfTable(path, table.replace_extension(".dbf")) ||
           IsOfTable(path, table.replace_extension(".DBF"));
}

/// A table of texts has one where there is no number.
bool IsEmptyText(const host::Variant& value) {
    const auto* const text = std::get_if<std::string>(&value);
    return text != nullptr && text->empty();
}

}  // namespace

WrittenTable WriteTable(const std::string& path, const std::vector<OutputField>& fields,
                        const RowSource& rows) {
    std::vector<FieldMeasure> measures(fields.size());
    rows([&](const Values& row) {
        for (std::size_t i = 0; i < row.size(); ++i) measures[i].Take(row[i]);
    });
    std::vector<gis::SourceField> measured;
    for (std::size_t i = 0; i < fields.size(); ++i)
        measured.push_back(measures[i].FieldFor(fields[i]));
    DbfLimits limits(path, measured);
    const auto writer = desk::LoadGisModule("Writing " + path).CreateTable(path, measured);
    WrittenTable written;
    rows([&](const Values& row) {
        Values fitted = row;
        for (std::size_t i = 0; i < fitted.size(); ++i)
            if (measured[i].kind == gis::FieldKind::Number && IsEmptyText(fitted[i]))
                fitted[i] = host::Null{};
        limits.Apply(++written.records, fitted);
        writer->Add(fitted);
    });
    std::vector<std::unique_ptr<desk::ReplacingFile>> files;
    writer->Finish([&](const std::string& file, std::string_view content) {
        files.push_back(std::make_unique<desk::ReplacingFile>(file));
        files.back()->Write(content);
        files.back()->Complete();
    });
    for (const auto& file : files) file->Commit();
    written.warnings = limits.Warnings();
    return written;
}

void CheckTableOutput(const std::string& path, const std::vector<std::string>& sources,
                      bool force) {
    const std::string ending = characters::FoldCase(std::filesystem::path(path).extension());
    if (ending != ".dbf" && ending != ".gpkg" && ending != ".csv")
        throw UsageError("The table \"" + path +
                         "\" cannot be written: its name must end in .dbf, .gpkg or .csv.");
    for (const auto& source : sources)
        if (IsOfSource(path, source))
            throw UsageError("The table \"" + path +
                             "\" cannot be written: it would be made from itself.");
    CheckFolderOf(path);
    std::error_code ignored;
    const auto encoding = std::filesystem::path(path).replace_extension(".cpg");
    if (ending == ".dbf" && !force && std::filesystem::exists(encoding, ignored))
        throw CommandError("The file \"" + encoding.string() +
                           "\", which tells the encoding of a table of this name, exists already; "
                           "--force replaces it.");
    if (!std::filesystem::exists(path, ignored)) return;
    if (!force)
        throw CommandError("The table \"" + path + "\" exists already; --force replaces it.");
    if (ending == ".gpkg" && !desk::LoadGisModule("Writing " + path).IsPlainTable(path))
        throw CommandError("The file \"" + path +
                           "\" holds a map, which is not replaced by a table.");
}

}  // namespace app
