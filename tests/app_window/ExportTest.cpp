#include <QSpinBox>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "app_window/WindowStory.h"

namespace {

using window_test::WindowStory;

class Export : public WindowStory {
public:
    Export() { MakeSaved(Table("names.dbf", 900), "names.json"); }

    /// Fills the dialog and presses its button.
    void ExportTo(const std::string& path, int first = 0, int last = 0, const char* message = "") {
        support::WhenModal([=](QWidget& dialog) {
            support::Part<QLineEdit>(dialog, "exportPathLine")
                .setText(QString::fromStdString(path));
            if (first > 0) {
                support::Part<QSpinBox>(dialog, "exportLast").setValue(last);
                support::Part<QSpinBox>(dialog, "exportFirst").setValue(first);
            }
            if (*message != 0) ExpectMessage(message);
            Press(dialog, "Export");
        });
        Do("exportPages");
    }
    std::string Text(const std::string& pdf) const {
        const std::string out = folder_.File("out.txt");
        const std::string command = "pdftotext -layout '" + pdf + "' '" + out + "'";
        EXPECT_EQ(std::system(command.c_str()), 0);
        std::ifstream file(out);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.Path() + "/out"))
            names.push_back(entry.path().filename());
        std::ranges::sort(names);
        return names;
    }
};

TEST_F(Export, WritesTheAskedPagesAndShowsTheSamePageAfterwards) {
    std::filesystem::create_directory(folder_.File("out"));
    Do("nextPage");
    const auto drawn = DrawnListings();
    const std::string pdf = folder_.File("out/index.pdf");
    ExportTo(pdf, 2, 3);
    const std::string text = Text(pdf);
    EXPECT_EQ(std::ranges::count(text, '\f'), 2);
    EXPECT_NE(text.find(drawn.front()), std::string::npos);
    EXPECT_EQ(text.find("Alpha 0001"), std::string::npos);
    EXPECT_EQ(DrawnListings(), drawn);
    EXPECT_FALSE(window_->isWindowModified());
    EXPECT_EQ(Status(), "Exported 2 pages to index.pdf");

    ExportTo(folder_.File("out/page.svg"), 2, 3);
    EXPECT_EQ(Files(), (std::vector<std::string>{"index.pdf", "page-2.svg", "page-3.svg"}));
}

TEST_F(Export, LeavesADraftADraft) {
    Do("draft");
    ExportTo(folder_.File("index.pdf"));
    EXPECT_NE(Text(folder_.File("index.pdf")).find("Alpha 0900"), std::string::npos);
    EXPECT_TRUE(Layout().InDraft());
    EXPECT_TRUE(DrawnListings().empty());
}

TEST_F(Export, IsCancelledInItsProgress) {
    std::filesystem::create_directory(folder_.File("out"));
    // Enough to do that the progress is shown.
    Layout().NoteChange();
    support::WhenModal([&](QWidget& question) {
        support::WhenModal([](QWidget& dialog) { Press(dialog, "Create"); });
        Press(question, "Discard");
    });
    window_->Open(QString::fromStdString(Table("long.dbf", 20000)));
    const auto drawn = DrawnListings();
    bool shown = false;
    support::WhenModal([&](QWidget& dialog) {
        support::Part<QLineEdit>(dialog, "exportPathLine")
            .setText(QString::fromStdString(folder_.File("out/page.png")));
        support::WhenModal([&](QWidget& progress) {
            shown = true;
            Press(progress, "Cancel");
        });
        Press(dialog, "Export");
    });
    Do("exportPages");
    EXPECT_TRUE(shown);
    EXPECT_TRUE(Files().empty());
    EXPECT_EQ(DrawnListings(), drawn);
}

TEST_F(Export, CancelledOrRefusedLeavesNothingBehind) {
    std::filesystem::create_directory(folder_.File("out"));
    const auto drawn = DrawnListings();
    int told = 0;
    const auto stop = [&](std::int32_t page) {
        ++told;
        if (page == 3) throw std::runtime_error("stop");
    };
    for (const char* const name : {"out/index.pdf", "out/page.png"})
        EXPECT_THROW(Layout().Export(folder_.File(name), {1, 3}, stop), std::runtime_error);
    EXPECT_EQ(told, 6);
    EXPECT_TRUE(Files().empty());
    EXPECT_EQ(DrawnListings(), drawn);

    ExportTo(folder_.File("none/index.pdf"), 1, 2, "none");
    EXPECT_TRUE(Files().empty());

    // A file that is there stays if the user says so.
    folder_.Write("out/kept.pdf", "kept");
    support::WhenModal([&](QWidget& dialog) {
        support::Part<QLineEdit>(dialog, "exportPathLine")
            .setText(QString::fromStdString(folder_.File("out/kept.pdf")));
        support::WhenModal([](QWidget& question) { Press(question, "No"); });
        Press(dialog, "Export");
        Press(dialog, "Cancel");
    });
    Do("exportPages");
    EXPECT_EQ(std::filesystem::file_size(folder_.File("out/kept.pdf")), 4U);
}

}  // namespace
