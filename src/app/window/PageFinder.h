#pragma once

#include <QString>
#include <chrono>
#include <vector>

#include "model/Results.h"

namespace app {

/// A page that a search found.
struct PageHit {
    int page = 0;
    QString listing;  ///< The first listing found on it.
    int more = 0;     ///< How many further ones.
};

/// Finds the pages of listings. Case and accents are ignored.
class PageFinder {
public:
    /// Replaces what is searched. ReadOn must be called until all of it can be found.
    void SetResults(const gazetteer::WorkingResults& results);
    /// Reads more pages until the time is over, at least one. Returns false once all are read.
    bool ReadOn(std::chrono::milliseconds time);

    /// Returns the pages with a listing that contains the text, and the page whose number is the
    /// text, in page order.
    std::vector<PageHit> Find(const QString& text) const;

private:
    struct Listing {
        int page = 0;
        QString text;
        QString folded;
    };

    void ReadPage(int page);

    int pageCount_ = 0;
    int pagesRead_ = 0;
    host::Ref<host::IHostPropertySet> pageGroups_;
    std::vector<host::Ref<host::IHostPropertySet>> columns_;
    std::vector<Listing> listings_;  ///< In page order.
};

}  // namespace app
