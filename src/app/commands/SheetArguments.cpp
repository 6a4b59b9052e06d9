#include "app/commands/SheetArguments.h"

#include <CLI/CLI.hpp>

#include "app/document/ArgumentParser.h"

namespace app {
namespace {

constexpr std::int64_t kMostMapPages = 1'000'000;

/// An empty name is most likely that of a variable of the shell that is not set.
std::string CheckGiven(const std::string& value) {
    return value.empty() ? "its value is empty" : "";
}

void DeclareMaps(CLI::App& command, Options& options) {
    MapFile& maps = options.maps;
    auto* const beside =
        AddText(command, "--maps", maps.path,
                "PDF of the maps: each reference of a PDF becomes a link to its page")
            ->check(CheckGiven);
    auto* const append = command.add_option_function<std::string>(
        "--append-to",
        [&maps](const std::string& path) {
            maps.path = path;
            maps.isSameFile = true;
        },
        "PDF of the maps: the output has their pages and the index after them, with links");
    append->excludes(beside)->check(CheckGiven);
    // Below 1 where the first page of the file has a number above 1.
    AddNumber(command, "--first-map-page", maps.firstPage, {-kMostMapPages, kMostMapPages},
              "Page of that PDF with the number 1, {} (default: by its page labels)");
}

void DeclarePress(CLI::App& command, Options& options) {
    // Links are annotations, of which PDF/X allows none on a page.
    command
        .add_option("--press", options.press.profile,
                    "Make a PDF/X-4 for a printer, with the colours of this ICC profile of a press")
        ->check(CheckGiven)
        ->excludes("--maps", "--append-to");
    AddText(command, "--bleed", options.press.bleed,
            "With --press: what pages have beyond each edge of the sheet, in inches or with mm "
            "behind it, such as 3mm")
        ->check(CheckGiven);
    command.add_flag("--crop-marks", options.press.cropMarks,
                     "With --press: mark the corners of the sheet, outside the bleed");
}

}  // namespace

void DeclareSheets(CLI::App& command, Options& options) {
    AddNumber(command, "--dpi", options.written.dotsPerInch, {10, 1200},
              "Resolution of PNG images in dots per inch, {} (default: 150)");
    command.add_flag(
        "!--no-tags", options.written.tags,
        "Leave the structure of the index out of a PDF: smaller, but not for archives, "
        "and silent to a screen reader");
    command.add_flag("--strict", options.strict,
                     "Write no file where anything would be wrong in print");
}

void DeclareMapsAndPress(CLI::App& command, Options& options) {
    DeclareMaps(command, options);
    DeclarePress(command, options);
}

}  // namespace app
