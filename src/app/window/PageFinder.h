#pragma once

#include <QString>
#include <chrono>
#include <string>
#include <vector>

#include "model/Results.h"

namespace app {

struct PageHit {
    int page = 0;
    QString listing;     ///< Empty if the page was found by its number only, as the key.
    std::string rowKey;  ///< Of the listing.
};

/// Finds pages by their listings, ignoring case and accents.
class PageFinder {
public:
    /// Sets the results to search. They can be found only after ReadOn has read them; those set
    /// already stay read.
    void SetResults(const gazetteer::WorkingResults& results);
    /// Reads pages until the time is over, at least one. Returns false if all are read.
    bool ReadOn(std::chrono::milliseconds time);

    /// Returns, in page order, the listings that contain the text, and the page with this number.
    std::vector<PageHit> Find(const QString& text) const;

private:
    struct Listing {
        int page = 0;
        QString text;
        QString folded;
        std::string rowKey;
    };

    void ReadPage(int page);

    int pageCount_ = 0;
    int pagesRead_ = 0;
    host::Ref<host::IHostPropertySet> pageGroups_;
    std::vector<host::Ref<host::IHostPropertySet>> columns_;
    std::vector<Listing> listings_;  ///< In page order.
};

}  // namespace app
