#pragma once

#include <span>
#include <string>

#include "pdf/file/ObjectFile.h"

namespace pdf {

/// A title, and the height of its place above the lower edge of the page, in points.
struct Bookmark {
    std::string title;
    double height = 0;
};

/// The bookmarks of a file: one for each page, which readers show closed, with those of places on
/// the page below it. A page's is written when the next one is known.
class Bookmarks {
public:
    explicit Bookmarks(ObjectFile& file) : file_(file) {}

    /// Adds the bookmark of a page, which is the object of that number.
    void Add(const Bookmark& page, std::span<const Bookmark> places, int pageNumber);

    /// Writes the last bookmark and the root. Returns the root's number; 0 without bookmarks.
    int Write();

private:
    std::string Beginning(const Bookmark& bookmark, int page, int parent);
    std::string AddPlaces(std::span<const Bookmark> places, int pageNumber, int parent);

    ObjectFile& file_;
    int root_ = 0;
    int count_ = 0;
    int first_ = 0;
    int last_ = 0;
    std::string body_;  ///< Of the last page's bookmark.
};

}  // namespace pdf
