#include <gtest/gtest.h>
#include <stdlib.h>

#include "desk/components/Registrar.h"
#include "support/CategoryIDs.h"
#include "support/CategoryInstall.h"
#include "support/TestDesk.h"

namespace {

class Installer : public ::testing::Test {
protected:
    Installer() {
        ::setenv("XDG_DATA_HOME", folder_.Path().c_str(), 1);
        folder_.Write("libpage.so", "");
    }
    ~Installer() override { ::unsetenv("XDG_DATA_HOME"); }

    static std::vector<desk::ComponentEntry> Entries() {
        return desk::Registrar(desk::ComponentsFile()).Entries(host::kElementPropertyPages);
    }

    support::TemporaryFolder folder_;
    support::TestDesk desk_;
};

TEST_F(Installer, EntersThePageAndTakesItOut) {
    gazetteer::CategoryInstall installer(desk_.HostRef(), folder_.Path(), "libpage");
    EXPECT_EQ(installer.Install(true, "whatever"), 0);
    ASSERT_EQ(Entries().size(), 1U);
    EXPECT_EQ(Entries()[0].classId, "CVNGazetteer.GazetteerPropertyPage");
    EXPECT_EQ(Entries()[0].file, folder_.File("libpage.so"));
    EXPECT_EQ(installer.Install(false), 0);
    EXPECT_TRUE(Entries().empty());
}

TEST_F(Installer, KeepsTheLastFailureOnly) {
    gazetteer::CategoryInstall installer(desk_.HostRef(), folder_.Path(), "libgone");
    EXPECT_EQ(installer.Install(true), host::kFailureNotFound);
    EXPECT_EQ(installer.ErrorMessage(),
              "The component \"" + folder_.File("libgone.so") + "\" is not there.");
    EXPECT_TRUE(desk_.Dialogs().messages.empty());
    EXPECT_EQ(installer.Install(false), 0);
    EXPECT_EQ(installer.ErrorMessage(), "");
}

TEST_F(Installer, NamesCategoriesByNewIdentifiers) {
    gazetteer::CategoryIDs categories(desk_.HostRef());
    const auto first = categories.ElementPropertyPages();
    EXPECT_EQ(first->Value().size(), 38U);
    first->SetValue("");
    EXPECT_EQ(categories.ElementPropertyPages()->Value(), host::kElementPropertyPages);
}

}  // namespace
