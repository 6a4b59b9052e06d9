#include "ListingTable.h"

#include <algorithm>
#include <random>
#include <set>
#include <vector>

#include "support/DbfBuilder.h"

namespace bench {
namespace {

// Uses the raw output of the generator: std distributions differ between implementations.
class Dice {
public:
    std::size_t Below(std::size_t limit) { return engine_() % limit; }
    template <std::size_t N>
    const char* Of(const char* const (&words)[N]) {
        return words[Below(N)];
    }

private:
    std::mt19937_64 engine_{20240229};
};

std::string PlaceName(Dice& dice) {
    // In windows-1252.
    static const char* const kFirst[] = {
        "Abbey",   "Acorn", "Alder",  "Amber",   "Badger",  "Birch",  "Cedar",   "Copper",
        "Dogwood", "Eagle", "Elm",    "Falcon",  "Glen",    "Hazel",  "Juniper", "Kent",
        "Lake",    "Maple", "North",  "Orchard", "Pine",    "Quail",  "Raven",   "Silver",
        "Tulip",   "Union", "Walnut", "York",    "Caf\351", "Pe\361a"};
    static const char* const kSecond[] = {
        "bank", "brook", "burn", "cliff", "croft", "dale",  "field", "ford", "gate", "grove", "ham",
        "hill", "land",  "mere", "mill",  "point", "ridge", "stone", "ton",  "view", "wood"};
    static const char* const kType[] = {"St",  "Ave", "Rd",  "Dr",   "Ln",   "Ct",
                                        "Way", "Pl",  "Ter", "Blvd", "Loop", "Park"};
    static const char* const kNumbered[] = {"AVE ", "County Rd ", "State Hwy ", "FM "};
    const auto number = [&](std::size_t limit) { return std::to_string(1 + dice.Below(limit)); };
    switch (dice.Below(20)) {
        case 0:
            return dice.Of(kNumbered) + number(9999);
        case 1:
            return number(400) + "th " + dice.Of(kType) + ' ' + dice.Of(kFirst);
        default:
            break;
    }
    std::string name = std::string(dice.Of(kFirst)) + dice.Of(kSecond);
    if (dice.Below(3) == 0) name = std::string(dice.Of(kFirst)) + ' ' + name;
    return name + ' ' + dice.Of(kType) + (dice.Below(2) == 0 ? "" : ' ' + number(99));
}

using Record = std::vector<std::string>;

void AddFeature(Dice& dice, const std::string& name, std::vector<Record>& records) {
    const std::size_t chance = dice.Below(100);
    const std::size_t references = chance < 60 ? 1 : chance < 85 ? 2 : chance < 95 ? 3 : 4;
    std::size_t page = 1 + dice.Below(400);
    const std::string row(1, static_cast<char>('A' + dice.Below(10)));
    for (std::size_t i = 0; i < references; ++i, page += 1 + dice.Below(3))
        records.push_back({name, std::to_string(page), row, std::to_string(1 + dice.Below(12))});
}

}  // namespace

void WriteListingTable(const std::string& path, std::size_t count) {
    Dice dice;
    std::set<std::string> names;
    std::vector<Record> records;
    while (records.size() < count - count * 12 / 100) {
        const std::string name = PlaceName(dice);
        if (names.insert(name).second) AddFeature(dice, name, records);
    }
    const std::size_t distinct = records.size();
    while (records.size() < count) records.push_back(records[dice.Below(distinct)]);
    records.resize(count);
    for (std::size_t i = records.size(); i > 1; --i)
        std::swap(records[i - 1], records[dice.Below(i)]);

    support::DbfBuilder table(
        {{"LISTING", 'C', 40}, {"PAGE", 'N', 4}, {"ROW", 'C', 2}, {"COLUMN", 'N', 2}});
    table.LanguageDriver(0x57);
    for (const Record& record : records) table.Row(record);
    table.Write(path);
}

}  // namespace bench
