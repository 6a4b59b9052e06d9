#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include "BookText.h"
#include "desk/mapbook/MapBook.h"
#include "desk/mapbook/SeriesFrame.h"
#include "host/Failure.h"
#include "support/TemporaryFolder.h"

namespace {

using Keys = std::vector<std::string>;

desk::MapBookFile Read(const std::string& content) {
    const support::TemporaryFolder folder;
    return desk::ReadMapBookFile(folder.Write("book.json", content));
}

/// A source that has read its file already.
std::shared_ptr<desk::BookSource> Source(const std::string& content) {
    const support::TemporaryFolder folder;
    auto source = std::make_shared<desk::BookSource>(folder.Write("book.json", content));
    source->File();
    return source;
}

std::string Complaint(const std::function<void()>& deed) {
    try {
        deed();
    } catch (const host::Failure& failure) {
        return failure.description;
    }
    return {};
}

TEST(MapBook, AnswersInTheOrderOfTheFile) {
    desk::MapBook book(Source(kBook));
    EXPECT_EQ(book.TemplateSection("index"), "back");
    EXPECT_EQ(book.SectionBook("back"), "atlas");
    EXPECT_EQ(book.SectionKeys("atlas"), (Keys{"maps", "back"}));
    EXPECT_EQ(book.SectionKeys("other"), Keys{});
    EXPECT_EQ(book.SectionName("maps"), "Maps");
    EXPECT_EQ(book.TemplateKeys("maps"), Keys{"sheet"});
    EXPECT_EQ(book.TemplateName("index"), "Gazetteer");
    EXPECT_EQ(std::get<std::int32_t>(book.SectionStartPage("back")), 40);
    EXPECT_EQ(book.SectionPages("maps"), (Keys{"sheet$1", "sheet$2"}));
}

TEST(MapBook, GivesTheLayoutAsElements) {
    desk::MapBook book(Source(kBook));
    const auto layout = host::As<host::IHostElementContainer>(book.TemplateLayout("sheet"));
    ASSERT_TRUE(layout);
    const auto frame = layout->Next();
    EXPECT_TRUE(host::As<host::IHostMapFrame>(frame));
    EXPECT_EQ(host::As<host::IHostElementName>(frame)->Name(), "Main map");
    const auto grids = host::As<host::IHostMapGrids>(frame);
    ASSERT_TRUE(grids);
    ASSERT_EQ(grids->Count(), 1);
    const auto grid = host::As<host::IHostIndexGrid>(grids->Item(0));
    ASSERT_TRUE(grid && grid->Visible());
    EXPECT_EQ(grid->RowCount(), 3);
    EXPECT_EQ(grid->RowLabel(1), "A");
    EXPECT_EQ(grid->ColumnLabel(3), "3");
    EXPECT_THROW(grid->RowLabel(0), host::Failure);
    EXPECT_THROW(grid->ColumnLabel(4), host::Failure);
    EXPECT_THROW(grids->Item(1), host::Failure);

    const auto group = host::As<host::IHostGroupElement>(layout->Next());
    ASSERT_TRUE(group);
    const auto inset = group->Item(0);
    EXPECT_TRUE(host::As<host::IHostMapFrame>(inset));
    EXPECT_FALSE(host::As<host::IHostMapGrids>(inset));
    EXPECT_FALSE(layout->Next());
}

TEST(MapBook, TellsGridsThatNameNothingAndGroupsInGroups) {
    const auto file =
        Read(BookWith(R"("grids": [)", R"("grids": [{"kind": "graticule", "visible": false},)"));
    const auto grids =
        host::As<host::IHostMapGrids>(file.books[0].sections[0].templates[0].layout[0]);
    ASSERT_EQ(grids->Count(), 2);
    EXPECT_FALSE(host::As<host::IHostIndexGrid>(grids->Item(0)));
    EXPECT_FALSE(grids->Item(0)->Visible());
    const auto nested = Read(BookWith(R"({"kind": "mapFrame", "name": "Inset"})",
                                      R"({"kind": "group", "members": []})"));
    const auto group =
        host::As<host::IHostGroupElement>(nested.books[0].sections[0].templates[0].layout[1]);
    EXPECT_TRUE(host::As<host::IHostGroupElement>(group->Item(0)));
}

TEST(MapBook, NamesTheKeyThatItDoesNotHold) {
    const auto source = Source(kBook);
    desk::MapBook book(source);
    const std::string start = "The map book file \"" + source->File()->path + "\" holds no ";
    EXPECT_EQ(Complaint([&] { book.SectionBook("gone"); }),
              start + "section with the key \"gone\".");
    EXPECT_EQ(Complaint([&] { book.SectionKeys("maps"); }), start + "book with the key \"maps\".");
    EXPECT_EQ(Complaint([&] { book.TemplateLayout("maps"); }),
              start + "template with the key \"maps\".");
}

TEST(MapBook, HoldsNothingWithoutAFile) {
    desk::MapBook book(std::make_shared<desk::BookSource>(""));
    EXPECT_EQ(Complaint([&] { book.SectionBook("maps"); }),
              "The document is in no map book, so that there is no section with the key \"maps\".");
    EXPECT_THROW(book.SectionKeys("atlas"), host::Failure);
    EXPECT_THROW(book.TemplateName("sheet"), host::Failure);
}

TEST(MapBook, IsReadWhenFirstAskedFor) {
    const auto source = std::make_shared<desk::BookSource>("gone.json");
    desk::MapBook book(source);
    EXPECT_NE(Complaint([&] { book.SectionBook("maps"); }).find("there is no such file"),
              std::string::npos);
    EXPECT_EQ(std::get<std::string>(desk::LayoutContext(source, "own").CurrentTemplateKey()),
              "own");
}

TEST(LayoutContext, AsksTheDocumentThenTheBook) {
    const auto none = std::make_shared<desk::BookSource>("");
    const auto silent = Source(R"({"books": []})");
    const auto source = Source(kBook);
    using desk::LayoutContext;
    EXPECT_TRUE(std::holds_alternative<host::Empty>(LayoutContext(none, "").CurrentTemplateKey()));
    EXPECT_TRUE(
        std::holds_alternative<host::Empty>(LayoutContext(silent, "").CurrentTemplateKey()));
    EXPECT_EQ(std::get<std::string>(LayoutContext(source, "").CurrentTemplateKey()), "index");
    EXPECT_EQ(std::get<std::string>(LayoutContext(source, "sheet").CurrentTemplateKey()), "sheet");
}

TEST(MapBookFile, FollowsPathsFromItsOwnFolder) {
    const auto file = Read(BookWith("sheets.dbf", "layers\\\\sheets.dbf"));
    const auto frame = std::dynamic_pointer_cast<desk::SeriesFrame>(
        file.books[0].sections[0].templates[0].layout[0]);
    ASSERT_TRUE(frame);
    const auto folder = std::filesystem::path(file.path).parent_path();
    EXPECT_EQ(frame->GetSeries().indexLayer, (folder / "layers" / "sheets.dbf").string());
}

TEST(MapBookFile, SaysWhatIsWrongAndWhere) {
    const std::string sections = "books[0].sections[0]";
    const std::string layout = sections + ".templates[0].layout";
    const std::pair<std::string, std::string> cases[] = {
        {"", "is not valid JSON at line 1, column 1."},
        {BookWith("[{\"key\": \"atlas\",", "[{\"key\": \"atlas\""),
         "is not valid JSON at line 2, column 37."},
        {kBook.substr(0, 300), "is not valid JSON at line "},
        {"[]", ": an object is expected."},
        {"{}", ": \"books\" is missing."},
        {"{\"books\": {}}", ", at books: a list is expected."},
        {BookWith("\"Maps\"", "7"), ", at " + sections + ".name: a text is expected."},
        {BookWith("\"key\": \"atlas\"", "\"key\": \"\""),
         ", at books[0].key: a text that is not empty is expected."},
        {BookWith("\"startPage\": 5", "\"startPage\": 5.5"),
         ", at " + sections + ".startPage: a whole number is expected."},
        {BookWith("\"startPage\": 5", "\"startPage\": 3000000000"),
         ", at " + sections + ".startPage: a whole number is expected."},
        {BookWith("\"startPage\": 5,", ""), ", at " + sections + ": \"startPage\" is missing."},
        {BookWith("sheet$2", "sheet2"),
         ", at " + sections + ".pages[1]: a template's key, \"$\" and a number are expected."},
        {BookWith("\"group\"", "\"picture\""),
         ", at " + layout + "[1].kind: \"mapFrame\" or \"group\" is expected."},
        {BookWith("\"visible\": true", "\"visible\": 1"),
         ", at " + layout + "[0].series.grids[0].visible: true or false is expected."},
        {BookWith("\"rows\"", "\"lines\""),
         ", at " + layout + "[0].series.grids[0]: \"rows\" is missing."},
        {BookWith("\"firstPage\": 1,", ""),
         ", at " + layout + "[0].series: \"firstPage\" is missing."},
        {BookWith("\"key\": \"back\"", "\"key\": \"maps\""),
         ", at books[0].sections[1].key: the key \"maps\" stands in the file twice."},
        {BookWith("\"key\": \"index\"", "\"key\": \"sheet\""),
         ", at books[0].sections[1].templates[0].key: the key \"sheet\" stands in the file "
         "twice."}};
    for (const auto& [content, complaint] : cases) {
        const auto told = Complaint([&, &text = content] { Read(text); });
        EXPECT_NE(told.find(complaint), std::string::npos) << told << "\n" << complaint;
        EXPECT_NE(told.find("book.json"), std::string::npos) << told;
    }
    EXPECT_NE(Complaint([] {
                  desk::ReadMapBookFile("gone.json");
              }).find("could not be read: there is no such file."),
              std::string::npos);
}

}  // namespace
