#include <QSpinBox>
#include <algorithm>
#include <filesystem>

#include "app_window/WindowStory.h"
#include "support/Output.h"

namespace {

using support::PdfText;
using window_test::Answer;

class Export : public window_test::WindowStory {
public:
    Export() {
        MakeSaved(Table("names.dbf", 900), "names.json");
        std::filesystem::create_directory(folder_.File("out"));
    }

    /// Fills the dialog, gets ready for what its button brings up, and presses it.
    void ExportTo(const std::string& path, int first, int last, const Answer& before = {},
                  const char* leave = "") {
        DoWith("exportPages", [=](QWidget& dialog) {
            Type(dialog, "exportPathLine", path);
            support::Part<QSpinBox>(dialog, "exportLast").setValue(last);
            support::Part<QSpinBox>(dialog, "exportFirst").setValue(first);
            if (before) before(dialog);
            Press(dialog, "Export");
            EXPECT_EQ(dialog.isVisible(), *leave != 0);
            if (*leave) Press(dialog, leave);
        });
    }
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.File("out")))
            names.push_back(entry.path().filename());
        std::ranges::sort(names);
        return names;
    }
};

TEST_F(Export, WritesTheAskedPagesAndShowsTheSamePageAfterwards) {
    Do("nextPage");
    const auto drawn = DrawnListings();
    const std::string pdf = folder_.File("out/index.pdf");
    ExportTo(pdf, 2, 3);
    const std::string text = PdfText(pdf);
    EXPECT_EQ(std::ranges::count(text, '\f'), 2);
    EXPECT_NE(text.find(drawn.front()), std::string::npos);
    EXPECT_EQ(text.find("Alpha 0001"), std::string::npos);
    EXPECT_EQ(DrawnListings(), drawn);
    EXPECT_FALSE(window_->isWindowModified());
    EXPECT_EQ(Status(), "Exported 2 pages to index.pdf");
    ExportTo(folder_.File("out/page.svg"), 2, 3);
    EXPECT_EQ(Files(), (std::vector<std::string>{"index.pdf", "page-2.svg", "page-3.svg"}));

    Do("draft");
    ExportTo(folder_.File("draft.pdf"), 1, Session().Pages());
    EXPECT_NE(PdfText(folder_.File("draft.pdf")).find("Alpha 0900"), std::string::npos);
    EXPECT_TRUE(Session().InDraft());
    EXPECT_TRUE(DrawnListings().empty());
}

TEST_F(Export, RefusedOrCancelledLeavesEverythingAsItWas) {
    ExportTo(folder_.File("none/index.pdf"), 1, 2, [](QWidget&) { ExpectMessage("none"); });
    EXPECT_TRUE(Files().empty());
    const auto kept = folder_.Write("kept.pdf", "kept");
    ExportTo(
        kept, 1, 2, [](QWidget&) { ExpectMessage("is there already", "No"); }, "Cancel");
    EXPECT_EQ(std::filesystem::file_size(kept), 4U);

    // Enough to do that the progress is shown.
    Make(Table("long.dbf", 20000));
    const auto drawn = DrawnListings();
    ExportTo(folder_.File("out/page.png"), 1, Session().Pages(), [](QWidget&) {
        support::WhenModal([](QWidget& progress) { Press(progress, "Cancel"); });
    });
    EXPECT_TRUE(Files().empty());
    EXPECT_EQ(DrawnListings(), drawn);
}

}  // namespace
