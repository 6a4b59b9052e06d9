#pragma once

namespace app {

/// Column groups that `make` lays out side by side at most. The layout counts only one of their
/// gaps; with more groups the others would be wider than a group.
inline constexpr int kMostColumnGroups = 16;

}  // namespace app
