#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "app/Program.h"
#include "desk/tables/TablePath.h"
#include "gis/PostgresServer.h"
#include "gis/Sources.h"
#include "support/FailureOf.h"

namespace tests {
namespace {

namespace fs = std::filesystem;

using Notes = std::vector<std::string>;

std::string RefusalOf(const std::string& path) {
    return support::FailureOf([&] { RowsAt(path); }).description;
}

testing::AssertionResult IsOneSentence(const std::string& text) {
    const bool isOne = text.ends_with('.') && text.find('\n') == std::string::npos &&
                       text.find(". ") == std::string::npos;
    return (isOne ? testing::AssertionSuccess() : testing::AssertionFailure()) << text;
}

/// The notes of a table that is read through, without its path.
Notes NotesAt(const std::string& path) {
    const auto table = desk::OpenTable(desk::FindTable(path));
    RowsOf(*table, {});
    Notes notes = table->Notes().Faults();
    for (std::string& note : notes) note.erase(0, path.size() + 2);
    return notes;
}

class SourceFaults : public testing::Test {
protected:
    SourceFaults() {
        sources_.Copy("GPKG", File("names.gpkg"));
        sources_.Copy("GPKG", File("two.gpkg"));
        sources_.Copy("GPKG", File("two.gpkg"), {"-update", "-nln", "sheets"});
        sources_.Copy("XLSX", File("names.xlsx"));
    }
    std::string File(const std::string& name) const { return sources_.File(name); }
    /// A new file with the first bytes of another.
    void Cut(const std::string& from, const std::string& to, std::size_t bytes) const {
        sources_.Write(to, sources_.Read(from).substr(0, bytes));
    }

