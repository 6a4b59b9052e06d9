#include "app/commands/TableArguments.h"

#include <CLI/CLI.hpp>
#include <map>

#include "app/document/ArgumentParser.h"
#include "app/document/Errors.h"
#include "app/tables/Constants.h"

namespace app {
namespace {

constexpr std::int32_t kMostThreads = 256;
constexpr std::int64_t kMostDistance = 1'000'000'000;

void AddOutput(CLI::App& command, Options& options) {
    command.add_option("-o,--output", options.output, "Table to write: .dbf, .gpkg or .csv")
        ->required();
    command.add_flag("--force", options.force, "Replace a table that exists");
}

// Adds an option that stands behind a source and belongs to it.
void AddOfSource(CLI::App& command, const char* name, const char* text) {
    static std::vector<std::string> ignored;  // TakeFeatures reads the options themselves.
    AddText(command, name, ignored, text)
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

// Layers of features, each with its options behind it.
void AddSources(CLI::App& command, const char* name, const char* text) {
    static std::vector<std::string> ignored;
    command.add_option(name, ignored, text)->required();
    AddOfSource(command, "--name", "Field of the name, or an expression such as '[name], [town]'");
    AddOfSource(command, "--where", "SQL condition on the features (default: all)");
}

void Apply(const std::string& option, const std::string& value, FeatureOptions& features) {
    if (option == "--name") features.name = value;
    if (option == "--where") features.where = value;
    if (option == "--set") features.constants.push_back(ParseConstant(value));
}

constexpr char kSheetsHelp[] = "Layer of the map sheets";
constexpr char kSheetsGroup[] = "With --sheets";

// Options about sheets, their squares, and what is one listing.
void AddSheets(CLI::App& command, LocateOptions& locate) {
    AddText(command, "--page", locate.page, "The sheets' field of the page (default: page)");
    AddText(command, "--grid", locate.grid, "ROWSxCOLUMNS of squares on each sheet");
    AddText(command, "--row-labels", locate.rowLabels,
            "Labels such as A..H, 1..8 or with commas (default: A.. or 1..)");
    AddText(command, "--column-labels", locate.columnLabels, "The same (default: 1..)");
    AddText(command, "--leave-out", locate.leftOut,
            "Letters that ranges of labels leave out, such as IO");
    command
        .add_option("--origin", locate.origin,
                    "Corner of the sheet from which squares are labelled: top-left, top-right, "
                    "bottom-left, bottom-right (default: top-left)")
        ->check(CLI::IsMember({"top-left", "top-right", "bottom-left", "bottom-right"}));
    command.add_option("--cells", locate.cells, "Layer of squares of your own, instead of a grid");
    AddText(command, "--cell-row", locate.cellRow, "Its field of the row's label (default: row)");
    AddText(command, "--cell-column", locate.cellColumn,
            "Its field of the column's label (default: column)");
    command
        .add_option("--squares", locate.squares,
                    "Squares of a sheet that a listing refers to: all, longest (of the part of a "
                    "line, or the largest of an area), first (default: longest)")
        ->check(CLI::IsMember({"all", "longest", "first"}));
    AddText(command, "--apart", locate.apart,
            "Field that tells features of one name apart, such as the town (repeatable)")
        ->expected(1)
        ->allow_extra_args(false)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command.add_flag("--initial", locate.initial,
                     "Add the letter under which an index of the locale has the listing");
    AddNumber(command, "--distance", locate.distance, {0, kMostDistance},
              "Parts of one name that lie farther apart are listings of their own; in the unit "
              "of the sheets' reference system, {}");
    AddNumber(command, "--threads", locate.threads, {1, kMostThreads},
              "Threads to work with, {} (default: one per core)");
}

}  // namespace

void DeclareImport(CLI::App& command, Options& options) {
    ImportOptions& imported = options.imported;
    command.add_option("SOURCE", imported.source, "The table to import")->required();
    AddText(command, "--layer", imported.layer, "Layer of the source, where it has several");
    AddText(command, "--where", imported.where, "SQL condition on the records (default: all)");
    AddText(command, "--listing", imported.listing,
            "Field of the listing, or an expression such as '[name], [town]'");
    AddText(command, "--page", imported.page, "Field of the page");
    AddText(command, "--row", imported.row, "Field of the grid's row");
    AddText(command, "--column", imported.column, "Field of the grid's column");
    AddText(command, "--keep", imported.keep, "Fields to keep under their names");
    command.add_flag("--initial", imported.initial,
                     "Add the letter under which an index of the locale has the listing");
    AddOutput(command, options);
}

void DeclareLocate(CLI::App& command, Options& options) {
    LocateOptions& locate = options.located;
    AddSources(command, "FEATURES", "Layers of what is listed");
    AddOfSource(command, "--set", "FIELD=VALUE, a field with the same value in each record");
    command.add_option("--sheets", locate.sheets, kSheetsHelp)->required();
    AddSheets(command, locate);
    command.add_option("--book", locate.book,
                       "Map book to write; the table then has the numbers of sheets, rows and "
                       "columns that a linked index turns into pages and labels");
    command.add_flag("--json", options.json, "Print what was found and left out as JSON");
    AddOutput(command, options);
}

void DeclareLocateForMake(CLI::App& command, Options& options) {
    LocateOptions& locate = options.located;
    const auto before = command.get_options().size();
    AddSources(command, "LISTINGS",
               "Listing database: a table, or with --sheets layers of what is listed");
    command.add_option("--sheets", locate.sheets,
                       std::string(kSheetsHelp) +
                           "; LISTINGS then has the features that are looked up on them, as "
                           "\"gazetteer locate --help\" tells");
    AddSheets(command, locate);
    command.add_option("--listings", options.listings, "Keep the table of what was found");
    command.add_flag("--force", options.force, "Replace that table and the map book if they exist");
    const auto all = command.get_options();
    for (std::size_t i = before; i < all.size(); ++i)
        if (!all[i]->get_positional() && all[i]->get_name() != "--sheets")
            all[i]->group(kSheetsGroup);
}

void RefuseWithoutSheets(const CLI::App& command) {
    for (const CLI::Option* const option : command.get_options())
        if (option->get_group() == kSheetsGroup && option->count() > 0)
            throw UsageError(option->get_name() + " goes with --sheets.");
}

void TakeFeatures(const CLI::App& command, LocateOptions& options) {
    // The constants of `make` are properties of the gazetteer.
    const bool hasConstants = command.get_name() == "locate";
    options.features.clear();
    FeatureOptions common;
    std::map<const CLI::Option*, std::size_t> taken;
    for (const CLI::Option* const option : command.parse_order()) {
        const std::string name = option->get_name();
        const bool isSource = option->get_positional();
        if (!isSource && name != "--name" && name != "--where" && name != "--set") continue;
        if (name == "--set" && !hasConstants) continue;
        const std::string& value = option->results()[taken[option]++];
        if (isSource) {
            options.features.push_back(common);
            options.features.back().source = value;
        } else {
            Apply(name, value, options.features.empty() ? common : options.features.back());
        }
    }
}

}  // namespace app
