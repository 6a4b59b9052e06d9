#include "app/tables/TableOutput.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/tables/DbfLimits.h"
#include "app/tables/FieldMeasure.h"
#include "desk/components/GisLibrary.h"
#include "desk/files/ReplacingFile.h"
#include "desk/unicode/FoldCase.h"

namespace app {

namespace {

/// Returns true also for the table beside the geometry of a Shapefile.
bool IsOfSource(const std::string& path, const std::string& source) {
    if (IsOfTable(path, source)) return true;
    auto table = std::filesystem::path(source);
    if (desk::FoldCase(table.extension()) != ".shp") return false;
    return IsOfTable(path, table.replace_extension(".dbf")) ||
           IsOfTable(path, table.replace_extension(".DBF"));
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
        limits.Apply(++written.records, fitted);
        writer->Add(fitted);
    });
    writer->Finish([](const std::string& file, std::string_view content) {
        desk::ReplacingFile output(file);
        output.Write(content);
        output.Commit();
    });
    written.warnings = limits.Warnings();
    return written;
}

void CheckTableOutput(const std::string& path, const std::vector<std::string>& sources,
                      bool force) {
    const std::string ending = desk::FoldCase(std::filesystem::path(path).extension());
    if (ending != ".dbf" && ending != ".gpkg" && ending != ".csv")
        throw UsageError("The table \"" + path +
                         "\" cannot be written: its name must end in .dbf, .gpkg or .csv.");
    for (const auto& source : sources)
        if (IsOfSource(path, source))
            throw UsageError("The table \"" + path +
                             "\" cannot be written: it would be made from itself.");
    CheckFolderOf(path);
    std::error_code ignored;
    if (!force && std::filesystem::exists(path, ignored))
        throw CommandError("The table \"" + path + "\" exists already; --force replaces it.");
}

}  // namespace app
