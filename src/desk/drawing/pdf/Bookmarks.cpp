#include "desk/drawing/pdf/Bookmarks.h"

#include "desk/drawing/pdf/Numbers.h"
#include "desk/drawing/pdf/Strings.h"

namespace desk::pdf {

void Bookmarks::Add(const std::string& title, int page, double height) {
    const int number = file_.NewObject();
    if (count_++ == 0) {
        root_ = file_.NewObject();
        first_ = number;
    } else {
        WriteLast(number);
    }
    body_ = "<</Title";
    AppendTextString(body_, title);
    body_ += "/Dest[";
    AppendReference(body_, page);
    body_ += "/XYZ 0 ";
    AppendNumber(body_, height);
    body_ += " 0]/Parent ";
    AppendReference(body_, root_);
    if (last_ != 0) {
        body_ += "/Prev ";
        AppendReference(body_, last_);
    }
    last_ = number;
}

void Bookmarks::WriteLast(int next) {
    if (next != 0) {
        body_ += "/Next ";
        AppendReference(body_, next);
    }
    file_.WriteObject(last_, body_ + ">>");
}

int Bookmarks::Write() {
    if (count_ == 0) return 0;
    WriteLast(0);
    std::string body = "<</Type/Outlines/Count ";
    AppendInteger(body, count_);
    body += "/First ";
    AppendReference(body, first_);
    body += "/Last ";
    AppendReference(body, last_);
    file_.WriteObject(root_, body + ">>");
    return root_;
}

}  // namespace desk::pdf
