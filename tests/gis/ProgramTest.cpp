#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "app/Program.h"
#include "gis/PostgresServer.h"
#include "gis/Sources.h"

namespace tests {
namespace {

namespace fs = std::filesystem;

const std::string kExamples = GAZETTEER_SOURCE_DIR "/examples/";

/// The program in a folder with the example's tables, as dBase files and as layers of a GeoPackage.
class GisProgram : public testing::Test {
protected:
    GisProgram() {
        for (const char* name : {"streets", "atlas", "atlas-sheets"}) {
            const std::string table = program_.File(std::string(name) + ".dbf");
            fs::copy_file(kExamples + name + ".dbf", table, fs::copy_options::overwrite_existing);
            // Else GDAL takes windows-1252 for ISO 8859-1.
            program_.Write(std::string(name) + ".cpg",
                           name == std::string("atlas") ? "1252" : "UTF-8");
            const std::string layers = program_.File("all.gpkg");
            CopyTable(table, "GPKG", layers,
                      fs::exists(layers) ? std::vector<std::string>{"-update"}
                                         : std::vector<std::string>{});
        }
        fs::copy_file(kExamples + "atlas-book.json", program_.File("book.json"));
    }
    /// A book whose index layer is another table.
    void WriteBookOf(const std::string& name, const std::string& layer) const {
        std::string book = program_.Read("book.json");
        const std::string old = "atlas-sheets.dbf";
        for (std::size_t at = 0; (at = book.find(old, at)) != std::string::npos;)
            book.replace(at, old.size(), layer);
        program_.Write(name, book);
    }
    nlohmann::json RowsOfTable(const std::string& table) const {
        return program_.Done({"table", table, "--json", "--limit", "100000"}).Json()["rows"];
    }

