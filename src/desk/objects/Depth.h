#pragma once

namespace desk {

/// How deep groups, and property sets, may be nested: well within the stack, and more than real
/// documents have. Reading, copying and saving have the same limit, so that what was read can be
/// saved.
inline constexpr int kDeepestNesting = 100;

}  // namespace desk
