#pragma once

#include <string>

#include "gis/module/TableWriter.h"

namespace gis {

/// Writes texts with commas between them, as UTF-8, after a line with the fields' names. Numbers
/// lose no digit; no value is nothing. Texts that need it stand in quotes.
class CsvWriter : public TableWriter {
public:
    CsvWriter(std::string path, const std::vector<SourceField>& fields);

    void Add(const std::vector<host::Variant>& values) override;
    void Finish(const Store& store) override { store(path_, content_); }

private:
    void AddText(std::string_view text);

    std::string path_;
    std::string content_;
};

}  // namespace gis
