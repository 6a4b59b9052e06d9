#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <stdlib.h>

#include "desk/components/ComponentLibrary.h"
#include "desk/components/Registrar.h"
#include "host/PropertyPages.h"
#include "manager/ICVNGazetteerManager.h"
#include "support/CategoryIDs.h"
#include "support/CategoryInstall.h"
#include "support/TestDesk.h"

namespace {

constexpr std::array kClasses{"CVNGazetteer.GazetteerPropertyPage",
                              "CVNGazetteer.CVNGazetteerManager", "CVNGazetteer.CategoryInstall",
                              "CVNGazetteer.CategoryIDs"};

/// The objects of a sheet; fails at the end where it is told to.
class Objects final : public host::IHostObjectSet {
public:
    using List = std::vector<host::Ref<host::IHostObject>>;

    explicit Objects(List objects, bool failing = false)
        : objects_(std::move(objects)), failing_(failing) {}

    void Reset() override { next_ = 0; }
    host::Ref<host::IHostObject> Next() override {
        if (next_ < objects_.size()) return objects_[next_++];
        if (failing_) throw host::Failure(-9, "Objects", "The set is broken.");
        return nullptr;
    }

private:
    List objects_;
    bool failing_;
    std::size_t next_ = 0;
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
    objects.erase(objects.begin() + 1, objects.end());
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
    EXPECT_EQ(manager->PageCount(), host::Variant(1));
    EXPECT_EQ(manager->PageName(1), host::Variant(std::string(" Abbey Road -  Main St")));
    manager->SetIndexToPageNumber(1);
    EXPECT_EQ(desk_.Members(*element, "ROWGROUP").size(), 2U);
}

TEST_F(Component, MakesAPageForElementsWithAGazetteer) {
    const auto page = Create<host::IComPropertyPage>("CVNGazetteer.GazetteerPropertyPage");
    ASSERT_TRUE(page);
    const auto plain = desk_.Host().NewGroupElement();
    const auto gazetteer = desk_.NewGazetteer(desk_.ListingTable({{"Main St", "6"}}), 4, 3);
    EXPECT_FALSE(page->Applies(std::make_shared<Objects>(Objects::List{plain})));
    EXPECT_TRUE(page->Applies(std::make_shared<Objects>(Objects::List{plain, gazetteer})));
    EXPECT_TRUE(desk_.Dialogs().messages.empty());
}

TEST_F(Component, CatchesFailuresOfTheHost) {
    const auto page = Create<host::IComPropertyPage>("CVNGazetteer.GazetteerPropertyPage");
    const auto broken = std::make_shared<Objects>(Objects::List{}, true);
    EXPECT_FALSE(page->Applies(broken));
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
    EXPECT_TRUE(desk::ComponentLibrary(entries[0].file)
                    .CreateInstance(entries[0].classId, desk_.HostRef()));
    library_.Register(desk_.HostRef(), false);
    EXPECT_TRUE(registrar.Entries(host::kElementPropertyPages).empty());

    const auto installer = Create<gazetteer::ICategoryInstall>("CVNGazetteer.CategoryInstall");
    EXPECT_EQ(installer->Install(true), 0);
    EXPECT_EQ(registrar.Entries(host::kElementPropertyPages), entries);
    const auto categories = Create<gazetteer::ICategoryIDs>("CVNGazetteer.CategoryIDs");
    EXPECT_EQ(categories->ElementPropertyPages()->Value(), host::kElementPropertyPages);

    ::setenv("XDG_DATA_HOME", "/dev/null", 1);
    EXPECT_THROW(library_.Register(desk_.HostRef(), true), host::Failure);
    ::unsetenv("XDG_DATA_HOME");
}

TEST(ComponentFile, ShowsItsEntryPointsAlone) {
    std::FILE* const pipe = ::popen("nm -D --defined-only '" COMPONENT_FILE "'", "r");
    ASSERT_NE(pipe, nullptr);
    std::string names;
    std::array<char, 512> line{};
    while (std::fgets(line.data(), line.size(), pipe) != nullptr)
        names += std::string(line.data()).substr(19);
    ::pclose(pipe);
    EXPECT_EQ(names,
              "ComponentCanUnload\nComponentCreateClassObject\nComponentRegister\n"
              "ComponentUnregister\n");
}

}  // namespace
