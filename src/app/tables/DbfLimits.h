#pragma once

#include <string>
#include <vector>

#include "gis/module/SourceTable.h"

namespace app {

/// What a dBase table cannot hold: field names of more than ten bytes, texts of more than 254, and
/// numbers with too many digits or decimals.
class DbfLimits {
public:
    /// Shortens the fields to what a table of the path's format holds.
    DbfLimits(const std::string& path, std::vector<gis::SourceField>& fields);

    /// Cuts the texts of a record, counted from 1, that are too long.
    void Apply(std::int64_t record, std::vector<host::Variant>& row);
    /// Returns what was shortened, one sentence each.
    std::vector<std::string> Warnings() const;

private:
    void CountRounded(std::int64_t record, double number);
    void ShortenNames(std::vector<gis::SourceField>& fields);

    std::string path_;
    bool isDbf_;
    std::vector<std::string> warnings_;
    std::int64_t cutTexts_ = 0;
    std::int64_t firstRecord_ = 0;
    std::string firstText_;
    std::int64_t roundedNumbers_ = 0;
    std::int64_t firstRounded_ = 0;
};

}  // namespace app
