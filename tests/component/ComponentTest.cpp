#include <dlfcn.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <stdlib.h>

#include "desk/components/ComponentLibrary.h"
#include "desk/components/Registrar.h"
#include "host/PropertyPages.h"
#include "manager/ICVNGazetteerManager.h"
#include "support/CategoryInstall.h"
#include "support/FailureOf.h"
#include "support/Output.h"
#include "support/TestDesk.h"

namespace {

using support::FailureOf;

class Component : public ::testing::Test {
protected:
    template <class T>
    host::Ref<T> Create(const char* className) {
        return host::As<T>(library_.CreateInstance(className, desk_.HostRef()));
    }

    support::TestDesk desk_;
    desk::ComponentLibrary library_{COMPONENT_FILE};
};

// Kinds of objects are told across the border in both directions.
TEST_F(Component, MakesAManagerThatDrawsTheHostsElements) {
    const auto manager =
        Create<gazetteer::ICVNGazetteerManager>("CVNGazetteer.CVNGazetteerManager");
    ASSERT_TRUE(manager);
    const auto element =
        desk_.NewGazetteer(desk_.ListingTable({{"Abbey Road", "4"}, {"Main St", "6"}}), 4, 3);
    manager->SetIndexElement(element);
    EXPECT_TRUE(desk_.Dialogs().messages.empty()) << desk_.Dialogs().LastCause();
    EXPECT_EQ(manager->PageName(1), host::Variant(std::string(" Abbey Road -  Main St")));
    manager->SetIndexToPageNumber(1);
    EXPECT_EQ(desk_.Members(*element, "ROWGROUP").size(), 2U);
}

// A failure of the host is caught on the other side of the border.
TEST_F(Component, EntersItsOwnFileWithTheDesk) {
    const support::TemporaryFolder data;
    ::setenv("XDG_DATA_HOME", data.Path().c_str(), 1);
    const desk::Registrar registrar(desk::ComponentsFile());
    library_.Register(desk_.HostRef(), true);
    const auto entries = registrar.Entries(host::kElementPropertyPages);
    std::vector<std::string> pages;
    for (const auto& entry : entries) {
        EXPECT_EQ(entry.file, COMPONENT_FILE);
        pages.push_back(entry.classId);
        EXPECT_TRUE(Create<host::IComPropertyPage>(entry.classId.c_str())) << entry.classId;
    }
    EXPECT_EQ(pages, (std::vector<std::string>{"CVNGazetteer.GazetteerPropertyPage",
                                               "CVNGazetteer.TypesettingPropertyPage"}));

    const auto installer = Create<gazetteer::ICategoryInstall>("CVNGazetteer.CategoryInstall");
    data.Write("gazetteer-desk/components.json", "{");
    const std::string damaged = "The list of components \"" + desk::ComponentsFile() +
                                "\" is damaged; delete it and install the components again.";
    EXPECT_EQ(FailureOf([&] { library_.Register(desk_.HostRef(), true); }).cause, damaged);
    EXPECT_EQ(installer->Install(true), host::kFailureUnspecified);
    EXPECT_EQ(installer->ErrorMessage(), damaged);
    EXPECT_TRUE(desk_.Dialogs().messages.empty());
    std::filesystem::remove(desk::ComponentsFile());
    EXPECT_EQ(installer->Install(true), 0);
    EXPECT_EQ(installer->ErrorMessage(), "") << "the last failure only";
    EXPECT_EQ(registrar.Entries(host::kElementPropertyPages), entries);
    EXPECT_EQ(installer->Install(false), 0);
    EXPECT_TRUE(registrar.Entries(host::kElementPropertyPages).empty());
    ::unsetenv("XDG_DATA_HOME");
}

bool IsLoaded() {
    void* const handle = ::dlopen(COMPONENT_FILE, RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) ::dlclose(handle);
    return handle != nullptr;
}

TEST(ComponentFile, StaysLoadedAsLongAsAnythingOfItIsUsed) {
    support::TestDesk desk;
    host::Ref<host::IHostObject> object;
    for (const char* name :
         {"CVNGazetteer.GazetteerPropertyPage", "CVNGazetteer.TypesettingPropertyPage",
          "CVNGazetteer.CVNGazetteerManager", "CVNGazetteer.CategoryInstall",
          "CVNGazetteer.CategoryIDs"}) {
        EXPECT_FALSE(IsLoaded());
        {
            const desk::ComponentLibrary library(COMPONENT_FILE);
            EXPECT_TRUE(library.CanUnload());
            object = library.CreateInstance(name, desk.HostRef());
            EXPECT_FALSE(library.CanUnload()) << name;
        }
        EXPECT_TRUE(IsLoaded()) << name;
        object.reset();
    }
    EXPECT_FALSE(IsLoaded());
}

TEST(ComponentFile, ThatIsNoneIsRefused) {
    const support::TemporaryFolder folder;
    const auto text = folder.Write("text.so", "no library");
    Dl_info other{};
    ::dladdr(::dlsym(RTLD_DEFAULT, "getenv"), &other);
    const std::pair<std::string, std::string> files[] = {
        {folder.File("gone.so"),
         "The component library \"" + folder.File("gone.so") + "\" is not there."},
        {text, "cannot be loaded: " + text},
        {other.dli_fname, "no entry point \"Component"}};
    for (const auto& [file, words] : files) {
        const auto cause = FailureOf([&, &name = file] { desk::ComponentLibrary{name}; }).cause;
        EXPECT_NE(cause.find(words), std::string::npos) << file << "\n" << cause;
    }
    const desk::ComponentLibrary library(COMPONENT_FILE);
    const auto cause = FailureOf([&] { library.CreateInstance("Big.Class", nullptr); }).cause;
    EXPECT_NE(cause.find("has no class \"Big.Class\"."), std::string::npos) << cause;
}

TEST(ComponentFile, ShowsItsEntryPointsAlone) {
    const auto names = support::Output("nm -D --defined-only --extern-only '" COMPONENT_FILE
                                       "' | cut -d ' ' -f 3");
    EXPECT_EQ(names,
              "ComponentCanUnload\nComponentCreateClassObject\nComponentRegister\n"
              "ComponentUnregister\n");
}

}  // namespace
