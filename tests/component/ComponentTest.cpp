#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <stdlib.h>

#include "desk/components/ComponentLibrary.h"
#include "desk/components/Registrar.h"
#include "host/PropertyPages.h"
#include "manager/ICVNGazetteerManager.h"
#include "support/CategoryInstall.h"
#include "support/Output.h"
#include "support/TestDesk.h"

namespace {

constexpr std::array kClasses{"CVNGazetteer.GazetteerPropertyPage",
                              "CVNGazetteer.CVNGazetteerManager", "CVNGazetteer.CategoryInstall",
                              "CVNGazetteer.CategoryIDs"};

/// A set of objects that the host cannot read.
class BrokenSet final : public host::IHostObjectSet {
public:
    void Reset() override {}
    host::Ref<host::IHostObject> Next() override {
        throw host::Failure(-9, "BrokenSet", "The set is broken.");
    }
};

class Component : public ::testing::Test {
protected:
    template <class T>
    host::Ref<T> Create(const char* className) {
        return host::As<T>(library_.CreateInstance(className, desk_.HostRef()));
    }

    support::TestDesk desk_;
    desk::ComponentLibrary library_{COMPONENT_FILE};
};

TEST_F(Component, CountsItsObjects) {
    EXPECT_TRUE(library_.CanUnload());
    std::vector<host::Ref<host::IHostObject>> objects;
    for (const char* name : kClasses) {
        objects.push_back(library_.CreateInstance(name, desk_.HostRef()));
        EXPECT_FALSE(library_.CanUnload()) << name;
    }
    objects.resize(1);
    EXPECT_FALSE(library_.CanUnload());
    objects.clear();
    EXPECT_TRUE(library_.CanUnload());
    EXPECT_THROW(library_.CreateInstance("CVNGazetteer.Nothing", desk_.HostRef()), host::Failure);
    EXPECT_TRUE(library_.CanUnload());
}

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

TEST_F(Component, CatchesFailuresOfTheHost) {
    const auto page = Create<host::IComPropertyPage>("CVNGazetteer.GazetteerPropertyPage");
    EXPECT_FALSE(page->Applies(std::make_shared<BrokenSet>()));
    ASSERT_EQ(desk_.Dialogs().messages.size(), 1U);
    EXPECT_EQ(desk_.Dialogs().LastCause(), "The set is broken.");
    EXPECT_NE(desk_.Dialogs().messages[0].text.find("\t-9\r\n"), std::string::npos);
}

TEST_F(Component, EntersItsOwnFileWithTheDesk) {
    const support::TemporaryFolder data;
    ::setenv("XDG_DATA_HOME", data.Path().c_str(), 1);
    const desk::Registrar registrar(desk::ComponentsFile());
    library_.Register(desk_.HostRef(), true);
    const auto entries = registrar.Entries(host::kElementPropertyPages);
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].file, COMPONENT_FILE);
    EXPECT_TRUE(Create<host::IComPropertyPage>(entries[0].classId.c_str()));
    library_.Register(desk_.HostRef(), false);
    EXPECT_TRUE(registrar.Entries(host::kElementPropertyPages).empty());

    const auto installer = Create<gazetteer::ICategoryInstall>("CVNGazetteer.CategoryInstall");
    data.Write("gazetteer-desk/components.json", "{");
    EXPECT_THROW(library_.Register(desk_.HostRef(), true), host::Failure);
    EXPECT_EQ(installer->Install(true), host::kFailureUnspecified);
    EXPECT_EQ(installer->ErrorMessage(),
              "The list of components \"" + desk::ComponentsFile() +
                  "\" is damaged; delete it and install the components again.");
    EXPECT_TRUE(desk_.Dialogs().messages.empty());
    std::filesystem::remove(desk::ComponentsFile());
    EXPECT_EQ(installer->Install(true), 0);
    EXPECT_EQ(installer->ErrorMessage(), "") << "the last failure only";
    EXPECT_EQ(registrar.Entries(host::kElementPropertyPages), entries);
    ::unsetenv("XDG_DATA_HOME");
}

TEST(ComponentFile, ShowsItsEntryPointsAlone) {
    const auto names =
        support::Output("nm -D --defined-only '" COMPONENT_FILE "' | cut -d ' ' -f 3");
    EXPECT_EQ(names,
              "ComponentCanUnload\nComponentCreateClassObject\nComponentRegister\n"
              "ComponentUnregister\n");
}

}  // namespace
