#include <gtest/gtest.h>

#include "alphabets/Index.h"
#include "desk/locale/IcuLocale.h"
#include "support/Text.h"

namespace tests {
namespace {

using Lines = std::vector<std::string>;

// Names that have to wrap in a column of 1.4 inches, unless they say otherwise.
const Lines kNames = {
    "شارع الملك عبد العزيز آل سعود رحمه الله",
    "طريق 5 (M5)",
    "רחוב אליעזר בן יהודה מחייה הלשון העברית",
    "כִּנֶּרֶת",
    "ถนนกาญจนาภิเษกวงแหวนรอบนอกกรุงเทพมหานคร",
    "内蒙古自治区呼伦贝尔市鄂伦春自治旗大杨树镇中央大街",
    "神奈川県横浜市都筑区茅ヶ崎中央三丁目二十五番地の一",
    "경기도 성남시 분당구 정자동 느티마을 한솔마을",
    "त्रिवेन्द्रम राष्ट्रीय राजमार्ग संख्या क्षीरसागर",
    "திருவனந்தபுரம் சிதம்பரம் கொடைக்கானல் ஸ்ரீரங்கம்",
    gazetteer::ReplaceAll("eeeeeeeeeeeeeeeeeeeeeeeeeeeee", "e", "e\u0301"),
    "Cafe\u0301 de la Re\u0301publique, A\u030A\u0301se et M\u0303boi",
    "Улица Москва\u0301-Товарная, Большая Черёмушкинская",
};

// The characters of a text without those that wrapping adds or drops.
Lines Letters(const std::string& text) {
    desk::IcuLocale locale("en");
    Lines letters;
    std::size_t at = 0;
    for (const std::size_t length : locale.Characters(text)) {
        const std::string letter = text.substr(at, length);
        at += length;
        if (std::string("- .\r\n").find(letter) == std::string::npos) letters.push_back(letter);
    }
    return letters;
}

TEST(Scripts, WrapBetweenCharactersWithinTheirColumn) {
    const Program program;
    WriteNames(program, "names", kNames);
    const auto made = program.Done(MakeTall("names", "en"));
    EXPECT_EQ(made.errors.find("warning"), std::string::npos) << made.errors;
    Lines texts;
    const auto page = program.Done({"draw", "names.json", "--page", "1", "--json"}).Json();
    for (const auto& row : page["members"])
        if (row["tag"] == "ROWGROUP") texts.push_back(row["members"][0]["members"][1]["text"]);
    ASSERT_EQ(texts.size(), kNames.size());
    std::size_t wrapped = 0;
    for (const auto& name : kNames) {
        const auto found = std::ranges::find(texts, Letters(name), Letters);
        ASSERT_NE(found, texts.end()) << name << " was torn or lost";
        wrapped += found->find('\n') != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(wrapped, kNames.size() - 2);

    // Ink of the first column ends before the second begins.
    const std::string words = program.Shell("pdftotext -bbox names.pdf - | grep '<word'");
    const auto edge = [](const std::string& word, const char* name) {
        return std::stod(word.substr(word.find(name) + 6));
    };
    constexpr double kColumnEnd = (0.3 + 1.45) * 72;
    int seen = 0;
    for (const auto& word : gazetteer::Split(words, '\n')) {
        if (word.empty() || edge(word, "yMin=\"") < 60) continue;  // The running head.
        const double left = edge(word, "xMin=\"");
        if (left > kColumnEnd || word.find(">1</word>") != std::string::npos) continue;
        EXPECT_LT(edge(word, "xMax=\""), kColumnEnd) << word;
        EXPECT_GT(left, 0.3 * 72 - 1) << word;  // A mark may stand left of its letter.
        ++seen;
    }
    EXPECT_GT(seen, 60);
}

TEST(Scripts, CharactersThatNoFontHasAreTold) {
    const Program program;
    for (const auto& [names, told] :
         {std::pair{Lines{"\U000F0000 Park"}, "has the character U+F0000; a box"},
          std::pair{Lines{"\U000F0000", "\U000F0001", "\U000F0002", "\U000F0003", "\U000F0004",
                          "\U000F0005 \U000F0006"},
                    "U+F0004 and 2 more; a box is printed instead."}}) {
        WriteNames(program, "names", names);
        const auto made = program.Done(MakeTall("names", "en"));
        EXPECT_NE(made.errors.find(told), std::string::npos) << made.errors;
    }
}

}  // namespace
}  // namespace tests
