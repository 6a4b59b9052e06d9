#include "app/commands/Commands.h"
#include "app/commands/Console.h"
#include "app/document/Errors.h"
#include "app/tables/ImportedTable.h"
#include "app/tables/LocatedTable.h"
#include "desk/locale/IcuLocale.h"
#include "desk/tables/TablePath.h"

namespace app {
namespace {

std::string FileOf(const std::string& path) {
    return desk::FindTable(path).File();
}

void WriteAndTell(const Options& options, const auto& table, const std::string& summary) {
    const auto written = WriteTable(options.output, table.Fields(),
                                    [&](const RowTaker& take) { table.ForEach(take); });
    ClearProgress();
    for (const auto& warning : written.warnings) Warn(warning);
    Tell(summary + std::to_string(written.records) +
         (written.records == 1 ? " record" : " records") + " written to " + options.output + '.');
}

}  // namespace

int Import(const Options& options) {
    CheckTableOutput(options.output, {FileOf(options.imported.source)}, options.force);
    const auto locale = std::make_shared<desk::IcuLocale>(options.locale);
    const ImportedTable table(options.imported, locale, locale->Name());
    WriteAndTell(options, table, {});
    for (const auto& note : table.Notes().All()) Warn(note);
    return kDone;
}

int Locate(const Options& options) {
    std::vector<std::string> sources = {FileOf(options.located.sheets)};
    for (const auto& features : options.located.features)
        sources.push_back(FileOf(features.source));
    if (!options.located.squareLayer.empty())
        sources.push_back(FileOf(options.located.squareLayer));
    CheckTableOutput(options.output, sources, options.force);
    const auto locale = std::make_shared<desk::IcuLocale>(options.locale);
    const auto listeners = ProgressListeners();
    const LocatedTable table(options.located, locale, [&](const std::string& text) {
        if (listeners.statusText) listeners.statusText(0, text);
    });
    ClearProgress();
    for (const auto& warning : table.Warnings()) Warn(warning);
    WriteAndTell(options, table, table.Summary() + ' ');
    return kDone;
}

}  // namespace app
