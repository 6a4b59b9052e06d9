#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "pdf/file/ObjectFile.h"
#include "pdf/navigation/Target.h"

namespace pdf {

/// Writes the links of pages.
class Links {
public:
    explicit Links(ObjectFile& file) : file_(file) {}

    /// Adds a link on the current page, as the object of that number. The target must live until
    /// the page ends. The key is that of the link in the parent tree; -1 without structure.
    void Add(int number, const Target& target, const View& place, int key);

    /// Returns the entries of the page's dictionary, empty without links, and begins another page.
    std::string TakePage();

private:
    int ActionOf(const Target& target);

    ObjectFile& file_;
    std::unordered_map<const Target*, int> actions_;  ///< Object numbers.
    std::vector<int> page_;                           ///< Links of the page.
};

}  // namespace pdf
