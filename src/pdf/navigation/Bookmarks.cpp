#include "pdf/navigation/Bookmarks.h"

#include "pdf/file/Syntax.h"

namespace pdf {

/// Returns the beginning of a bookmark's dictionary: title, destination and parent.
std::string Bookmarks::Beginning(const Bookmark& bookmark, int page, int parent) {
    file_.Found().CheckText("the title of a bookmark", bookmark.title);
    return "<</Title" + TextString(bookmark.title) + "/Dest[" + Reference(page) + "/XYZ 0 " +
           Number(bookmark.height) + " 0]/Parent " + Reference(parent);
}

void Bookmarks::Add(const Bookmark& page, std::span<const Bookmark> places, int pageNumber) {
    const int number = file_.NewObject();
    if (count_++ == 0) {
        root_ = file_.NewObject();
        first_ = number;
    } else {
        file_.WriteObject(last_, body_ + "/Next " + Reference(number) + ">>");
    }
    body_ = Beginning(page, pageNumber, root_);
    if (last_ != 0) body_ += "/Prev " + Reference(last_);
    if (!places.empty()) body_ += AddPlaces(places, pageNumber, number);
    last_ = number;
}

/// Returns the entries that tell the parent of its places.
std::string Bookmarks::AddPlaces(std::span<const Bookmark> places, int pageNumber, int parent) {
    const int first = file_.NewObject();
    int number = first;
    int before = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        std::string body = Beginning(places[i], pageNumber, parent);
        if (before != 0) body += "/Prev " + Reference(before);
        before = number;
        const bool isLast = i + 1 == places.size();
        if (!isLast) number = file_.NewObject();
        if (!isLast) body += "/Next " + Reference(number);
        file_.WriteObject(before, body + ">>");
    }
    // A negative count: the places are hidden until the user opens the page's bookmark.
    return "/First " + Reference(first) + "/Last " + Reference(number) + "/Count -" +
           std::to_string(places.size());
}

int Bookmarks::Write() {
    if (count_ == 0) return 0;
    file_.WriteObject(last_, body_ + ">>");
    file_.WriteObject(root_, "<</Type/Outlines/Count " + std::to_string(count_) + "/First " +
                                 Reference(first_) + "/Last " + Reference(last_) + ">>");
    return root_;
}

}  // namespace pdf
