#include <filesystem>
#include <gtest/gtest.h>
#include <stdlib.h>

#include "desk/components/Registrar.h"
#include "desk/tables/PlainObjects.h"
#include "host/Failure.h"
#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"

namespace {

host::Ref<host::IHostIdentifier> Id(const std::string& value) {
    auto id = std::make_shared<desk::Identifier>();
    id->SetValue(value);
    return id;
}

class Registrar : public ::testing::Test {
protected:
    Registrar() {
        for (const char* name : {"a.so", "b.so"}) folder_.Write(name, "");
    }

    void Enter(const std::string& classId, const std::string& file, bool install = true,
               const std::string& category = "pages") {
        desk::Registrar(List()).RegisterComponent(file, Id(classId), Id(category), install);
    }
    std::string List() const { return folder_.File("data/components.json"); }
    /// Class and file name of the entries, in their order.
    std::string Entries(const std::string& category = "pages") const {
        std::string text;
        for (const auto& entry : desk::Registrar(List()).Entries(category))
            text += entry.classId + " " + entry.file.substr(folder_.Path().size()) + ", ";
        return text;
    }

    support::TemporaryFolder folder_;
};

TEST_F(Registrar, KeepsTheOrderOfEntry) {
    EXPECT_EQ(Entries(), "");
    EXPECT_THROW(Enter("Z", folder_.File("gone.so")), host::Failure);
    EXPECT_THROW(Enter("Z", folder_.Path()), host::Failure);
    EXPECT_FALSE(std::filesystem::exists(List())) << "written where nothing changes";
    Enter("Z", folder_.File("a.so"), false);
    EXPECT_TRUE(std::filesystem::exists(List())) << "what was taken out is told from what is new";
    Enter("Z", folder_.Path() + "\\a.dll");
    Enter("Y", folder_.File("b.so"));
    Enter("Other", folder_.File("b.so"), true, "commands");
    Enter("Z", folder_.File("a.dll"));
    EXPECT_EQ(Entries(), "Z /a.so, Y /b.so, ");
    Enter("Z", folder_.File("b.so"));
    EXPECT_EQ(Entries(), "Z /b.so, Y /b.so, ") << "a component that moved";
    Enter("Z", folder_.File("gone.so"), false);
    Enter("Z", folder_.File("gone.so"), false);
    EXPECT_EQ(Entries(), "Y /b.so, ");
    EXPECT_EQ(Entries("commands"), "Other /b.so, ");
}

TEST_F(Registrar, LeavesADamagedListAlone) {
    Enter("Z", folder_.File("a.so"));
    for (const char* damage :
         {"", "{", "[]", "{\"components\": {}}", "{\"components\": [{}]}",
          "{\"components\": [{\"category\": \"pages\", \"class\": 1, \"file\": \"a\"}]}",
          "{\"components\": [\"\xFF\"]}"}) {
        folder_.Write("data/components.json", damage);
        EXPECT_EQ(support::FailureOf([&] { Enter("Y", folder_.File("a.so")); }).cause,
                  "The list of components \"" + List() +
                      "\" is damaged; delete it and install the components again.")
            << damage;
        EXPECT_EQ(std::filesystem::file_size(List()), std::string(damage).size());
    }
}

TEST(ComponentsFile, LiesInTheUsersDataFolder) {
    ::setenv("HOME", "/home/me", 1);
    ::setenv("XDG_DATA_HOME", "/data", 1);
    EXPECT_EQ(desk::ComponentsFile(), "/data/gazetteer-desk/components.json");
    ::setenv("XDG_DATA_HOME", "relative", 1);
    EXPECT_EQ(desk::ComponentsFile(), "/home/me/.local/share/gazetteer-desk/components.json");
    ::unsetenv("XDG_DATA_HOME");
    ::unsetenv("HOME");
    EXPECT_THROW(desk::ComponentsFile(), host::Failure);
}

}  // namespace
