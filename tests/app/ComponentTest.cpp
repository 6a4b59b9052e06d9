#include <cstdlib>
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
    // Told apart from leaks by the whole stack alone: what a library keeps that is unloaded.
    const char* known = std::getenv("LSAN_OPTIONS");
    ::setenv("LSAN_OPTIONS", (known ? known + std::string(":fast_unwind_on_malloc=0") : "").c_str(),
             1);
    for (const bool install : {false, true, true, false, false}) {
        const auto outcome = program.Done({"component", install ? "install" : "uninstall"});
        EXPECT_EQ(outcome.output + outcome.errors, "");
        const auto list =
            nlohmann::json::parse(program.Read("data/gazetteer-desk/components.json"));
        EXPECT_EQ(list["components"].size(), install ? 2U : 0U);
        for (const auto& entry : list["components"]) EXPECT_EQ(entry["file"], GAZETTEER_COMPONENT);
    }
}

#endif

}  // namespace
}  // namespace tests
