#pragma once

#include <fstream>
#include <string>
#include <vector>

namespace support {

/// The 200 towns of tests/data/names in a language, such as "cs", in no order.
inline std::vector<std::string> NamesOf(const std::string& language) {
    std::ifstream file(std::string(GAZETTEER_SOURCE_DIR "/tests/data/names/") + language + ".txt");
    std::vector<std::string> names;
    for (std::string line; std::getline(file, line);) names.push_back(line);
    return names;
}

}  // namespace support
