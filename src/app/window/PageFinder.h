#pragma once

#include <QString>
#include <vector>

#include "app/window/PageListModel.h"
#include "model/Results.h"

namespace app {

/// Finds the pages on which a listing stands. Upper and lower case, and accents, do not matter.
class PageFinder {
public:
    /// What is searched from now on. The listings are read at the first search.
    void SetResults(gazetteer::WorkingResults results);

    /// Pages with a listing that holds the text, and those whose number is the text, in page order.
    std::vector<PageHit> Find(const QString& text);

private:
    struct Listing {
        int page = 0;
        QString text;
        QString folded;
    };

    void Read();

    gazetteer::WorkingResults results_;
    bool read_ = false;
    std::vector<Listing> listings_;  ///< In page order.
};

}  // namespace app
