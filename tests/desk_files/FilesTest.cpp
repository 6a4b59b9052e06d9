#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "desk/files/Files.h"
#include "desk/files/TemporaryName.h"
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

TEST(TemporaryName, GoesWithItsProcess) {
    const TemporaryFolder folder;
    for (const int number : {SIGHUP, SIGINT, SIGTERM, 0}) {
        const pid_t process = ::fork();
        if (process == 0) {
            desk::TemporaryName kept, name;
            kept.Take(folder.Write("kept", ""));
            kept.GiveUp();
            name.Take(folder.Write("a.tmp", ""));
            if (number != 0) ::raise(number);
            name.Remove();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(process, &status, 0);
        EXPECT_EQ(WIFSIGNALED(status) ? WTERMSIG(status) : 0, number);
        EXPECT_FALSE(fs::exists(folder.File("a.tmp"))) << number;
        EXPECT_TRUE(fs::exists(folder.File("kept")));
    }
}

TEST(ReadWholeFile, ReadsWhatHasNoSizeOfItsOwnButHasAnEnd) {
    EXPECT_FALSE(desk::ReadWholeFile("/proc/self/status").empty());
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo(folder.File("pipe").c_str(), 0600), 0);
    for (const std::string& path : {folder.File("pipe"), std::string("/dev/zero")})
        EXPECT_EQ(support::FailureOf([&] { desk::ReadWholeFile(path); }).description,
                  "The file \"" + path + "\" could not be read: it is no ordinary file.");
}

}  // namespace
