#include "desk/components/Registry.h"

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string_view>
#include <system_error>

#include "desk/files/Files.h"
#include "host/Failure.h"

namespace desk {

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

constexpr char kComponents[] = "components";
constexpr char kCategory[] = "category";
constexpr char kClass[] = "class";
constexpr char kFile[] = "file";

[[noreturn]] void Fail(const std::string& sentence) {
    throw host::Failure(host::kFailureUnspecified, "desk::Registry", sentence);
}

// By the rules for that variable, a path that is not absolute counts as none.
fs::path FolderFrom(const char* variable) {
    const char* const value = std::getenv(variable);
    const fs::path folder = value == nullptr ? "" : value;
    return folder.is_absolute() ? folder : fs::path();
}

fs::path UserDataFolder() {
    if (auto folder = FolderFrom("XDG_DATA_HOME"); !folder.empty()) return folder;
    const auto home = FolderFrom("HOME");
    if (home.empty())
        Fail(
            "The user's data folder is not known, since neither XDG_DATA_HOME nor HOME names one.");
    return home / ".local/share";
}

std::vector<ComponentEntry> EntriesOf(const Json& list) {
    std::vector<ComponentEntry> entries;
    for (const auto& item : list.at(kComponents).get_ref<const Json::array_t&>())
        entries.push_back({item.at(kCategory), item.at(kClass), item.at(kFile)});
    return entries;
}

}  // namespace

std::string ComponentsFile() {
    return (UserDataFolder() / "gazetteer-desk" / "components.json").string();
}

std::vector<ComponentEntry> ReadComponents(const std::string& file) {
    std::error_code ignored;
    if (!fs::exists(file, ignored)) return {};
    const std::string text = ReadWholeFile(file);
    try {
        return EntriesOf(Json::parse(text));
    } catch (const Json::exception&) {
        Fail("The list of components \"" + file +
             "\" is damaged; delete it and install the components again.");
    }
}

void WriteComponents(const std::string& file, const std::vector<ComponentEntry>& entries) {
    const fs::path folder = fs::path(file).parent_path();
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        Fail("The folder \"" + folder.string() + "\" cannot be made: " + error.message() + ".");
    Json list = Json::array();
    for (const auto& entry : entries)
        list.push_back({{kCategory, entry.category}, {kClass, entry.classId}, {kFile, entry.file}});
    ReplaceFile(file, Json{{kComponents, list}}.dump(2) + '\n');
}

}  // namespace desk
