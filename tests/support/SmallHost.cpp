#include "support/SmallHost.h"

namespace support {

std::string SmallHost::NewTable(const std::vector<std::string>& fields, std::size_t texts,
                                const Rows& rows) {
    std::vector<texthost::Values> values;
    for (const auto& row : rows) {
        auto& cells = values.emplace_back(row.begin(), row.end());
        for (std::size_t i = texts; i < row.size(); ++i)
            cells[i] = row[i].empty() ? host::Variant(host::Null{}) : std::stoi(row[i]);
    }
    const std::string name = "table " + std::to_string(++tables_);
    Tables().Put(name, std::make_shared<texthost::Table>(fields, values));
    return name;
}

}  // namespace support
