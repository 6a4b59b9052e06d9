#pragma once

#include <string>
#include <vector>

#include "pdf/color/Color.h"
#include "pdf/file/ObjectFile.h"

namespace pdf {

/// The spot colours of a file. Each name has one definition: what stands in for it on process
/// plates.
class SpotColors {
public:
    /// Name of the ink that prints on all plates.
    static constexpr char kAllPlates[] = "All";

    /// Returns the number of a spot colour in the pages' resources. One that was used before must
    /// have the same definition; otherwise Write throws. What is not told can be told later.
    int Use(const std::string& name, const Cmyk& process, bool isTold);

    /// Writes the definitions. Returns the entries of the pages' colour spaces: "/S0 5 0 R".
    /// Throws Error if a name has two definitions.
    std::string Write(ObjectFile& file) const;

private:
    struct Spot {
        std::string name;
        Cmyk process;
        bool isTold = false;
        std::string conflict;  ///< The other definition; empty: there is none.
    };

    std::vector<Spot> spots_;
};

}  // namespace pdf
