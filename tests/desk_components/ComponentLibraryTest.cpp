#include <dlfcn.h>
#include <functional>
#include <gtest/gtest.h>

#include "desk/components/ComponentLibrary.h"
#include "host/Failure.h"
#include "support/TemporaryFolder.h"

namespace {

bool IsLoaded() {
    void* const handle = ::dlopen(SMALL_COMPONENT, RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) ::dlclose(handle);
    return handle != nullptr;
}

std::string Cause(const std::function<void()>& work) {
    try {
        work();
    } catch (const host::Failure& failure) {
        return failure.cause;
    }
    return "no failure";
}

TEST(ComponentLibrary, StaysLoadedAsLongAsAnythingOfItIsUsed) {
    EXPECT_FALSE(IsLoaded());
    host::Ref<host::IHostObject> object;
    {
        const desk::ComponentLibrary library(SMALL_COMPONENT);
        EXPECT_TRUE(library.CanUnload());
        object = library.CreateInstance("Small.Class", nullptr);
        EXPECT_FALSE(library.CanUnload());
    }
    EXPECT_TRUE(IsLoaded());
    object.reset();
    EXPECT_FALSE(IsLoaded());
}

TEST(ComponentLibrary, SaysWhatIsWrong) {
    const support::TemporaryFolder folder;
    const auto text = folder.Write("text.so", "no library");
    const auto load = [](const std::string& file) { desk::ComponentLibrary{file}; };
    const desk::ComponentLibrary library(SMALL_COMPONENT);
    EXPECT_EQ(Cause([&] { load(folder.File("gone.so")); }),
              "The component library \"" + folder.File("gone.so") + "\" is not there.");
    EXPECT_NE(Cause([&] { load(text); }).find("cannot be loaded: " + text), std::string::npos);
    EXPECT_NE(Cause([&] { load(folder.Path()); }).find("cannot be loaded"), std::string::npos);
    EXPECT_NE(Cause([&] { load(NO_COMPONENT); }).find("no entry point \"Component"),
              std::string::npos);
    EXPECT_NE(Cause([&] {
                  library.CreateInstance("Big.Class", nullptr);
              }).find("has no class \"Big.Class\"."),
              std::string::npos);
    EXPECT_EQ(Cause([&] { library.Register(nullptr, true); }), "It will not be entered.");
    EXPECT_EQ(Cause([&] { library.Register(nullptr, false); }), "no failure");
}

}  // namespace