    Sources sources_;
};

TEST_F(SourceFaults, AreToldInOneSentence) {
    sources_.Write("noise.xyz", "noise");
    sources_.Write("noise.gpkg", "noise");
    sources_.Write("empty.csv", "");
    sources_.Write("open.geojson", R"({"type": "FeatureCollection", "features": [{"type": )");
    Cut("names.gpkg", "cut.gpkg", 40000);
    Cut("names.xlsx", "cut.xlsx", 1000);
    fs::create_directory(File("empty.gdb"));
    const std::pair<std::string, std::string> refusals[] = {
        {"names.gpkg/nix", R"( has no layer "nix"; its layers are "names".)"},
        {"two.gpkg/nix", R"( has no layer "nix"; its layers are "names", "sheets".)"},
        {"two.gpkg", R"( has 2 layers ("names", "sheets"); name one of them, as in ")"},
        {"two.gpkg/", R"( has 2 layers ("names", "sheets"); name one)"},
        {"noise.xyz", " is no table in a format that is known."},
        {"noise.gpkg", " is no table in a format that is known."},
        {"empty.csv", " is no table in a format that is known."},
        {"empty.gdb", " is no table in a format that is known."},
        {"open.geojson", " cannot be read: "},
        {"cut.gpkg", " cannot be read: database disk image is malformed."},
        {"cut.xlsx", " is no table in a format that is known."},
        {"gone.gpkg/names", ""},
    };
    EXPECT_EQ(RefusalOf("/vsizip/" + File("none.zip/a.csv")),
              "/vsizip/" + File("none.zip/a.csv") + " is not there.");
    for (const auto& [name, sentence] : refusals) {
        SCOPED_TRACE(name);
        const std::string refusal = RefusalOf(File(name));
        EXPECT_TRUE(IsOneSentence(refusal));
        EXPECT_TRUE(Contains(refusal, File(name.substr(0, name.find('/')))));
        EXPECT_TRUE(Contains(refusal, sentence));
    }
}

TEST_F(SourceFaults, OfFilesThatChangeAreNotMissed) {
    const std::function<void(const std::string&)> removes = [](const auto& file) {
        fs::remove(file);
    };
    const std::function<void(const std::string&)> writes = [](const auto& file) {
        fs::copy_file(file, file + ".new");
        fs::rename(file + ".new", file);
    };
    for (const auto& [change, sentence] :
         {std::pair{removes, " is no longer there."},
          std::pair{writes, " was changed by another program while it was read."}}) {
        SCOPED_TRACE(sentence);
        for (const int rows : {-1, 0, 3}) {  // Before it is read, and after so many rows.
            SCOPED_TRACE(rows);
            fs::copy_file(File("names.gpkg"), File("c.gpkg"), fs::copy_options::overwrite_existing);
            const auto table = desk::OpenTable(desk::FindTable(File("c.gpkg")));
            const auto cursor = rows < 0 ? nullptr : table->Search(nullptr, true);
            for (int i = 0; i < rows; ++i) EXPECT_NE(cursor->NextRow(), nullptr);
            change(File("c.gpkg"));
            const auto failure = support::FailureOf([&] {
                const auto rest = cursor ? cursor : table->Search(nullptr, true);
                while (rest->NextRow()) continue;
            });
            EXPECT_EQ(failure.description, File("c.gpkg") + sentence);
        }
    }
}

TEST_F(SourceFaults, OfValuesAreNotedOnce) {
    const std::string misfit =
        " is no number of the kind that the field has, and was taken for no "
        "value. Further ones in this field are not listed.";
    const std::tuple<std::string, Notes> cases[] = {
        {"Page = '12a' WHERE fid IN (2, 4)", {"record 2, field Page: \"12a\"" + misfit}},
        {"Page = 3.5 WHERE fid = 1", {"record 1, field Page: \"3.5\"" + misfit}},
        {"Page = 3000000000 WHERE fid = 1", {"record 1, field Page: \"3000000000\"" + misfit}},
        {"Big = 'many', Height = 'tall' WHERE fid = 5",
         {"record 5, field Height: \"tall\"" + misfit, "record 5, field Big: \"many\"" + misfit}},
        {"Capital = 'yes' WHERE fid = 1", {"record 1, field Capital: \"yes\"" + misfit}},
        {"Page = '12', Height = 3, Big = NULL WHERE fid = 1", {}},
    };
    for (const auto& [change, expected] : cases) {
        SCOPED_TRACE(change);
        for (const bool isGeoPackage : {true, false}) {
            const std::string file = File(isGeoPackage ? "lie.gpkg" : "lie.sqlite");
            fs::remove(file);
            // An index of places has triggers with functions of GDAL.
            std::vector<std::string> options = {"-nln",    "names", "-lco",
                                                "FID=fid", "-lco",  "SPATIAL_INDEX=NO"};
            if (!isGeoPackage) options.insert(options.end(), {"-lco", "LAUNDER=NO"});
            CopyTable(File("names.gpkg"), isGeoPackage ? "GPKG" : "SQLite", file, options);
            RunSql(file, {"UPDATE names SET " + change});
            Notes ours = NotesAt(file);
            // GDAL warns of some of them as well.
            std::erase_if(ours, [](const auto& note) { return !note.starts_with("record "); });
            EXPECT_EQ(ours, expected) << file;
        }
    }
    // A record that is not wanted is not judged.
    RunSql(File("lie.gpkg"), {"UPDATE names SET Page = '12a' WHERE fid = 3"});
    const auto some = desk::OpenTable(desk::FindTable(File("lie.gpkg")), "fid > 3 OR Page = 'x'");
    EXPECT_EQ(RowsOf(*some, {"Page"}).size(), 5U);
    EXPECT_EQ(some->Notes().Faults(), Notes());
    // Without the number that GDAL makes of such a text.
    RunSql(File("lie.gpkg"), {"UPDATE names SET Page = '12a' WHERE fid IN (1, 7)"});
    const Rows rows = RowsAt(File("lie.gpkg"), {"Page"});
    EXPECT_EQ(Lines({rows[0], rows[1], rows[6]}), "- | \n12 | \n- | \n");
}

TEST_F(SourceFaults, OfTextsAreNotedOnce) {
    const std::string file = sources_.Write("latin.csv",
                                            "Listing,Stra\xDF"
                                            "e\nK\xF6ln,a\nM\xFCnchen,b\n");
    const std::string remedy =
        " (a text file of Windows is converted by \"iconv -f WINDOWS-1252 -t UTF-8\")";
    const Notes expected = {
        "the field name \"Stra\uFFFDe\" has bytes that are no UTF-8" + remedy + '.',
        "record 1, field Listing: \"K\uFFFDln\" has bytes that are no UTF-8" + remedy +
            ". Further ones in this field are not listed."};
    const auto table = desk::OpenTable(desk::FindTable(file));
    EXPECT_EQ(Lines(RowsOf(*table, {"Listing", "Stra\uFFFDe"})),
              "K\uFFFDln | a | \nM\uFFFDnchen | b | \n");
    EXPECT_EQ(NotesAt(file).size(), 1U);  // Of the name; values that nobody asks for are not read.
    Notes notes = table->Notes().Faults();
    for (std::string& note : notes) note.erase(0, file.size() + 2);
    EXPECT_EQ(notes, expected);
}

TEST_F(SourceFaults, OfAServerThatStopsAreTold) {
    PostgresServer server;
    server.Run(
        "CREATE TABLE names AS SELECT 'Place ' || i AS listing, i AS page "
        "FROM generate_series(1, 20000) AS i");
    server.Run("CREATE TABLE others (page integer)");
    const std::string atlas = server.Connection();
    EXPECT_EQ(RowsAt(atlas + "/names", {"Listing", "Page"}).size(), 20000U);
    const std::string several = RefusalOf(atlas);
    EXPECT_TRUE(Contains(several, atlas + R"( has 2 layers ("names", "others"); name one)"));
    EXPECT_EQ(RefusalOf(atlas + "/nix"),
              atlas + R"( has no layer "nix"; its layers are "names", "others".)");

    const auto table = desk::OpenTable(desk::FindTable(atlas + "/names"));
    const auto cursor = table->Search(nullptr, true);
    EXPECT_NE(cursor->NextRow(), nullptr);
    server.Stop();
    const auto failure = support::FailureOf([&] {
        while (cursor->NextRow()) continue;
    });
    EXPECT_TRUE(IsOneSentence(failure.description));
    EXPECT_TRUE(failure.description.starts_with(atlas + "/names cannot be read: "))
        << failure.description;
    const std::string refusal = RefusalOf(atlas + "/names");
    EXPECT_TRUE(IsOneSentence(refusal));
    EXPECT_TRUE(refusal.starts_with(atlas + " cannot be read: ")) << refusal;
}

TEST_F(SourceFaults, OfAServerThatHangsAreTold) {
    PostgresServer server;
    server.Run(
        "CREATE TABLE names AS SELECT 'Place ' || i AS listing, i AS page "
        "FROM generate_series(1, 20000) AS i");
    const std::string names = server.Connection() + "/names";
    ::setenv("GAZETTEER_SERVER_TIMEOUT", "1", 1);
    for (const int rows : {-1, 0, 3}) {  // Before it is read, and after so many rows.
        SCOPED_TRACE(rows);
        const auto table = desk::OpenTable(desk::FindTable(names));
        const auto cursor = rows < 0 ? nullptr : table->Search(nullptr, true);
        for (int i = 0; i < rows; ++i) EXPECT_NE(cursor->NextRow(), nullptr);
        server.Pause();
        const auto failure = support::FailureOf([&] {
            const auto rest = cursor ? cursor : table->Search(nullptr, true);
            while (rest->NextRow()) continue;
        });
        EXPECT_EQ(failure.description,
                  names +
                      " cannot be read: the server did not answer for 1 second "
                      "(GAZETTEER_SERVER_TIMEOUT sets how long it may take).");
        server.Resume();
    }
    auto table = desk::OpenTable(desk::FindTable(names));
    auto cursor = table->Search(nullptr, true);
    EXPECT_NE(cursor->NextRow(), nullptr);
    server.Pause();  // Leaving it asks the server as well.
    cursor.reset();
    table.reset();
    server.Resume();

    // Time that the program itself takes does not count.
    table = desk::OpenTable(desk::FindTable(names));
    cursor = table->Search(nullptr, true);
    for (int i = 0; i < 20000; ++i) {
        EXPECT_NE(cursor->NextRow(), nullptr);
        if (i == 0) ::usleep(1500000);
    }
    EXPECT_EQ(cursor->NextRow(), nullptr);
    ::unsetenv("GAZETTEER_SERVER_TIMEOUT");
}

TEST_F(SourceFaults, OfAServerThatDoesNotAnswerAreTold) {
    // It takes the connection and says nothing.
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    File(".s.PGSQL.5432").copy(address.sun_path, sizeof address.sun_path - 1);
    const int server = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(server, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(server, 5), 0);
    ::setenv("PGCONNECT_TIMEOUT", "2", 1);
    const std::string refusal =
        RefusalOf("PG:host=" + sources_.Path() + " user=postgres dbname=atlas/names");
    ::unsetenv("PGCONNECT_TIMEOUT");
    ::close(server);
    EXPECT_TRUE(IsOneSentence(refusal));
    EXPECT_TRUE(Contains(refusal, "dbname=atlas cannot be read: "));
    EXPECT_TRUE(Contains(refusal, "timeout expired."));
}

}  // namespace
}  // namespace tests
