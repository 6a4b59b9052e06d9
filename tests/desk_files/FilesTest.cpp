#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>

#include "desk/files/Files.h"
#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"

namespace {

using support::TemporaryFolder;

namespace fs = std::filesystem;

TEST(ReplaceFile, KeepsPermissionsAndLeavesNothingBeside) {
    const TemporaryFolder folder;
    const auto path = folder.Write("a.json", "old");
    fs::permissions(path, fs::perms(0604));
    const mode_t old = ::umask(027);
    desk::ReplaceFile(path, "new");
    desk::ReplaceFile(folder.File("b.json"), "new");
    ::umask(old);
    EXPECT_EQ(desk::ReadWholeFile(path), "new");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0604));
    EXPECT_EQ(fs::status(folder.File("b.json")).permissions(), fs::perms(0640));
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 2);
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
        const std::string path = folder.File(name);
        const auto failure = support::FailureOf([&] { desk::ReplaceFile(path, "x"); });
        EXPECT_NE(failure.description.find(reason), std::string::npos) << failure.description;
        EXPECT_EQ(failure.Fact("file"), path);
    }
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 3);
}

TEST(ReadWholeFile, ReadsWhatHasNoSizeOfItsOwn) {
    EXPECT_FALSE(desk::ReadWholeFile("/proc/self/status").empty());
}

}  // namespace
