#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

#include "desk/mapbook/MapBook.h"
#include "desk/mapbook/SeriesManager.h"
#include "desk/objects/Elements.h"
#include "desk/tables/Scratch.h"
#include "host/Failure.h"
#include "support/FailureOf.h"
#include "support/TemporaryFolder.h"

namespace {

using support::FailureOf;

/// A series frame with a graticule and a grid, an inset and a group in a group, an index.
const std::string kBook = R"({"currentTemplate": "index",
 "books": [{"key": "atlas", "sections": [
   {"key": "maps", "name": "Maps", "startPage": 5, "pages": ["sheet$1", "sheet$2"],
    "templates": [{"key": "sheet", "name": "Map sheet", "layout": [
      {"kind": "mapFrame", "name": "Main map",
       "series": {"indexLayer": "sheets.dbf", "firstPage": 1,
                  "grids": [{"kind": "graticule", "visible": false},
                            {"kind": "index", "visible": true,
                             "rows": ["A", "B", "C"], "columns": ["1", "2"]}]}},
      {"kind": "group", "members": [{"kind": "mapFrame", "name": "Inset"},
                                    {"kind": "group", "members": []}]}]}]},
   {"key": "back", "name": "Index", "startPage": 40, "pages": ["index$1"],
    "templates": [{"key": "index", "name": "Gazetteer", "layout": []}]}]}]})";

/// The book with one piece of its text replaced.
std::string BookWith(const std::string& piece, const std::string& other) {
    std::string book = kBook;
    const auto found = book.find(piece);
    EXPECT_NE(found, std::string::npos) << piece;
    return book.replace(found, piece.size(), other);
}
/// A source that has read its file already.
std::shared_ptr<desk::BookSource> Source(const std::string& content) {
    const support::TemporaryFolder folder;
    auto source = std::make_shared<desk::BookSource>(folder.Write("book.json", content));
    source->File();
    return source;
}

TEST(MapBook, GivesTheLayoutAsElements) {
    const auto source = Source(BookWith("sheets.dbf", "layers\\\\sheets.dbf"));
    const auto layout =
        host::As<host::IHostElementContainer>(desk::MapBook(source).TemplateLayout("sheet"));
    ASSERT_TRUE(layout);
    const auto frame = std::dynamic_pointer_cast<desk::SeriesFrame>(layout->Next());
    ASSERT_TRUE(frame);
    const auto folder = std::filesystem::path(source->File()->path).parent_path();
    EXPECT_EQ(frame->GetSeries().indexLayer, (folder / "layers" / "sheets.dbf").string());
    const auto grids = host::As<host::IHostMapGrids>(frame);
    const auto group = host::As<host::IHostGroupElement>(layout->Next());
    ASSERT_TRUE(group && !layout->Next());
    EXPECT_TRUE(host::As<host::IHostMapFrame>(group->Item(0)));
    EXPECT_FALSE(host::As<host::IHostMapGrids>(group->Item(0)));
    EXPECT_TRUE(host::As<host::IHostGroupElement>(group->Item(1)));

    ASSERT_TRUE(grids && grids->Count() == 2);
    EXPECT_FALSE(host::As<host::IHostIndexGrid>(grids->Item(0)) || grids->Item(0)->Visible());
    const auto grid = host::As<host::IHostIndexGrid>(grids->Item(1));
    ASSERT_TRUE(grid && grid->Visible());
    EXPECT_EQ(grid->RowLabel(1) + grid->ColumnLabel(2), "A2");
    EXPECT_THROW(grids->Item(2), host::Failure);
    EXPECT_THROW(grid->RowLabel(0), host::Failure);
    EXPECT_THROW(grid->ColumnLabel(3), host::Failure);
}

TEST(MapBook, NamesTheKeyThatItDoesNotHold) {
    const auto source = Source(kBook);
    desk::MapBook book(source);
    desk::MapBook none(std::make_shared<desk::BookSource>(""));
    const std::string start = "The map book file \"" + source->File()->path + "\" holds no ";
    const std::pair<std::function<void()>, std::string> calls[] = {
        {[&] { book.SectionBook("gone"); }, start + "section with the key \"gone\"."},
        {[&] { book.SectionKeys("maps"); }, start + "book with the key \"maps\"."},
        {[&] { book.TemplateLayout("maps"); }, start + "template with the key \"maps\"."},
        {[&] { none.SectionBook("maps"); },
         "The document is in no map book, so that there is no section with the key \"maps\"."}};
    for (const auto& [call, told] : calls) EXPECT_EQ(FailureOf(call).description, told);
}

TEST(LayoutContext, AsksTheDocumentThenTheBook) {
    const auto gone = std::make_shared<desk::BookSource>("gone.json");
    const auto none = std::make_shared<desk::BookSource>("");
    const auto silent = Source(R"({"books": []})");
    const auto told = Source(kBook);
    const std::tuple<std::shared_ptr<desk::BookSource>, std::string, host::Variant> cases[] = {
        {none, "", host::Empty{}}, {silent, "", host::Empty{}}, {told, "", "index"},
        {told, "sheet", "sheet"},  {gone, "own", "own"},  // No file is read in vain.
    };
    for (const auto& [book, own, key] : cases)
        EXPECT_EQ(desk::LayoutContext(book, own).CurrentTemplateKey(), key);
    const std::string why = FailureOf([&] { desk::MapBook(gone).SectionBook("maps"); }).description;
    EXPECT_NE(why.find("could not be read: there is no such file."), std::string::npos) << why;
}