    Program program_;
    Sources sources_;
};

TEST_F(GisProgram, MakesTheSameIndexOfALayer) {
    EXPECT_EQ(RowsOfTable("all.gpkg/streets"), RowsOfTable("streets.dbf"));
    program_.Done({"make", "streets.dbf", "-o", "dbf.pdf"});
    program_.Done({"make", "all.gpkg/streets", "-o", "gpkg.pdf"});
    EXPECT_TRUE(program_.Read("gpkg.pdf") == program_.Read("dbf.pdf"));

    std::string exported;
    for (const char* table : {"streets.dbf", "all.gpkg/streets"}) {
        program_.Done({"new", "d.json", "--force", "--listing-database", table});
        EXPECT_EQ(program_.Done({"check", "d.json"}).errors, "");
        program_.Done(
            {"export", "d.json", "-o",
             std::string(table == std::string("streets.dbf") ? "dbf" : "gpkg") + "-2.pdf"});
    }
    EXPECT_EQ(program_.Read("gpkg-2.pdf"), program_.Read("dbf-2.pdf"));
}

TEST_F(GisProgram, FindsALayerBesideTheDocument) {
    program_.Done({"make", "all.gpkg/streets", "-o", "o.pdf", "--document", "d.json"});
    fs::create_directory(program_.File("moved"));
    fs::rename(program_.File("d.json"), program_.File("moved/d.json"));
    fs::rename(program_.File("all.gpkg"), program_.File("moved/all.gpkg"));
    program_.Done({"generate", "moved/d.json"});
    program_.Done({"export", "moved/d.json", "-o", "moved.pdf"});
    EXPECT_TRUE(program_.Read("moved.pdf") == program_.Read("o.pdf"));
    // A table that has changed since is told.
    RunSql(program_.File("moved/all.gpkg"), {"UPDATE streets SET Page = 77 WHERE fid = 1"});
    EXPECT_TRUE(Contains(program_.Run({"check", "moved/d.json"}).output, "has changed since"));
}

TEST_F(GisProgram, TakesAnIndexLayerOfABook) {
    WriteBookOf("layer.json", "all.gpkg/atlas-sheets");
    const PostgresServer server;
    CopyTable(program_.File("atlas-sheets.dbf"), "PostgreSQL", server.Connection(),
              {"-nln", "sheets"});
    WriteBookOf("server.json", server.Connection() + "/sheets");
    const auto make = [&](const std::string& table, const std::string& book) {
        program_.Done({"make", table, "-o", "o.pdf", "--locale", "nb", "--book", book, "--set",
                       "LinkToMapSeries=true", "--set", "MapSeriesSectionKey=maps", "--set",
                       "MapSeriesTemplateKey=sheet", "--set", "MapSeriesFrameName=Main map",
                       "--set", "Page.FromDatabase=false"});
        return program_.Read("o.pdf");
    };
    const std::string expected = make("atlas.dbf", "book.json");
    EXPECT_TRUE(make("all.gpkg/atlas", "layer.json") == expected);
    EXPECT_TRUE(make("atlas.dbf", "server.json") == expected);

    program_.Done({"book", "new", "new.json", "--sheets", "all.gpkg/atlas-sheets"});
    EXPECT_TRUE(Contains(program_.Read("new.json"), "\"all.gpkg/atlas-sheets\""));
    const auto before = program_.Read("all.gpkg");
    const auto refused =
        program_.Run({"book", "new", "all.gpkg", "--force", "--sheets", "all.gpkg/atlas-sheets"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_TRUE(Contains(refused.errors, "cannot be written: the map book is made from it"));
    EXPECT_EQ(program_.Read("all.gpkg"), before);
}

TEST_F(GisProgram, FaultsLeaveNoFile) {
    sources_.Copy("SQLite", program_.File("held.sqlite"));
    program_.Shell("cp all.gpkg held.gpkg; printf noise > noise.gpkg");
    const SqlLock gpkg(program_.File("held.gpkg"));
    const SqlLock sqlite(program_.File("held.sqlite"));
    ::setenv("SQLITE_BUSY_TIMEOUT", "100", 1);  // Milliseconds.
    const auto before = program_.Shell("ls -A");
    const std::pair<const char*, const char*> refusals[] = {
        {"held.gpkg/streets", "held.gpkg cannot be read: database is locked."},
        {"held.sqlite", "held.sqlite cannot be read: database is locked."},
        {"all.gpkg/nix", "all.gpkg has no layer \"nix\"; its layers are"},
        {"all.gpkg", "all.gpkg has 3 layers (\"streets\", \"atlas\", \"atlas-sheets\")"},
        {"noise.gpkg", "noise.gpkg is no table in a format that is known."},
        {"PG:host=/nowhere dbname=atlas/streets",
         "dbname=atlas cannot be read: PQconnectdb failed"},
    };
    for (const auto& [table, sentence] : refusals) {
        SCOPED_TRACE(table);
        const auto outcome = program_.Run({"make", table, "-o", "o.pdf", "--document", "o.json"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_TRUE(Contains(outcome.errors, sentence));
        EXPECT_EQ(std::ranges::count(outcome.errors, '\n'), 1) << outcome.errors;
        EXPECT_EQ(program_.Shell("ls -A"), before);
    }
    ::unsetenv("SQLITE_BUSY_TIMEOUT");
}

TEST_F(GisProgram, StopsWhereItsServerStops) {
    PostgresServer server;
    // Each row takes a while, so that the server is stopped in the middle.
    server.Run(
        "CREATE VIEW names AS SELECT 'Place ' || i AS listing, i AS page, "
        "length(pg_sleep(0.001)::text) AS pause FROM generate_series(1, 20000) AS i");
    const auto before = program_.Shell("ls -A");
    Child child(program_, {"make", server.Connection() + "/names", "-o", "o.pdf"});
    while (!server.IsRead() && !child.HasEnded()) ::usleep(100000);
    EXPECT_FALSE(child.HasEnded());
    server.Stop();
    const auto outcome = child.End();
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(Contains(outcome.errors, "/names cannot be read: "));
    EXPECT_EQ(std::ranges::count(outcome.errors, '\n'), 1) << outcome.errors;
    EXPECT_EQ(program_.Shell("ls -A"), before);
}

}  // namespace
}  // namespace tests
