#include <algorithm>

#include "Sheet.h"

namespace {

using sheet::Look;
using sheet::Output;
using sheet::Sheets;

constexpr std::uint32_t kGrey = 0xB4B4B4;
constexpr int kGreyLevel = 0xB4;
constexpr std::uint32_t kWhite = 0xFFFFFF;

/// Rows of a few cells, at places that fall between the pixels of any usual resolution.
/// Every other row is in the second colour.
host::Ref<host::IHostElement> Cells(const Sheets& sheets, std::uint32_t second) {
    std::vector<host::Ref<host::IHostElement>> rows;
    for (int row = 0; row < 12; ++row) {
        const double top = 3.3071 - row * 0.19837;
        std::vector<host::Ref<host::IHostElement>> cells;
        for (int column = 0; column < 5; ++column) {
            const double left = 0.7013 + column * 0.51731;
            const auto color = row % 2 == 1 ? second : kGrey;
            cells.push_back(sheets.elements.Group(
                {sheets.elements.Rectangle(left, top - 0.19837, left + 0.51731, top, color),
                 sheets.elements.Text(left, top - 0.09, row == 5 ? "l" : "")}));
        }
        rows.push_back(sheets.elements.Group(cells));
    }
    return sheets.elements.Group(rows);
}

TEST(Painter, NeighboursOfOneColourShowNoSeam) {
    for (const char* name : {"cells.pdf", "cells.png"})
        for (const int resolution : {72, 96, 150}) {
            Sheets sheets;
            desk::PageWriterOptions options;
            options.dotsPerInch = resolution;
            const auto image = Look(sheets.Draw(name, Cells(sheets, kGrey), options), resolution);
            int inside = 0;
            for (double x = 0.75; x < 3.25; x += 1.0 / resolution)
                for (double y = 2.4; y < 3.25; y += 1.0 / resolution) {
                    ++inside;
                    ASSERT_EQ(image.Inch(x, y), kGreyLevel) << name << resolution << x << "," << y;
                }
            EXPECT_GT(inside, 5000);
        }
}

TEST(Painter, AlternatingRowsKeepTheirColoursAndEdges) {
    for (const char* name : {"rows.pdf", "rows.png"}) {
        Sheets sheets;
        const auto image = Look(sheets.Draw(name, Cells(sheets, kWhite)), 150);
        for (int row = 0; row < 12; ++row)
            for (double x = 0.75; row != 5 && x < 3.25; x += 0.05)
                EXPECT_EQ(image.Inch(x, 3.3071 - (row + 0.5) * 0.19837),
                          row % 2 == 1 ? 255 : kGreyLevel)
                    << name << row << " " << x;
        EXPECT_EQ(image.Inch(0.69, 3.2), 255);
        EXPECT_EQ(image.Inch(3.3, 3.2), 255);
    }
}

TEST(Painter, PaperDoesNotShowBetweenRowsOfAnImage) {
    Sheets sheets;
    const auto image = Look(sheets.Draw("greys.png", Cells(sheets, 0xA8A8A8)), 150);
    for (double y = 1; y < 3.25; y += 1.0 / 150) EXPECT_LE(image.Inch(2, y), kGreyLevel) << y;
}

TEST(Painter, LaterElementsCoverEarlierOnes) {
    Sheets sheets;
    const auto& e = sheets.elements;
    struct Scene {
        const char* what;
        std::vector<host::Ref<host::IHostElement>> members;
        int at1x1;
        bool text;  ///< whether ink of the text shows
    };
    const auto text = e.Text(0.6, 1, "HHHHHHH", "DejaVu Sans", 20);
    const auto grey = e.Rectangle(0.5, 0.5, 3, 2, kGrey);
    const auto black = e.Rectangle(0.9, 0.9, 1.2, 1.2, 0);
    const auto white = e.Rectangle(0.5, 0.5, 3, 2, kWhite);
    const auto clear = e.Rectangle(0.5, 0.5, 3, 2, 0, true);
    const Scene scenes[] = {
        {"text above", {grey, text}, -1, true},
        {"text under", {text, grey}, kGreyLevel, false},
        {"colour under another and over it again", {grey, black, grey}, kGreyLevel, false},
        {"colour over another", {grey, grey, black}, 0, true},
        {"gathered colours", {white, black, grey, white}, 255, false},
        {"text between", {white, text, white}, 255, false},
        {"clear", {grey, clear}, kGreyLevel, false},
        {"clear over text", {grey, text, clear}, -1, true},
    };
    for (const auto& scene : scenes)
        for (const char* name : {"order.pdf", "order.png"}) {
            const auto image = Look(sheets.Draw(name, e.Group(scene.members)), 150);
            if (scene.at1x1 >= 0) {
                EXPECT_EQ(image.Inch(1, 1), scene.at1x1) << scene.what << name;
            }
            const int darkest = *std::min_element(image.grey.begin(), image.grey.end());
            EXPECT_EQ(darkest < 90, scene.text) << scene.what << name;
        }
}

TEST(Painter, OutlinesFramesAndColours) {
    Sheets sheets;
    const auto& e = sheets.elements;
    const auto framed = e.Rectangle(1, 1, 2, 2, 0x0000FF);  // red
    const auto symbol = host::As<host::IHostFilledElement>(framed)->Symbol();
    symbol->Outline()->SetColor(e.Color(0x00FF00));
    const auto map = std::make_shared<desk::MapFrame>();
    map->SetGeometry(std::make_shared<desk::Envelope>(2.5, 2.5, 3.5, 3.5));
    map->SetName("Main map");
    const std::string path = sheets.Draw("frames.pdf", e.Group({framed, map}));
    EXPECT_NE(Output("pdftotext '" + path + "' -").find("Main map"), std::string::npos);
    const std::string content = Output("pdftocairo -svg '" + path + "' -");
    EXPECT_NE(content.find("rgb(100%,0%,0%)"), std::string::npos) << content;
    EXPECT_NE(content.find("stroke:rgb(0%,100%,0%)"), std::string::npos) << content;
    const auto image = Look(path, 144);
    EXPECT_LT(image.Inch(3, 3.499), 250) << "upper edge of the map frame";
    EXPECT_EQ(image.Inch(2.6, 2.6), 255);
}

TEST(Painter, ADraftHidesItsMembers) {
    Sheets sheets;
    const auto group = sheets.elements.Group({sheets.elements.Text(1, 1, "hidden")});
    for (const bool draft : {true, false}) {
        group->SetDraft(draft);
        const std::string path = sheets.Draw("draft.pdf", sheets.elements.Group({group}));
        EXPECT_EQ(Output("pdftotext '" + path + "' -").find("hidden") != std::string::npos, !draft);
        EXPECT_EQ(Look(path, 144).Inch(2, 2) < 250, draft) << "the cross";
    }
}

TEST(Painter, WhatIsIncompleteIsNotSeen) {
    Sheets sheets;
    const auto bare = std::make_shared<desk::TextElement>(sheets.elements.engine);
    bare->SetText("nowhere");
    const std::string path = sheets.Draw(
        "bare.pdf", sheets.elements.Group({bare, std::make_shared<desk::RectangleElement>(),
                                           std::make_shared<desk::MapFrame>(),
                                           sheets.elements.Text(1, 1, "seen")}));
    EXPECT_EQ(Output("pdftotext '" + path + "' -"), "seen\n\n\f");
    sheets.Draw("null.pdf", nullptr);
}

}  // namespace
