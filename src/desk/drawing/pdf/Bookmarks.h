#pragma once

#include <string>

#include "desk/drawing/pdf/ObjectFile.h"

namespace desk::pdf {

/// The bookmarks of a file, one below the other.
class Bookmarks {
public:
    explicit Bookmarks(ObjectFile& file) : file_(file) {}

    /// Adds a bookmark that leads to a height on a page, in points.
    void Add(const std::string& title, int page, double height);

    /// Writes what remains. Returns the number of the whole, 0 without bookmarks.
    int Write();

private:
    void WriteLast(int next);

    ObjectFile& file_;
    int root_ = 0;
    int count_ = 0;
    int first_ = 0;
    // The last one, which is written when the one after it is known.
    int last_ = 0;
    std::string body_;
};

}  // namespace desk::pdf
