#pragma once

#include <cstdint>

#include "host/Host.h"
#include "model/PageFindings.h"

namespace gazetteer {

/// The results in use: those of a run, or the stored ones.
struct WorkingResults {
    /// Column name, in display order, to a set of row key to cell text. All column sets hold the
    /// same row keys in listing order. A row key is the decimal number (OID) of the row of the
    /// index table that began the listing.
    host::Ref<host::IHostPropertySet> listings;
    /// Page number in decimal to a set of row key to the same row key, in page order.
    host::Ref<host::IHostPropertySet> pageGroups;
    /// Page number in decimal to the text of its first and last listing.
    host::Ref<host::IHostPropertySet> firstListings;
    host::Ref<host::IHostPropertySet> lastListings;
    std::int32_t pageCount = 0;
};

/// What became of the records of one run.
struct RunReport {
    std::int64_t records = 0;     ///< Records read from the listing database.
    std::int64_t duplicates = 0;  ///< Rows dropped because they repeat the row before.
    std::int64_t combined = 0;    ///< Rows merged into the listing before them.
    std::int64_t listings = 0;    ///< Listings stored.
    std::int64_t placed = 0;      ///< Listings that stand on a page.
    PageFindings onPages;         ///< What would be wrong where they stand.
};

/// The host's objects for the map book, created once per manager and once per form.
struct SiblingObjects {
    host::Ref<host::CVNLayoutContext> layoutContext;
    host::Ref<host::CVNMapBook> mapBook;
    host::Ref<host::MapSeriesManager> seriesManager;
    host::Ref<host::CVNExpressionEngine> expressionEngine;

    static SiblingObjects Create(host::IHostMapBookFactory& host) {
        return {host.NewLayoutContext(), host.NewMapBook(), host.NewMapSeriesManager(),
                host.NewExpressionEngine()};
    }
};

/// Tokens in stored texts, replaced when the text is laid out or drawn.
inline constexpr char kDotsToken[] = "$$DOTS";
inline constexpr char kNewLineToken[] = "$$NEWLINE";
inline constexpr char kLastCombineToken[] = "$$LASTCOMBINE";

}  // namespace gazetteer
