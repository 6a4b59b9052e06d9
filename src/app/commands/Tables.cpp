#include "app/commands/Commands.h"
#include "app/commands/Console.h"
#include "app/commands/JsonAnswer.h"
#include "app/commands/MakeListings.h"
#include "app/tables/BookFile.h"
#include "app/tables/ImportedTable.h"
#include "app/tables/LocatedTable.h"
#include "desk/locale/IcuLocale.h"
#include "desk/tables/TablePath.h"

namespace app {
namespace {

std::string FileOf(const std::string& path) {
    return desk::FindTable(path).File();
}

// Returns how many records were written to which file, as a sentence.
std::string Write(const Options& options, const auto& table) {
    const auto written = WriteTable(options.output, table.Fields(),
                                    [&](const RowTaker& take) { table.ForEach(take); });
    ClearProgress();
    for (const auto& warning : written.warnings) Warn(warning);
    return std::to_string(written.records) + (written.records == 1 ? " record" : " records") +
           " written to " + options.output + '.';
}

void WriteCounts(JsonAnswer& json, const gis::LocateResult& result) {
    gis::LayerCounts all;
    for (const auto& counts : result.counts) {
        all.read += counts.read;
        all.unnamed.count += counts.unnamed.count;
        all.withoutGeometry.count += counts.withoutGeometry.count;
        all.withoutLength.count += counts.withoutLength.count;
        all.outside.count += counts.outside.count;
        all.inNoSquare.count += counts.inNoSquare.count;
        all.broken.count += counts.broken.count;
        all.mended.count += counts.mended.count;
    }
    json.Member("features", all.read);
    json.Member("unnamed", all.unnamed.count);
    json.Member("withoutPlace", all.withoutGeometry.count);
    json.Member("withoutLength", all.withoutLength.count);
    json.Member("outside", all.outside.count);
    json.Member("inNoSquare", all.inNoSquare.count);
    json.Member("broken", all.broken.count);
    json.Member("mended", all.mended.count);
    json.Member("listings", std::ssize(result.listings));
    json.Member("references", std::ssize(result.references));
    json.Member("emptySheets", result.emptySheets);
}

}  // namespace

int Import(const Options& options) {
    CheckTableOutput(options.output, {FileOf(options.imported.source)}, options.force);
    const auto locale = std::make_shared<desk::IcuLocale>(options.locale);
    const ImportedTable table(options.imported, locale, locale->Name());
    const auto written = Write(options, table);
    for (const auto& note : table.Notes().All()) Warn(note);
    Tell(written);
    return kDone;
}

int Locate(const Options& options) {
    LocateInto(options, true);
    return kDone;
}

std::vector<std::string> SourceFiles(const Options& options) {
    std::vector<std::string> sources;
    for (const auto& features : options.located.features)
        sources.push_back(FileOf(features.source));
    for (const auto& layer : {options.located.sheets, options.located.cells})
        if (!layer.empty()) sources.push_back(FileOf(layer));
    return sources;
}

void LocateInto(const Options& options, bool isKept) {
    const auto sources = SourceFiles(options);
    CheckTableOutput(options.output, sources, options.force);
    CheckBookOutput(options.located.book, options.output, sources, options.force);
    const auto locale = std::make_shared<desk::IcuLocale>(options.locale);
    const auto listeners = ProgressListeners();
    LocateOptions locate = options.located;
    locate.locale = locale->Name();
    const LocatedTable table(locate, locale, [&](auto read, auto features) {
        if (!listeners.statusText) return;
        listeners.step(read, features);
        listeners.statusText(0, "Locating feature " + std::to_string(read));
    });
    ClearProgress();
    for (const auto& warning : table.Warnings()) Warn(warning);
    const auto written = Write(options, table);
    table.WriteMapBook();
    if (options.json) StreamAnswer(1, [&](JsonAnswer& json) { WriteCounts(json, table.Result()); });
    Tell(table.Summary() + (isKept ? ' ' + written : ""));
}

}  // namespace app
