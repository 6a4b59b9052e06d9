// Links of an index to its maps.
#include <cairo-pdf.h>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

#include "app/Program.h"

namespace tests {
namespace {

/// An atlas whose pages show the number that is printed on them, behind some that have none.
void MakeAtlas(const std::string& path, int front, int maps, bool labels) {
    cairo_surface_t* const surface = cairo_pdf_surface_create(path.c_str(), 300, 400);
    cairo_t* const context = cairo_create(surface);
    cairo_set_font_size(context, 20);
    for (int page = 0; page < front + maps; ++page) {
        const std::string number = std::to_string(1 + page - front);
        if (labels) cairo_pdf_surface_set_page_label(surface, page < front ? "i" : number.c_str());
        cairo_move_to(context, 50, 100);
        cairo_show_text(context, page < front ? "Title" : ("Map=" + number).c_str());
        cairo_rectangle(context, 40, 150, 200, 200);
        cairo_stroke(context);
        cairo_show_page(context);
    }
    cairo_destroy(context);
    cairo_surface_destroy(surface);
}

std::vector<std::string> Lines(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

/// Forty listings, each on three of the maps.
std::vector<std::vector<std::string>> Listings(int maps) {
    std::vector<std::vector<std::string>> rows;
    for (int i = 0; i < 40; ++i)
        for (const int page : {i, i + 7, i + maps / 2})
            rows.push_back(
                {"Name " + std::to_string(i), std::to_string(page * 11 % maps + 1), "2", "3"});
    return rows;
}

/// Returns the links of a file in reading order: their texts, and the numbers of their objects.
std::vector<std::pair<std::string, std::string>> LinksOf(const Program& program,
                                                         const std::string& file) {
    std::vector<std::pair<std::string, std::string>> links;
    std::string text;
    for (const std::string& line : Lines(program.Shell("pdfinfo -struct-text " + file))) {
        const auto quote = line.find('"');
        if (quote != std::string::npos) text = line.substr(quote + 1, line.size() - quote - 2);
        if (const auto at = line.find("Object "); at != std::string::npos)
            links.emplace_back(text, line.substr(at + 7));
    }
    return links;
}

nlohmann::json ObjectsOf(const Program& program, const std::string& file) {
    return nlohmann::json::parse(program.Shell("qpdf --json=1 --json-key=objects " + file))
        .at("objects");
}

/// Returns where a link leads: the page and what to show of it, or a name.
nlohmann::json PlaceOf(const nlohmann::json& objects, const std::string& link) {
    return objects.at(objects.at(link + " R").at("/A").get<std::string>()).at("/D");
}

/// Returns the page that a link leads to, from 1.
int PageOf(const nlohmann::json& objects, const std::map<std::string, int>& names,
           const std::string& link) {
    const auto place = PlaceOf(objects, link);
    return place.is_array() ? place[0].get<int>() + 1 : names.at(place.get<std::string>());
}

std::map<std::string, int> NamesOf(const Program& program, const std::string& file) {
    std::map<std::string, int> names;
    for (const std::string& line : Lines(program.Shell("pdfinfo -dests " + file)))
        if (const auto quote = line.find('"'); quote != std::string::npos)
            names[line.substr(quote + 1, line.size() - quote - 2)] = std::stoi(line);
    return names;
}

TEST(Links, EachReferenceLeadsToTheMapWithItsNumber) {
    const struct {
        int front, maps;
        bool labels;
        std::vector<std::string> options;
    } cases[] = {{0, 40, false, {}}, {3, 400, true, {}}, {3, 40, false, {"--first-map-page", "4"}}};
    for (const auto& [front, maps, labels, options] : cases)
        for (const char* way : {"--maps", "--append-to"}) {
            SCOPED_TRACE(std::string(way) + ' ' + std::to_string(front));
            const Program program;
            MakeAtlas(program.File("atlas.pdf"), front, maps, labels);
            program.WriteTable("t.dbf", Listings(maps));
            std::vector<std::string> arguments{"make", "t.dbf", "--columns", "2",  "--locale",
                                               "cs",   way,     "atlas.pdf", "-o", "o.pdf"};
            arguments.insert(arguments.end(), options.begin(), options.end());
            program.Done(arguments);
            EXPECT_TRUE(Contains(program.Shell("qpdf --check o.pdf"), "No syntax"));
            const auto objects = ObjectsOf(program, "o.pdf");
            const auto names = NamesOf(program, "o.pdf");
            const auto printed =
                Lines(program.Shell("pdftotext -layout atlas.pdf - | grep -n Map="));
            const auto links = LinksOf(program, "o.pdf");
            EXPECT_EQ(links.size(), 120U);
            for (const auto& [text, link] : links) {
                const int page = PageOf(objects, names, link);
                const auto& map = printed.at(static_cast<std::size_t>(page - 1 - front));
                const std::string number = text.substr(0, text.find_first_not_of("0123456789"));
                EXPECT_EQ(number, map.substr(map.find('=') + 1)) << text;
            }
        }
}

TEST(Links, TheMapsBeforeAnIndexStayAsTheyAre) {
    const Program program;
    MakeAtlas(program.File("atlas.pdf"), 2, 400, true);
    const auto make = [&](const char* maps, const char* output) {
        program.Done({"make", "streets.dbf", "--append-to", maps, "-o", output});
    };
    make("atlas.pdf", "book.pdf");
    make("book.pdf", "again.pdf");
    const std::string atlas = program.Read("atlas.pdf");
    const auto labels =
        nlohmann::json::parse(program.Shell("qpdf --json=1 atlas.pdf"))["pagelabels"];
    for (const char* file : {"book.pdf", "again.pdf"}) {
        const std::string book = program.Read(file);
        for (auto at = atlas.find("stream\n"); at != std::string::npos;) {
            const auto end = atlas.find("endstream", at);
            EXPECT_NE(book.find(atlas.substr(at, end - at - 1)), std::string::npos);
            at = atlas.find("stream\n", end + 9);
        }
        EXPECT_EQ(program.Shell(std::string("pdftoppm -r 10 -l 402 ") + file + " | md5sum"),
                  program.Shell("pdftoppm -r 10 atlas.pdf | md5sum"));
        const auto told =
            nlohmann::json::parse(program.Shell(std::string("qpdf --json=1 ") + file));
        for (std::size_t i = 0; i < labels.size(); ++i) EXPECT_EQ(told["pagelabels"][i], labels[i]);
        EXPECT_EQ(told["outlines"].back()["title"], "streets");
        EXPECT_GT(told["outlines"].back()["kids"].size(), 0U);
    }
    // Both indexes are told.
    const auto items = [&](const char* file) {
        return program.Shell(std::string("pdfinfo -struct-text ") + file + " | grep -c LBody");
    };
    EXPECT_EQ(std::stoi(items("again.pdf")), 2 * std::stoi(items("book.pdf")));
}

// A map of 2 x 2 squares, each 1 x 1.5 inches, that begins half an inch from the sheet's lower left
// corner. The second sheet has a bleed of 10 points, the third is turned. The book
// tells the numbers of the pages.
TEST(Links, OfSquaresLeadToTheirPartOfTheMap) {
    const Program program;
    MakeAtlas(program.File("plain.pdf"), 0, 3, false);
    program.Shell(
        "qpdf --qdf --object-streams=disable --rotate=+90:3 plain.pdf - | awk "
        "'/MediaBox/ && ++n == 2 { print \"/TrimBox [ 10 10 290 390 ]\" } { print }' | "
        "fix-qdf > atlas.pdf");
    program.WriteTable("sheets.dbf", {{"a", "1"}, {"b", "2"}, {"c", "3"}});
    program.Write("book.json", R"({"currentTemplate": "index", "books": [{"key": "b", "sections": [
        {"key": "maps", "name": "Maps", "startPage": 5, "pages": ["sheet$1", "sheet$2", "sheet$3"],
         "templates": [{"key": "sheet", "name": "Sheet", "layout": [{"kind": "mapFrame",
          "name": "Map", "geometry": {"envelope": [0.5, 0.5, 2.5, 3.5]},
          "series": {"indexLayer": "sheets.dbf", "firstPage": 1, "grids": [
           {"kind": "index", "rows": ["A", "B"], "columns": ["1", "2"]}]}}]}]},
        {"key": "back", "name": "Index", "startPage": 8, "pages": ["index$1"],
         "templates": [{"key": "index", "name": "Index", "layout": []}]}]}]})");
    program.WriteTable("t.dbf", {{"Aach", "1", "1", "2"},
                                 {"Aach", "1", "2", "1"},
                                 {"Bonn", "2", "2", "2"},
                                 {"Cham", "3", "1", "1"},
                                 {"Dorf", "1", "7", "1"}});
    const std::map<std::string, std::string> shown = {{"5 A-2", R"([0,"/FitR",108,144,180,252])"},
                                                      {"5 B-1", R"([0,"/FitR",36,36,108,144])"},
                                                      {"6 B-2", R"([1,"/FitR",118,46,190,154])"},
                                                      {"7 A-1", R"([2,"/FitR",48,36,156,108])"},
                                                      {"5 7-1", R"([0,"/Fit"])"}};
    std::vector<std::string> arguments{"make", "t.dbf", "--book", "book.json"};
    for (const char* setting :
         {"LinkToMapSeries=true", "MapSeriesSectionKey=maps", "MapSeriesTemplateKey=sheet",
          "MapSeriesFrameName=Map", "Page.FromDatabase=false",
          "Page.Expression=$$PAGE_NUMBER $$ROW-$$COLUMN", "Typesetting.GroupReferences=false"})
        arguments.insert(arguments.end(), {"--set", setting});
    arguments.insert(arguments.end(), {"--maps", "atlas.pdf", "-o", "o.pdf"});
    program.Done(arguments);
    const auto objects = ObjectsOf(program, "o.pdf");
    std::map<std::string, std::string> found;
    for (const auto& [text, link] : LinksOf(program, "o.pdf"))
        found[text.substr(0, 5)] = PlaceOf(objects, link).dump();
    EXPECT_EQ(found, shown);

    *std::ranges::find(arguments, "--maps") = "--append-to";
    arguments.back() = "book.pdf";
    program.Done(arguments);
    const std::string told = program.Shell("pdfinfo -dests book.pdf");
    EXPECT_TRUE(Contains(told, "gazetteer.page.1.1.2")) << told;
}

