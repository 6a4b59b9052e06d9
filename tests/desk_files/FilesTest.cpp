#include <csignal>
#include <cstddef>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/resource.h>
#include <sys/stat.h>

#include "desk/files/Files.h"
#include "host/Failure.h"
#include "support/TemporaryFolder.h"

namespace {

using support::TemporaryFolder;

namespace fs = std::filesystem;

std::ptrdiff_t FileCount(const TemporaryFolder& folder) {
    return std::distance(fs::directory_iterator(folder.Path()), fs::directory_iterator());
}

std::string FailureOf(const std::string& path, const std::string& content) {
    try {
        desk::ReplaceFile(path, content);
    } catch (const host::Failure& failure) {
        EXPECT_EQ(failure.Fact("file"), path);
        return failure.description;
    }
    return "no failure";
}

/// Makes every file of this process end at a size, as a full disk would.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes) {
        ::getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit small{bytes, old_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &small);
        oldHandler_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    ~SmallDisk() {
        ::setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, oldHandler_);
    }

private:
    rlimit old_{};
    void (*oldHandler_)(int) = nullptr;
};

TEST(ReplaceFile, KeepsPermissionsAndLeavesNothingBeside) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.json", "old");
    fs::permissions(path, fs::perms(0640));
    desk::ReplaceFile(path, "new");
    EXPECT_EQ(desk::ReadWholeFile(path), "new");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0640));
    EXPECT_EQ(FileCount(folder), 1);
}

TEST(ReplaceFile, GivesNewFilesTheUsersPermissions) {
    const TemporaryFolder folder;
    const mode_t old = ::umask(027);
    desk::ReplaceFile(folder.File("a.json"), "new");
    ::umask(old);
    EXPECT_EQ(fs::status(folder.File("a.json")).permissions(), fs::perms(0640));
}

TEST(ReplaceFile, WritesThroughALink) {
    const TemporaryFolder folder;
    const auto real = folder.Write("real.json", "old");
    fs::create_symlink("real.json", folder.File("link.json"));
    fs::create_symlink("link.json", folder.File("second.json"));
    desk::ReplaceFile(folder.File("second.json"), "new");
    EXPECT_TRUE(fs::is_symlink(folder.File("link.json")));
    EXPECT_TRUE(fs::is_symlink(folder.File("second.json")));
    EXPECT_EQ(desk::ReadWholeFile(real), "new");
}

TEST(ReplaceFile, LeavesTheOldFileWhenTheDiskIsFull) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.json", "old");
    std::string description;
    {
        const SmallDisk disk(1000);
        description = FailureOf(path, std::string(5000, 'x'));
    }
    EXPECT_EQ(description, "The file \"" + path + "\" cannot be written: File too large.");
    EXPECT_EQ(desk::ReadWholeFile(folder.File("a.json")), "old");
    EXPECT_EQ(FileCount(folder), 1);
}

TEST(ReplaceFile, SaysWhyAPlaceCannotBeWritten) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("sub"));
    folder.Write("plain", "");
    fs::create_symlink("loop", folder.File("loop"));
    const std::pair<const char*, const char*> cases[] = {
        {"missing/a.json", "No such file or directory."},
        {"sub", "it is a folder."},
        {"plain/a.json", "Not a directory."},
        {"loop", "symbolic links"},
        {"../../../../../../../../dev/null", "it is no ordinary file."}};
    for (const auto& [name, reason] : cases) {
        SCOPED_TRACE(name);
        EXPECT_NE(FailureOf(folder.File(name), "x").find(reason), std::string::npos)
            << FailureOf(folder.File(name), "x");
    }
    EXPECT_EQ(FileCount(folder), 3);
}

TEST(ReadWholeFile, ReadsWhatHasNoSizeOfItsOwn) {
    EXPECT_FALSE(desk::ReadWholeFile("/proc/self/status").empty());
}

}  // namespace
