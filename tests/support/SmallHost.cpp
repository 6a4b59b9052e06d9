#include "support/SmallHost.h"

namespace support {
namespace {

host::Variant Number(const std::string& text) {
    const bool isNumber =
        !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
    if (isNumber) return std::stoi(text);
    return host::Null{};
}

}  // namespace

std::string SmallHost::ListingTable(const Rows& rows) {
    std::vector<texthost::Values> values;
    for (const auto& row : rows) values.push_back({row[0], row[1], Number(row[1])});
    return Put({"Listing", "Ref", "Page"}, values);
}

std::string SmallHost::GridTable(const Rows& rows) {
    std::vector<texthost::Values> values;
    for (const auto& row : rows)
        values.push_back({row[0], Number(row[1]), Number(row[2]), Number(row[3])});
    return Put({"Listing", "Page", "Row", "Column"}, values);
}

std::string SmallHost::Put(const std::vector<std::string>& fields,
                           const std::vector<texthost::Values>& rows) {
    const std::string name = "table " + std::to_string(++tables_);
    Tables().Put(name, std::make_shared<texthost::Table>(fields, rows));
    return name;
}

}  // namespace support