TEST(Links, ThatLeadNowhereAreFound) {
    const Program program;
    MakeAtlas(program.File("atlas.pdf"), 0, 2, false);
    program.WriteTable("t.dbf", {{"Aachen", "1", "1", "1"}, {"Bonn", "3", "1", "1"}});
    const auto made = program.Done({"make", "t.dbf", "--maps", "atlas.pdf", "-o", "o.pdf"});
    EXPECT_TRUE(Contains(made.errors, "listing \"Bonn\", column \"Page\": there is no map page 3"));
    EXPECT_FALSE(Contains(made.errors, "Aachen"));
    EXPECT_EQ(
        program.Run({"make", "t.dbf", "--maps", "atlas.pdf", "--strict", "-o", "no.pdf"}).status,
        1);
    EXPECT_FALSE(program.Exists("no.pdf"));
}

TEST(Links, RefusesWhatIsNoAtlas) {
    const Program program;
    MakeAtlas(program.File("atlas.pdf"), 0, 2, false);
    program.Shell(
        "qpdf --encrypt a b 256 -- atlas.pdf locked.pdf; qpdf --encrypt '' b 256 -- atlas.pdf "
        "owned.pdf; echo x > none.pdf");
    const std::tuple<std::vector<std::string>, int, std::string> cases[] = {
        {{"--maps", "missing.pdf", "-o", "o.pdf"}, 1, "missing.pdf"},
        {{"--maps", "none.pdf", "-o", "o.pdf"}, 1, "\"none.pdf\" cannot be read as PDF"},
        {{"--maps", "", "-o", "o.pdf"}, 2, "--maps"},
        {{"--press", "", "-o", "o.pdf"}, 2, "--press"},
        {{"--append-to", "owned.pdf", "-o", "o.pdf"}, 1, "password of its owner"},
        {{"--append-to", "locked.pdf", "-o", "o.pdf"}, 1, "protected by a password"},
        {{"--append-to", "atlas.pdf", "-o", "atlas.pdf"}, 2, "the maps are in it"},
        {{"--maps", "atlas.pdf", "-o", "o.png"}, 2, "only a PDF has links"},
        {{"--maps", "atlas.pdf", "--append-to", "atlas.pdf", "-o", "o.pdf"}, 2, "--maps"},
    };
    for (const auto& [options, status, sentence] : cases) {
        SCOPED_TRACE(sentence);
        std::vector<std::string> arguments{"make", "streets.dbf"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const auto outcome = program.Run(arguments);
        EXPECT_EQ(outcome.status, status);
        EXPECT_TRUE(Contains(outcome.errors, sentence));
        EXPECT_FALSE(program.Exists("o.pdf"));
    }
}

}  // namespace
}  // namespace tests
