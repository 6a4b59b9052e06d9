#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/commands/CommandSession.h"
#include "desk/drawing/PageWriter.h"
#include "listings/CellComposer.h"
#include "model/Results.h"
#include "model/Settings.h"
#include "support/TemporaryFolder.h"

namespace bench {

/// The texts of a column's cells before fitting.
struct CellTexts {
    std::string column;
    std::vector<std::string> texts;
    host::Ref<host::IHostTextSymbol> symbol;
    double width = 0;  ///< For text, in inches.
};

/// The stages of `make` on a Letter sheet. Each uses the results of the previous stages, which are
/// computed on first use.
///  The table is the one in GAZETTEER_BENCH_TABLE, else a seeded one with GAZETTEER_BENCH_RECORDS
/// records (default 100000).
class Stages {
public:
    Stages();

    /// Returns how many records have a name.
    std::int64_t Read();
    host::Ref<host::IHostTable> Compose();
    host::Ref<host::IHostCursor> Sort();
    host::Ref<host::IHostPropertySet> Combine(host::IHostCursor& rows);
    std::vector<CellTexts> Cells();
    void NumberPages(gazetteer::WorkingResults& results);
    void Draw(std::int32_t page);
    /// Writes the current page.
    void Write(desk::PageWriter& writer);

    const host::Ref<host::IHostTable>& Composed();
    gazetteer::WorkingResults& Results();

    host::IHost& Host() { return session_.Document().Host(); }
    host::Ref<host::IHostDisplay> Display();
    std::string File(const char* name) const { return folder_.File(name); }

private:
    support::TemporaryFolder folder_;
    app::CommandSession session_;
    gazetteer::Settings settings_;
    gazetteer::SiblingObjects siblings_;
    gazetteer::ListingSource source_;
    host::Ref<host::IHostFillSymbol> transparent_;
    host::Ref<host::IHostTable> composed_;
    gazetteer::WorkingResults results_;
};

}  // namespace bench
