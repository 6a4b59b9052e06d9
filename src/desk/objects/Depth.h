#pragma once

namespace desk {

/// How deep groups, and property sets, may stand inside one another. Keeps clear of the stack's
/// end; nothing real nests so deep. Reading, copying and saving have the same limit, so that what
/// was read can be saved.
inline constexpr int kDeepestNesting = 100;

}  // namespace desk
