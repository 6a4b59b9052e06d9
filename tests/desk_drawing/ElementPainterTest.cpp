#include <algorithm>

#include "Sheet.h"

namespace {

using sheet::Group;
using sheet::Look;
using sheet::Members;
using sheet::Rectangle;
using sheet::Sheets;

constexpr std::uint32_t kGrey = 0xB4B4B4;
constexpr int kGreyLevel = 0xB4;
constexpr std::uint32_t kDarker = 0xA8A8A8;
constexpr std::uint32_t kWhite = 0xFFFFFF;

constexpr double kTop = 3.3071;
constexpr double kRow = 0.19837;  // Between the pixels of any usual resolution.

/// Rows of a few cells, every other one in the second colour.
host::Ref<host::IHostElement> Cells(const Sheets& sheets, std::uint32_t second) {
    Members rows;
    for (int row = 0; row < 12; ++row) {
        const double top = kTop - row * kRow;
        const auto color = row % 2 == 1 ? second : kGrey;
        Members cells;
        for (int column = 0; column < 5; ++column) {
            const double left = 0.7013 + column * 0.51731;
            cells.push_back(Group({Rectangle(left, top - kRow, left + 0.51731, top, color),
                                   sheets.Text(left, top - 0.09, row == 5 ? "l" : "")}));
        }
        rows.push_back(Group(cells));
    }
    return Group(rows);
}

// Readers of a PDF soften the edges between colours, so that more than two are seen.
TEST(Painter, PaperDoesNotShowBetweenNeighboursThatKeepTheirColours) {
    const std::tuple<const char*, std::uint32_t, bool> cases[] = {{"cells.pdf", kGrey, false},
                                                                  {"cells.png", kGrey, false},
                                                                  {"cells.pdf", kWhite, true},
                                                                  {"cells.png", kDarker, false}};
    for (const auto& [name, second, softened] : cases)
        for (const int resolution : {72, 96, 150}) {
            Sheets sheets;
            const desk::PageWriterOptions options{"", static_cast<double>(resolution)};
            const auto image = Look(sheets.Draw(name, Cells(sheets, second), options), resolution);
            const int levels[] = {kGreyLevel, static_cast<int>(second & 0xFF)};
            for (double x = 0.75; x < 3.25; x += 1.0 / resolution) {
                for (int row = 0; row < 12; row += row == 4 ? 2 : 1)
                    EXPECT_EQ(image.Inch(x, kTop - (row + 0.5) * kRow), levels[row % 2])
                        << name << resolution << " " << x << " in row " << row;
                for (double y = 2.4; !softened && y < 3.25; y += 1.0 / resolution) {
                    const int level = image.Inch(x, y);
                    ASSERT_TRUE(level == levels[0] || level == levels[1])
                        << name << resolution << " " << x << "," << y << ": " << level;
                }
            }
            EXPECT_EQ(image.Inch(0.69, 3.2), 255) << name << resolution;
            EXPECT_EQ(image.Inch(3.3, 3.2), 255) << name << resolution;
        }
}

TEST(Painter, LaterElementsCoverEarlierOnes) {
    Sheets sheets;
    const auto text = sheets.Text(0.6, 1, "HHHHHHH", "DejaVu Sans", 20);
    const auto grey = Rectangle(0.5, 0.5, 3, 2, kGrey);
    const auto black = Rectangle(0.9, 0.9, 1.2, 1.2, 0);
    const auto white = Rectangle(0.5, 0.5, 3, 2, kWhite);
    const auto clear = Rectangle(0.5, 0.5, 3, 2, 0, true);
    // The level at (1, 1), -1 for any, and whether dark ink shows.
    const std::tuple<const char*, Members, int, bool> scenes[] = {
        {"text above", {grey, text}, -1, true},
        {"text under", {text, grey}, kGreyLevel, false},
        {"colour under another and over it again", {grey, black, grey}, kGreyLevel, false},
        {"colour over another", {grey, grey, black}, 0, true},
        {"gathered colours", {white, black, grey, white}, 255, false},
        {"text between", {white, text, white}, 255, false},
        {"clear", {grey, clear}, kGreyLevel, false},
        {"clear over text", {grey, text, clear}, -1, true},
    };
    for (const auto& [what, members, level, dark] : scenes)
        for (const char* name : {"order.pdf", "order.png"}) {
            const auto image = Look(sheets.Draw(name, Group(members)), 150);
            EXPECT_EQ(level < 0 ? level : image.Inch(1, 1), level) << what << name;
            const int darkest = *std::min_element(image.grey.begin(), image.grey.end());
            EXPECT_EQ(darkest < 90, dark) << what << name;
        }
}

TEST(Painter, OutlinesFramesAndColours) {
    Sheets sheets;
    const auto framed = Rectangle(1, 1, 2, 2, 0x0000FF);  // red
    const auto symbol = host::As<host::IHostFilledElement>(framed)->Symbol();
    symbol->Outline()->SetColor(sheet::Color(0x00FF00));
    const auto map = std::make_shared<desk::MapFrame>();
    map->SetGeometry(std::make_shared<desk::Envelope>(2.5, 2.5, 3.5, 3.5));
    map->SetName("Main map");
    const std::string path = sheets.Draw("frames.pdf", Group({framed, map}));
    EXPECT_NE(support::PdfText(path).find("Main map"), std::string::npos);
    const std::string content =
        support::Output("qpdf --qdf --object-streams=disable '" + path + "' -");
    EXPECT_NE(content.find("\n1 0 0 rg\n"), std::string::npos) << content;
    EXPECT_NE(content.find("\n0 1 0 RG\n"), std::string::npos) << content;
    const auto image = Look(path, 144);
    EXPECT_LT(image.Inch(3, 3.499), 250) << "upper edge of the map frame";
    EXPECT_EQ(image.Inch(2.6, 2.6), 255);
}

TEST(Painter, LeavesOutWhatIsInDraftOrIncomplete) {
    Sheets sheets;
    const auto group = Group({sheets.Text(1, 1, "hidden")});
    const auto bare = std::make_shared<desk::TextElement>(sheets.engine);
    bare->SetText("nowhere");
    const auto all = Group({group, bare, std::make_shared<desk::RectangleElement>(),
                            std::make_shared<desk::MapFrame>(), sheets.Text(1, 2, "seen")});
    for (const bool draft : {true, false}) {
        group->SetDraft(draft);
        const std::string path = sheets.Draw("draft.pdf", all);
        EXPECT_EQ(support::PdfText(path, "-raw"), draft ? "seen\n\f" : "hidden\nseen\n\f");
        EXPECT_EQ(Look(path, 144).Inch(2, 2) < 250, draft) << "the cross";
    }
    sheets.Draw("null.pdf", nullptr);
}

}  // namespace
