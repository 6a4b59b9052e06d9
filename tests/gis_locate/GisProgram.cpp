#include "gis_locate/GisProgram.h"

#include <sstream>

namespace tests {

Outcome GisProgram::LocateOutcome(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "locate");
    arguments.insert(arguments.end(), {"-o", "located.csv", "--force"});
    return Done(std::move(arguments));
}

TableRows GisProgram::Locate(std::vector<std::string> arguments) const {
    LocateOutcome(std::move(arguments));
    return ReadCsv("located.csv");
}

TableRows GisProgram::ReadCsv(const std::string& file) const {
    TableRows rows;
    std::istringstream text(Read(file));
    for (std::string line; std::getline(text, line);) {
        rows.emplace_back();
        for (std::size_t at = 0; at <= line.size();) {
            const auto comma = std::min(line.find(',', at), line.size());
            rows.back().push_back(line.substr(at, comma - at));
            at = comma + 1;
        }
    }
    return rows;
}

}  // namespace tests
