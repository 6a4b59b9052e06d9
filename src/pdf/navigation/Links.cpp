#include "pdf/navigation/Links.h"

#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

std::string Corners(const View& view) {
    constexpr int kDecimals = 2;
    return Number(view.left, kDecimals) + ' ' + Number(view.bottom, kDecimals) + ' ' +
           Number(view.right, kDecimals) + ' ' + Number(view.top, kDecimals);
}

std::string Action(const Target& target) {
    if (target.file.empty()) return "<</S/GoTo/D" + TextString(target.name) + ">>";
    // Readers that do not know the text take the bytes as UTF-8.
    return "<</S/GoToR/F<</Type/Filespec/F" + ByteString(target.file) + "/UF" +
           TextString(target.file) + ">>/D[" + std::to_string(target.page) +
           (target.view ? "/FitR " + Corners(*target.view) : std::string("/Fit")) + "]>>";
}

}  // namespace

void Links::Add(int number, const Target& target, const View& place, int key) {
    constexpr int kPrinted = 4;  // The flag Print, without which archives take no annotation.
    std::string link = "<</Type/Annot/Subtype/Link/Rect[" + Corners(place) + "]/Border[0 0 0]/F " +
                       std::to_string(kPrinted) + "/A " + Reference(ActionOf(target)) +
                       "/Contents" + TextString(target.description);
    if (key >= 0) link += "/StructParent " + std::to_string(key);
    file_.WriteObject(number, link + ">>");
    page_.push_back(number);
}

int Links::ActionOf(const Target& target) {
    int& action = actions_[&target];
    if (action == 0) action = file_.WriteObject(Action(target));
    return action;
}

std::string Links::TakePage() {
    if (page_.empty()) return {};
    std::string entries = "/Tabs/S/Annots[";
    for (const int link : page_) entries += Reference(link) + ' ';
    page_.clear();
    return entries + ']';
}

}  // namespace pdf
