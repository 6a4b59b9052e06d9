#include <gtest/gtest.h>

#include "app/Program.h"

namespace tests {
namespace {

TEST(Component, IsLookedForBesideTheProgram) {
    const Program program;
    const std::string copy =
        "mkdir -p bin; cp '" GAZETTEER_PROGRAM "' bin; bin/gazetteer component ";
    for (const char* way : {"install", "uninstall"})
        EXPECT_EQ(program.Shell(copy + way + " 2>&1; echo $?"),
                  "gazetteer: The component library \"" +
                      program.File("lib/gazetteer/libCVNGazetteer.so") +
                      "\" is not there; it is built and installed together with the window part "
                      "of the program.\n1\n");
}

TEST(Component, IsNotNeededByTheProgramItself) {
    const auto libraries = Program().Shell("ldd '" GAZETTEER_PROGRAM "'");
    EXPECT_TRUE(Contains(libraries, "libcairo"));
    EXPECT_FALSE(Contains(libraries, "Qt"));
    EXPECT_FALSE(Contains(libraries, "CVNGazetteer"));
}

#ifdef GAZETTEER_COMPONENT

TEST(Component, IsEnteredAndTakenOut) {
    const Program program;
    const auto list = [&] {
        const auto bytes = program.Bytes("data/gazetteer-desk/components.json");
        return nlohmann::json::parse(bytes)["components"];
    };
    program.Done({"component", "uninstall"});
    EXPECT_FALSE(program.Exists("data"));
    for (int twice = 0; twice < 2; ++twice) {
        const auto outcome = program.Done({"component", "install"});
        EXPECT_EQ(outcome.output + outcome.errors, "");
        ASSERT_EQ(list().size(), 1U);
        EXPECT_EQ(list()[0]["file"], GAZETTEER_COMPONENT);
    }
    for (int twice = 0; twice < 2; ++twice) {
        program.Done({"component", "uninstall"});
        EXPECT_EQ(list().size(), 0U);
    }
}

#endif

}  // namespace
}  // namespace tests
