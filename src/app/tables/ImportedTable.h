#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/tables/FieldText.h"
#include "app/tables/TableOptions.h"
#include "app/tables/TableOutput.h"
#include "desk/locale/IndexLetters.h"

namespace app {

/// A source as a table of listings.
class ImportedTable {
public:
    /// Throws UsageError for a field that the source does not have, host::Failure for a source that
    /// cannot be read. The locale's name is one of ICU.
    ImportedTable(const ImportOptions& options, const host::Ref<host::IHostLocale>& locale,
                  const std::string& localeName);

    std::vector<OutputField> Fields() const;
    /// Gives all records in the source's order.
    void ForEach(const RowTaker& take) const;
    const gis::TableNotes& Notes() const { return table_->Notes(); }

private:
    struct Column {
        OutputField output;
        FieldText text;
    };
    void Add(const std::string& option, const std::string& name, const std::string& given);

    std::shared_ptr<gis::SourceTable> table_;
    host::Ref<host::IHostLocale> locale_;
    std::vector<Column> columns_;
    std::optional<std::size_t> listing_;
    std::unique_ptr<desk::IndexLetters> letters_;
};

}  // namespace app
