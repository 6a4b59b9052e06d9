#pragma once

namespace app {

/// Runs the command that the arguments tell. Answers the exit status: 0 done, 1 it could not be
/// done, 2 wrong usage; in the last two cases one sentence stands on standard error.
int Run(int argc, const char* const* argv);

}  // namespace app
