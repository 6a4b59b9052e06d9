#include <gtest/gtest.h>
#include <limits>

#include "pdf/document/Document.h"

namespace {

using pdf::Violation;

class Counter final : public pdf::Output {
public:
    void Write(std::string_view bytes) override { count += bytes.size(); }
    std::size_t count = 0;
};

std::string Repeated(std::size_t times, const std::string& text) {
    std::string all;
    while (times-- > 0) all += text;
    return all;
}

/// A file of an empty page and one of the given size and bookmark.
std::vector<Violation> FoundIn(pdf::Options options, double width, const std::string& bookmark) {
    Counter output;
    pdf::Document document(output, std::move(options));
    document.BeginPage(612, 792);
    document.EndPage({"First", 792}, {});
    document.BeginPage(width, 792);
    document.EndPage({"Second", 792}, std::vector<pdf::Bookmark>{{bookmark, 700}});
    try {
        document.Finish();
    } catch (const pdf::Violated& violated) {
        EXPECT_EQ(violated.what(), violated.violations.front().Text());
        return violated.violations;
    }
    return {};
}

TEST(Violations, AreFoundAtTheLimitsAndHaveAPlace) {
    const std::string least = Repeated(16'382, "\u017B");  // With a mark of two bytes before it.
    const struct {
        std::string title, bookmark;
        double width;
        std::vector<std::string> texts;
    } cases[] = {
        {"Title", least, 3, {}},
        {"Title", Repeated(32'767, "("), 14'400, {}},
        {"Title",
         "A",
         2.9,
         {"a side of 2.9 points is not within 3 to 14400 (on page 2 of the file)"}},
        {"Title",
         "A",
         14'401,
         {"a side of 14401 points is not within 3 to 14400 (on page 2 of the file)"}},
        {"Title",
         "A",
         std::numeric_limits<double>::quiet_NaN(),
         {"a side of 0 points is not within 3 to 14400 (on page 2 of the file)"}},
        {"Title",
         least + "\u017B",
         612,
         {"the title of a bookmark that begins with \"" + Repeated(15, "\u017B") +
          "\" is longer than 32767 bytes (on page 2 of the file)"}},
        {Repeated(32'768, "x"),
         "A",
         612,
         {"the title that begins with \"" + std::string(30, 'x') +
          "\" is longer than 32767 bytes"}},
    };
    for (const auto& [title, bookmark, width, texts] : cases) {
        std::vector<std::string> found;
        for (const auto& one : FoundIn({title, "test", "en"}, width, bookmark))
            found.push_back(one.Text());
        EXPECT_EQ(found, texts);
        EXPECT_TRUE(FoundIn({title, "test", "en", 1, false}, width, bookmark).empty())
            << "a file that claims nothing may have them";
    }
}

TEST(Violations, OfTheFileAsAWholeAreToldOnce) {
    Counter output;
    pdf::ObjectFile file(output, "1.7");
    file.NewObjects(8'388'607);
    EXPECT_TRUE(file.Found().Found().empty());
    for (int i = 0; i < 3; ++i) file.NewObject();
    ASSERT_EQ(file.Found().Found().size(), 1U);
    EXPECT_EQ(file.Found().Found()[0].rule, Violation::Rule::ObjectCount);
}

}  // namespace
