#include "app/commands/MakeListings.h"

#include <filesystem>
#include <stdlib.h>

#include "app/document/Errors.h"
#include "app/document/FilePaths.h"

namespace app {
namespace {

namespace fs = std::filesystem;

void CheckOptions(const Options& options) {
    if (options.located.sheets.empty()) {
        if (!options.listings.empty())
            throw UsageError(
                "--listings goes with --sheets: it names the table of what was found.");
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
    if (options.located.sheets.empty()) return;
    Options locate = options;
    locate.output = options.listings.empty() ? TemporaryTable() : options.listings;
    locate.force = true;
    locate.located.book.clear();
    locate.located.features.front().source = options.listingDatabase;
    if (options.title.empty()) options_.title = fs::path(options.listingDatabase).stem();
    LocateInto(locate, !options.listings.empty());
    options_.listingDatabase = locate.output;
}

MakeListings::~MakeListings() {
    table_.Remove();
    encoding_.Remove();
    std::error_code ignored;
    if (!folder_.empty()) fs::remove(folder_, ignored);
}

std::string MakeListings::TemporaryTable() {
    std::string pattern = (fs::temp_directory_path() / "gazetteer-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        throw CommandError("No folder for temporary files can be made in " +
                           fs::temp_directory_path().string() + '.');
    folder_ = pattern;
    const fs::path table = fs::path(folder_) / "listings.dbf";
    table_.Take(table);
    encoding_.Take(fs::path(table).replace_extension(".cpg"));
    return table;
}

}  // namespace app
