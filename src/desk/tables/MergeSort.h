#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace desk {

/// Merges runs of doubling length. Every step moves one item, so that no answer can lead astray.
template <class Item, class GoesAfter>
void MergeSort(std::vector<Item>& items, const GoesAfter& goesAfter) {
    std::vector<Item> merged(items.size());
    for (std::size_t width = 1; width < items.size(); width *= 2) {
        for (std::size_t start = 0; start < items.size(); start += 2 * width) {
            const std::size_t middle = std::min(start + width, items.size());
            const std::size_t end = std::min(start + 2 * width, items.size());
            std::size_t left = start, right = middle, to = start;
            // Runs that follow each other already are most of a table that comes in order.
            const bool inOrder = right >= end || !goesAfter(items[middle - 1], items[middle]);
            while (!inOrder && left < middle && right < end)
                merged[to++] =
                    goesAfter(items[left], items[right]) ? items[right++] : items[left++];
            while (left < middle) merged[to++] = items[left++];
            while (right < end) merged[to++] = items[right++];
        }
        items.swap(merged);
    }
}

}  // namespace desk