std::string NestedGroups(int depth) {
    std::string group = R"({"kind": "group", "members": []})";
    for (int i = 1; i < depth; ++i) group = R"({"kind": "group", "members": [)" + group + "]}";
    return group;
}

TEST(MapBookFile, SaysWhatIsWrongAndWhere) {
    const std::string section = ", at books[0].sections[0]";
    const std::string layout = section + ".templates[0].layout";
    const std::string back = ", at books[0].sections[1]";
    const std::string startPage =
        section + ".startPage: a whole number from -2147483648 to 2147483647 is expected.";
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {kBook, "", "is not valid JSON at line 1, column 1."},
        {R"("atlas",)", R"("atlas")", "is not valid JSON at line 2, column 37."},
        {kBook.substr(300), "", "is not valid JSON at line "},
        {kBook, "[]", ": an object is expected."},
        {kBook, "\xEF\xBB\xBF[]", ": an object is expected."},
        {kBook, "{}", R"(: "books" is missing.)"},
        {kBook, R"({"books": {}})", ", at books: a list is expected."},
        {R"("Maps")", "7", section + ".name: a text is expected."},
        {R"("atlas")", R"("")", ", at books[0].key: a text that is not empty is expected."},
        {"5,", "5.,", "is not valid JSON at line 3, column 51."},
        {"5,", "1e999,", "is not valid JSON: it holds a number that is too large."},
        {"5,", "5.5,", startPage},
        {"5,", "3000000000,", startPage},
        {R"("startPage": 5,)", "", section + R"(: "startPage" is missing.)"},
        {"sheet$2", "sheet2",
         section + R"(.pages[1]: a template's key, "$" and a number are expected.)"},
        {R"("group")", R"("picture")", layout + R"([1].kind: "mapFrame" or "group" is expected.)"},
        {"true", "1", layout + "[0].series.grids[1].visible: true or false is expected."},
        {R"({"kind": "group", "members": []})", NestedGroups(100),
         ".members: groups stand too deep inside one another."},
        {R"({"kind": "group", "members": []})", NestedGroups(10'100),
         ": its values stand too deep inside one another."},
        {R"("rows")", R"("lines")", layout + R"([0].series.grids[1]: "rows" is missing.)"},
        {R"("firstPage": 1,)", "", layout + R"([0].series: "firstPage" is missing.)"},
        {R"("back")", R"("maps")", back + R"(.key: the key "maps" stands in the file twice.)"},
        {R"("key": "index")", R"("key": "sheet")",
         back + R"(.templates[0].key: the key "sheet" stands in the file twice.)"}};
    for (const auto& [piece, other, complaint] : cases) {
        const std::string book = BookWith(piece, other);
        const auto told = FailureOf([&] { Source(book); }).description;
        EXPECT_NE(told.find(complaint), std::string::npos) << told << "\n" << complaint;
        EXPECT_NE(told.find("book.json"), std::string::npos) << told;
    }
}

host::Ref<host::IHostMapFrame> Frame(const std::string& layer) {
    auto frame = std::make_shared<desk::SeriesFrame>(desk::Series{"", layer, 7, {}});
    frame->SetName("Main map");
    return frame;
}

TEST(SeriesManager, GivesTheRowOfEachPageAndReadsTheTableOnce) {
    const auto table = std::make_shared<desk::ScratchTable>("sheets", nullptr);
    for (int i = 0; i < 3; ++i) table->Insert(true)->InsertRow(table->CreateRowBuffer());
    std::vector<std::string> opened;
    desk::SeriesManager manager([&](const std::string& path) {
        opened.push_back(path);
        return table;
    });
    manager.SetFrame(Frame("maps/sheets.dbf"));
    EXPECT_EQ(std::get<std::int32_t>(manager.FirstPageNumber()), 7);
    EXPECT_EQ(manager.IndexLayer()->Table(), table);
    for (const std::int32_t page : {3, 1, 2, 1}) EXPECT_EQ(manager.PageFeature(page)->OID(), page);
    EXPECT_EQ(opened, std::vector<std::string>{"maps/sheets.dbf"});
    for (const std::int32_t page : {0, 4, -1})
        EXPECT_EQ(
            FailureOf([&] { manager.PageFeature(page); }).description,
            "The index layer \"sheets.dbf\" of the frame \"Main map\" has 3 rows and none for "
            "page " +
                std::to_string(page) + ".");
}

TEST(SeriesManager, FailsWithoutWhatACallNeeds) {
    desk::SeriesManager manager([](const std::string&) { return nullptr; });
    const auto plain = std::make_shared<desk::MapFrame>();
    EXPECT_FALSE(manager.IsSeriesFrame(nullptr) || manager.IsSeriesFrame(plain));
    EXPECT_FALSE(manager.HasIndexLayer(plain) || manager.HasIndexLayer(Frame("")));
    EXPECT_TRUE(manager.IsSeriesFrame(Frame("")) && manager.HasIndexLayer(Frame("a.dbf")));
    manager.SetFrame(plain);
    EXPECT_THROW(manager.FirstPageNumber(), host::Failure);
    manager.SetFrame(Frame(""));
    EXPECT_NO_THROW(manager.FirstPageNumber());
    EXPECT_THROW(manager.IndexLayer(), host::Failure);
    EXPECT_THROW(manager.PageFeature(1), host::Failure);
    manager.ClearFrame();
    EXPECT_THROW(manager.FirstPageNumber(), host::Failure);
}

}  // namespace
