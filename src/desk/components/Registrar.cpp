#include "desk/components/Registrar.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

#include "host/Failure.h"

namespace desk {

namespace {

constexpr std::string_view kForeignEnding = ".dll";
constexpr std::string_view kOwnEnding = ".so";

/// The name of this platform for a component's file.
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
    if (entries != before) WriteComponents(listFile_, entries);
}

std::vector<ComponentEntry> Registrar::Entries(const std::string& category) const {
    auto entries = ReadComponents(listFile_);
    std::erase_if(entries, [&](const auto& entry) { return entry.category != category; });
    return entries;
}

}  // namespace desk
