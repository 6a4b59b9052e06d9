#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <hyphen.h>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "desk/locale/HyphenationFile.h"
#include "desk/locale/IcuLocale.h"
#include "desk/locale/WordDivider.h"
#include "support/TemporaryFolder.h"

namespace desk {
namespace {

std::string Marked(std::string text, const std::vector<std::size_t>& places, char mark) {
    for (auto place = places.rbegin(); place != places.rend(); ++place)
        text.insert(*place, 1, mark);
    return text;
}

std::string Without(std::string text, char mark) {
    text.erase(std::remove(text.begin(), text.end(), mark), text.end());
    return text;
}

TEST(LineRules, LinesBreakWhereUnicodeAllowsIt) {
    const std::pair<const char*, const char*> texts[] = {{"de", "Bad |Homburg-|Nord/|Süd |(Alt)"},
                                                         {"de", "km |12,5 |und |1/2 |A–|B |S. |4"},
                                                         {"de", "Haus\u00A0Nr. |7"},
                                                         {"en", "http://|a.b/|c |O'Neil"},
                                                         {"ja", "東|京|都|「千|代|田」|あ"},
                                                         {"th", "ถนน|ใหม่"},
                                                         {"de", ""},
                                                         {"de", "\xFF |\xC3"}};
    for (const auto& [name, marked] : texts) {
        const std::string text = Without(marked, '|');
        EXPECT_EQ(Marked(text, IcuLocale(name).LineBreaks(text), '|'), marked);
    }
}

TEST(LineRules, WordsAreDividedByInstalledPatterns) {
    const std::pair<const char*, const char*> words[] = {
        {"de", "Do=nau=dampf=schiff=fahrt"},
        {"de_AT", "HAUPT=STRAS=SE"},
        {"de", "Karl-Marx-Stra=ße,"},
        {"de@collation=phonebook", "(Über=grö=ßen)"},
        {"de", "Gro\u0308=ßen"},
        {"de", "Öl 24a 12,5"},
        {"de", "Mos=kau-Москва \xFF"},
        {"en_GB", "Hy=phen=ation"},
        {"en", "Mc=Don=ald's"},
        {"ga", "Hyphenation"},
        {"C", "Hyphenation"},
        {"de", ""}};
    for (const auto& [name, marked] : words) {
        const std::string word = Without(marked, '=');
        EXPECT_EQ(Marked(word, IcuLocale(name).WordDivisions(word), '='), marked) << name;
    }
}

TEST(LineRules, PatternsKeepWhatTheirFileSays) {
    const std::pair<const char*, const char*> files[] = {
        // Encodings; a letter that one lacks leaves the word whole.
        {"ISO8859-2\n\xE8"
         "1a\n1ka\n",
         "Vyč=ap=ka čaß"},
        {"UTF-8\r\nč1a\r\n1ka\r\n", "Vyč=ap=ka Vyč=aß"},
        {"UTF-8\nLEFTHYPHENMIN 4\nRIGHTHYPHENMIN 3\n1a\n", "bobabob=aba"},
        {"UTF-8\nf1f/ff=f,1,2\n1t\n", "Schiffahr=ter"},  // Would be Schiff-fahrt.
        {"UTF-8\nx1a\nNEXTLEVEL\n.ab1c\n", "ab=cx=ab=cd"},
        {"UTF-8\na1b\nb1a\nb1a\na2b\n", "ab=ab=ab"},  // The last of the same letters counts.
        {"UTF-8", "whole"},
        {"", "whole"},
        {"no encoding\na1b\n", "abab"},
        {"UTF-8\n\xFF"
         "a1b\n1\n.\n/\n",
         "abab"}};
    const support::TemporaryFolder folder;
    for (const auto& [file, marked] : files) {
        folder.Write("hyph_cs.dic", file);
        WordDivider divider(icu::Locale("cs"), folder.Path());
        const std::string word = Without(marked, '=');
        EXPECT_EQ(Marked(word, divider.Divisions(word), '='), marked) << file;
    }
}

TEST(LineRules, PatternsAreThoseOfLanguageScriptAndRegion) {
    const support::TemporaryFolder folder;
    for (const char* name :
         {"hyph_de_AT.dic", "hyph_de_DE.dic", "hyph_pt_BR.dic", "hyph_pt_PT.dic", "hyph_nb_NO.dic",
          "hyph_sr_Latn_RS.dic", "hyph_el.dic", "hyph_en_GB.dic", "hyph_.dic", "de_DE.dic"})
        folder.Write(name, "UTF-8\n");
    const std::pair<const char*, const char*> locales[] = {{"de", "hyph_de_DE.dic"},
                                                           {"de_AT", "hyph_de_AT.dic"},
                                                           {"de_CH", "hyph_de_DE.dic"},
                                                           {"pt", "hyph_pt_BR.dic"},
                                                           {"pt_AO", "hyph_pt_BR.dic"},
                                                           {"no", "hyph_nb_NO.dic"},
                                                           {"nb_NO", "hyph_nb_NO.dic"},
                                                           {"sr", ""},
                                                           {"sr_Latn", "hyph_sr_Latn_RS.dic"},
                                                           {"el_CY", "hyph_el.dic"},
                                                           {"en", "hyph_en_GB.dic"},
                                                           {"fr", ""},
                                                           {"", ""}};
    for (const auto& [name, file] : locales)
        EXPECT_EQ(HyphenationFile(icu::Locale(name), folder.Path()).value_or("").filename(), file)
            << name;
    EXPECT_EQ(HyphenationFile(icu::Locale("de"), folder.File("none")), std::nullopt);
}

/// Parts of patterns in a row: more of them meet than in words of the language.
std::string RandomWord(const std::vector<std::string>& parts, std::mt19937& random) {
    std::string word;
    for (std::size_t count = 1 + random() % 4; count > 0; --count) {
        const std::string& part = parts[random() % parts.size()];
        word += part.substr(0, 1 + random() % part.size());
    }
    return word;
}

TEST(LineRules, FewPatternsDivideAsTheWholeFileDoes) {
    const std::string path = std::string(WordDivider::kFolder) + "/hyph_en_US.dic";
    const std::unique_ptr<HyphenDict, decltype(&hnj_hyphen_free)> whole(
        hnj_hyphen_load(path.c_str()), &hnj_hyphen_free);
    ASSERT_TRUE(whole) << path;
    std::vector<std::string> parts;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        std::string letters;
        std::copy_if(line.begin(), line.end(), std::back_inserter(letters),
                     [](char byte) { return byte >= 'a' && byte <= 'z'; });
        if (!letters.empty()) parts.push_back(letters);
    }
    WordDivider divider(icu::Locale("en"));
    std::mt19937 random(20240229);
    for (int i = 0; i < 500; ++i) {
        const std::string word = RandomWord(parts, random);
        std::string marks(word.size() + 5, '\0');
        char** texts = nullptr;
        int *places = nullptr, *lengths = nullptr;
        hnj_hyphen_hyphenate2(whole.get(), word.c_str(), static_cast<int>(word.size()),
                              marks.data(), nullptr, &texts, &places, &lengths);
        std::vector<std::size_t> divisions;
        for (std::size_t at = 0; at + 1 < word.size(); ++at)
            if ((marks[at] & 1) != 0) divisions.push_back(at + 1);
        EXPECT_EQ(divider.Divisions(word), divisions) << word;
    }
}

TEST(LineRules, ScriptsHaveTheirDirection) {
    for (const char* name : {"ar", "he_IL", "fa", "ur", "az_Arab"})
        EXPECT_TRUE(IcuLocale(name).IsRightToLeft()) << name;
    for (const char* name : {"en", "C", "ru", "ja", "az", "hi", "el"})
        EXPECT_FALSE(IcuLocale(name).IsRightToLeft()) << name;
}

}  // namespace
}  // namespace desk
