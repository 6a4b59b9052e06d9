#include "desk/components/Registrar.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>

#include "desk/files/Files.h"
#include "desk/json/JsonNode.h"
#include "desk/json/JsonWriter.h"
#include "desk/json/ParsedJson.h"
#include "host/Failure.h"

namespace desk {
namespace {

namespace fs = std::filesystem;

constexpr char kComponents[] = "components";
constexpr char kCategory[] = "category";
constexpr char kClass[] = "class";
constexpr char kFile[] = "file";

[[noreturn]] void Fail(const std::string& sentence) {
    throw host::Failure(host::kFailureUnspecified, "desk::Registry", sentence);
}

// By the XDG base directory rules a relative path in such a variable is ignored.
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

std::vector<ComponentEntry> EntriesOf(const JsonNode& root) {
    const auto text = [](const JsonNode& item, std::string_view key) {
        return std::string(item.Member(key).Text());
    };
    std::vector<ComponentEntry> entries;
    const auto list = root.Member(kComponents);
    list.Each([&](const JsonNode& item) {
        entries.push_back({text(item, kCategory), text(item, kClass), text(item, kFile)});
    });
    return entries;
}

/// Returns the entries in the order of registration; none if the file does not exist.
std::vector<ComponentEntry> ReadComponents(const std::string& file) {
    std::error_code ignored;
    if (!fs::exists(file, ignored)) return {};
    const ParsedJson json(ReadWholeFile(file));
    const std::string damaged = "The list of components \"" + file +
                                "\" is damaged; delete it and install the components again.";
    if (json.Error() != simdjson::SUCCESS) Fail(damaged);
    try {
        const JsonSource source{file, damaged, {}};
        return EntriesOf(JsonNode(json.Root(), source));
    } catch (const host::Failure&) {
        Fail(damaged);
    }
}

/// Replaces the list and creates its folder if needed.
void WriteComponents(const std::string& file, const std::vector<ComponentEntry>& entries) {
    const fs::path folder = fs::path(file).parent_path();
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        Fail("The folder \"" + folder.string() + "\" cannot be made: " + error.message() + ".");
    std::string text;
    JsonWriter writer([&](std::string_view piece) { text += piece; });
    writer.BeginObject();
    writer.Key(kComponents);
    writer.BeginArray();
    for (const auto& entry : entries) {
        writer.NewLine();
        writer.BeginObject();
        writer.Member(kCategory, entry.category);
        writer.Member(kClass, entry.classId);
        writer.Member(kFile, entry.file);
        writer.EndObject();
    }
    writer.EndArray();
    writer.EndObject();
    writer.Finish();
    ReplaceFile(file, text);
}

constexpr std::string_view kForeignEnding = ".dll";
constexpr std::string_view kOwnEnding = ".so";

/// Converts a component's file name to this platform's form.
std::string PlatformName(std::string file) {
    const std::size_t separator = file.find_last_of("\\/");
    if (separator != std::string::npos) file[separator] = '/';
    if (file.ends_with(kForeignEnding))
        file.replace(file.size() - kForeignEnding.size(), kForeignEnding.size(), kOwnEnding);
    return file;
}

void CheckThere(const std::string& file) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored))
        throw host::Failure(host::kFailureNotFound, "desk::Registrar",
                            "The component \"" + file + "\" is not there.");
}

bool SamePlace(const ComponentEntry& a, const ComponentEntry& b) {
    return a.category == b.category && a.classId == b.classId;
}

void Enter(std::vector<ComponentEntry>& entries, const ComponentEntry& entry) {
    const auto same = [&](const ComponentEntry& other) { return SamePlace(other, entry); };
    const auto place = std::ranges::find_if(entries, same);
    if (place == entries.end())
        entries.push_back(entry);
    else
        *place = entry;
}

}  // namespace

std::string ComponentsFile() {
    return (UserDataFolder() / "gazetteer-desk" / "components.json").string();
}

void Registrar::RegisterComponent(const std::string& componentFile,
                                  const host::Ref<host::IHostIdentifier>& classId,
                                  const host::Ref<host::IHostIdentifier>& categoryId,
                                  bool install) {
    const ComponentEntry entry{categoryId->Value(), classId->Value(), PlatformName(componentFile)};
    if (install) CheckThere(entry.file);
    const auto before = ReadComponents(listFile_);
    auto entries = before;
    if (install)
        Enter(entries, entry);
    else
        std::erase_if(entries, [&](const auto& other) { return SamePlace(other, entry); });
    if (entries != before || !fs::exists(listFile_)) WriteComponents(listFile_, entries);
}

std::vector<ComponentEntry> Registrar::Entries(const std::string& category) const {
    auto entries = ReadComponents(listFile_);
    std::erase_if(entries, [&](const auto& entry) { return entry.category != category; });
    return entries;
}

}  // namespace desk
