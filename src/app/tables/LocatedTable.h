#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/tables/Labels.h"
#include "app/tables/TableOptions.h"
#include "app/tables/TableOutput.h"
#include "desk/locale/IndexLetters.h"
#include "gis/module/Locate.h"
#include "host/Locale.h"

namespace app {

/// Locates features and holds the result as a table of listings with the fields Listing, Page, Row
/// and Column, those that tell listings apart, and the constants. The text of a listing that shares
/// its name with others has behind it what tells it apart, so that the index does not combine them:
/// "Bahnhofstraße (Altstadt)".
class LocatedTable {
public:
    /// Takes the number of features read of the layer at hand, and how many it has; 0: unknown.
    using Progress = std::function<void(std::int64_t read, std::int64_t features)>;

    /// Throws UsageError for options that do not fit each other or the sources, and host::Failure
    /// for a source that cannot be read.
    LocatedTable(const LocateOptions& options, const host::Ref<host::IHostLocale>& locale,
                 const Progress& progress);

    const gis::LocateResult& Result() const { return result_; }
    /// The texts of its listings.
    const std::vector<std::string>& Names() const { return names_; }
    std::vector<OutputField> Fields() const;
    void ForEach(const RowTaker& take) const;
    /// Writes the map book, if one is wanted.
    void WriteMapBook() const;
    /// What was read and found, in a sentence.
    std::string Summary() const;
    /// What was left out and why, one sentence each.
    std::vector<std::string> Warnings() const;

private:
    /// Throws UsageError if no map book can tell the pages of the sheets.
    void CheckBook() const;
    void AddPlace(const gis::Reference& reference, Values& values) const;
    void NameListings();
    host::Variant Constant(std::size_t group, const std::string& field) const;

    LocateOptions options_;
    Labels rowLabels_;
    Labels columnLabels_;
    std::vector<std::string> layers_;  ///< Names of the features' layers.
    std::vector<std::string> constants_;
    std::vector<std::string> names_;  ///< Of the listings, as they are printed.
    std::unique_ptr<desk::IndexLetters> letters_;
    bool hasParts_ = false;
    gis::LocateResult result_;
};

}  // namespace app
