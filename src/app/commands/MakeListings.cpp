#include "app/commands/MakeListings.h"

#include <cstdlib>
#include <filesystem>
#include <string_view>

#include "app/document/Errors.h"
#include "app/document/FilePaths.h"
#include "app/tables/BookFile.h"
#include "desk/files/Files.h"

namespace app {
namespace {

namespace fs = std::filesystem;

void CheckOptions(const Options& options) {
    if (options.located.sheets.empty()) {
        if (options.located.features.size() > 1)
            throw UsageError("The listings are in one table; several layers go with --sheets.");
        return;
    }
    if (!options.document.empty() && options.listings.empty())
        throw UsageError(
            "--document needs --listings FILE with --sheets: the document reads its "
            "listings from that table.");
    if (IsSameFile(options.listings, options.output) ||
        IsSameFile(options.listings, options.document))
        throw UsageError("The file \"" + options.listings +
                         "\" cannot be both the table and another output.");
}

}  // namespace

MakeListings::MakeListings(const Options& options) : options_(options) {
    CheckOptions(options);
    const auto& features = options.located.features;
    options_.listingDatabase = features.empty() ? std::string() : features.front().source;
    if (options.located.sheets.empty()) return;
    Options locate = options;
    locate.output = options.listings.empty() ? TemporaryTable() : options.listings;
    locate.force = options.force || options.listings.empty();
    locate.located.book = options.book;
    if (!options.book.empty()) Link();
    if (options.title.empty()) options_.title = fs::path(options_.listingDatabase).stem();
    LocateInto(locate, !options.listings.empty());
    options_.listingDatabase = locate.output;
}

// The book that is written beside the table tells its pages.
void MakeListings::Link() {
    const auto link = LinkToWrittenBook();
    options_.assignments.insert(options_.assignments.begin(), link.begin(), link.end());
}

std::string MakeListings::TemporaryTable() {
    constexpr std::string_view kEnding = ".dbf";
    std::string table = (fs::temp_directory_path() / "gazetteer-XXXXXX").string();
    table += kEnding;
    const desk::Descriptor file(::mkstemps(table.data(), static_cast<int>(kEnding.size())));
    if (!file.IsOpen())
        throw CommandError("No temporary file can be made in " +
                           fs::temp_directory_path().string() + '.');
    table_.Take(table);
    encoding_.Take(fs::path(table).replace_extension(".cpg"));
    return table;
}

}  // namespace app
