#include "pdf/structure/ParentTree.h"

#include <algorithm>

#include "pdf/file/Syntax.h"

namespace pdf {
namespace {

/// Entries of a leaf; a reader reads whole leaves.
constexpr std::size_t kLeaf = 64;

}  // namespace

int ParentTree::Add(int element) {
    entries_.push_back(element);
    return NextKey() - 1;
}

int ParentTree::AddPage(const std::vector<int>& elements) {
    const int array = file_.NewObject();
    arrays_.Write(array, AlignedArray("", elements, ""));
    return Add(array);
}

std::string ParentTree::Leaf(std::size_t first, std::size_t end) const {
    std::string leaf =
        "<</Limits[" + std::to_string(first) + ' ' + std::to_string(end - 1) + "]/Nums[";
    for (std::size_t key = first; key < end; ++key)
        leaf += std::to_string(key) + ' ' + Reference(entries_[key]) + ' ';
    return leaf + "]>>";
}

int ParentTree::Write() {
    std::string kids;
    for (std::size_t first = 0; first < entries_.size(); first += kLeaf) {
        const std::size_t end = std::min(first + kLeaf, entries_.size());
        kids += Reference(file_.WriteObject(Leaf(first, end))) + ' ';
    }
    return file_.WriteObject("<</Kids[" + kids + "]>>");
}

}  // namespace pdf
