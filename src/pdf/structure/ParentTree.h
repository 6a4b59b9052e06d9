#pragma once

#include <string>
#include <vector>

#include "pdf/file/ObjectRows.h"

namespace pdf {

/// Leads from the content of pages back to the elements of the structure.
class ParentTree {
public:
    ParentTree(ObjectFile& file, ObjectRows& arrays) : file_(file), arrays_(arrays) {}

    /// Adds the element that owns an object. Returns the object's key.
    int Add(int element);
    /// Adds the elements that own a page's marked content, by its numbers. Returns the page's key.
    int AddPage(const std::vector<int>& elements);

    /// Writes the tree and returns its object number.
    int Write();

    /// The key that the next entry gets.
    int NextKey() const { return static_cast<int>(entries_.size()); }

private:
    std::string Leaf(std::size_t first, std::size_t end) const;

    ObjectFile& file_;
    ObjectRows& arrays_;
    std::vector<int> entries_;  ///< Object numbers by key.
};

}  // namespace pdf
