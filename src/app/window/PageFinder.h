#pragma once

#include <QString>
#include <chrono>
#include <vector>

#include "app/window/PageListModel.h"
#include "model/Results.h"

namespace app {

/// Finds the pages on which a listing stands. Upper and lower case, and accents, do not matter.
class PageFinder {
public:
    /// What is searched from now on, as far as it has been read.
    void SetResults(const gazetteer::WorkingResults& results);
    /// Reads on for a while, which is not much longer than the one given. False once all is read.
    bool ReadOn(std::chrono::milliseconds time);

    /// Pages with a listing that holds the text, and that whose number is the text, in page order.
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
