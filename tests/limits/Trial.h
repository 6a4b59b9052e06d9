#pragma once

#include <string>
#include <vector>

#include "app/Program.h"

namespace tests {

/// What any input whatever must leave: a good page, or one sentence that says why there is none.
/// Runs are limited in memory and processor time, so that a hang or an absurd demand fails.
class Trial {
public:
    Trial();

    Program& TheProgram() { return program_; }

    /// Sets one value of "names.json" in a copy of it, and prints the first page of the copy.
    void SetAndDraw(const std::string& assignment);

    /// Makes an index of a table and looks at its first page. Returns what was told.
    Outcome MakeAndDraw(std::vector<std::string> options);

private:
    void CheckPage(const std::string& document, bool warned);
    void CheckRefusal(const Outcome& outcome, int status, const std::string& named);

    Program program_;
};

}  // namespace tests
