#include <dlfcn.h>
#include <gtest/gtest.h>

#include "desk/components/ComponentLibrary.h"
#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"

namespace {

using support::FailureOf;

bool IsLoaded() {
    void* const handle = ::dlopen(SMALL_COMPONENT, RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) ::dlclose(handle);
    return handle != nullptr;
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
    const std::pair<std::string, std::string> files[] = {
        {folder.File("gone.so"),
         "The component library \"" + folder.File("gone.so") + "\" is not there."},
        {text, "cannot be loaded: " + text},
        {folder.Path(), "cannot be loaded"},
        {NO_COMPONENT, "no entry point \"Component"}};
    for (const auto& [file, words] : files) {
        const auto cause = FailureOf([&, &name = file] { desk::ComponentLibrary{name}; }).cause;
        EXPECT_NE(cause.find(words), std::string::npos) << file << "\n" << cause;
    }
    const desk::ComponentLibrary library(SMALL_COMPONENT);
    const auto noClass = FailureOf([&] { library.CreateInstance("Big.Class", nullptr); }).cause;
    EXPECT_NE(noClass.find("has no class \"Big.Class\"."), std::string::npos) << noClass;
    EXPECT_EQ(FailureOf([&] { library.Register(nullptr, true); }).cause, "It will not be entered.");
    EXPECT_NO_THROW(library.Register(nullptr, false));
}

}  // namespace
