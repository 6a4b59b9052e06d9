#pragma once

#include <string>
#include <vector>

#include "app/commands/Commands.h"
#include "desk/files/TemporaryName.h"

namespace app {

/// Returns the files of features, sheets and squares; empty for a source that is no file.
std::vector<std::string> SourceFiles(const Options& options);

/// Does what `locate` does. The summary names the file if it is kept.
void LocateInto(const Options& options, bool isKept);

/// The listings of `make`: where sheets are given, the features are located first, into the table
/// that the options name, or into one that goes with this object.
class MakeListings {
public:
    /// Throws UsageError for options that do not fit each other; otherwise what `locate` throws.
    explicit MakeListings(const Options& options);
    MakeListings(const MakeListings&) = delete;
    MakeListings& operator=(const MakeListings&) = delete;

    /// The options with the table as listing database.
    const Options& WithTable() const { return options_; }

private:
    void Link();
    std::string TemporaryTable();

    Options options_;
    desk::TemporaryName table_;  ///< Empty if the table is kept.
    desk::TemporaryName encoding_;
};

}  // namespace app
