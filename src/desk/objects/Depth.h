#pragma once

namespace desk {

/// Maximum nesting of groups and of property sets. It is well within the stack and more than real
/// documents have. Reading, copying and saving share it, so that what was read can be saved.
inline constexpr int kDeepestNesting = 100;

}  // namespace desk
