#pragma once

#include <string>
#include <vector>

#include "app/Program.h"
#include "gis_locate/Layers.h"

namespace tests {

using TableRows = std::vector<std::vector<std::string>>;

/// The program in a folder of its own, with layers and the rows that it makes of them.
class GisProgram : public Program {
public:
    using Program::Write;
    void Write(const std::string& file, const Layer& layer) const { WriteLayer(File(file), layer); }
    /// Runs `locate` with CSV as its output, which must succeed; returns the rows with the names
    /// of the fields as the first one.
    TableRows Locate(std::vector<std::string> arguments) const;
    /// As Locate; returns what it told.
    Outcome LocateOutcome(std::vector<std::string> arguments) const;
    /// Reads a table without quotes.
    TableRows ReadCsv(const std::string& file) const;
};

}  // namespace tests
