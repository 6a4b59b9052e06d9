#include <cstdlib>
#include <gtest/gtest.h>
#include <numeric>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "desk/locale/IcuLocale.h"
#include "support/FailureOf.h"
#include "support/Utf8.h"

namespace desk {
namespace {

TEST(IcuLocale, NumbersAreWholeTexts) {
    IcuLocale english("en");
    const std::pair<const char*, double> inEnglish[] = {
        {"007", 7},    {"1.5", 1.5},    {".5", .5},      {"5.", 5},          {"-3", -3},
        {"+3", 3},     {"\u22123", -3}, {"1,000", 1000}, {"1,2,3.5", 123.5}, {"1E5", 1e5},
        {"1e-2", .01}, {"1E+5", 1e5},   {"\u0663", 3}};
    for (const auto& [text, value] : inEnglish) EXPECT_EQ(english.ParseNumber(text), value) << text;
    EXPECT_EQ(english.ParseNumber("1234567890123456789"), 1234567890123456789.0);
    const std::tuple<const char*, const char*, double> numbers[] = {
        {"de_DE.UTF-8", "1,5", 1.5},    {"de-DE", "1.000,5", 1000.5}, {"de", "1.000", 1000},
        {"fr", "1\u202F000,5", 1000.5}, {"fr", "1\u00A0000", 1000},   {"de_CH", "1'000.5", 1000.5},
        {"sv", "\u22123,5", -3.5}};
    for (const auto& [locale, text, value] : numbers)
        EXPECT_EQ(IcuLocale(locale).ParseNumber(text), value) << locale << " " << text;

    for (const char* text :
         {"",      " ",   "12abc", "abc", "E5",  "1E",    "1E+", "1E5.0", "1E5E5",
          "1.2.3", ".",   "-",     "--1", "1-",  "+-1",   ",5",  "5,",    "1,,000",
          "1.0,5", "12 ", "0x1F",  "inf", "nan", "1E999", "\xFF"})
        EXPECT_EQ(english.ParseNumber(text), std::nullopt) << text;
    EXPECT_EQ(english.ParseNumber(std::string(5000, '9')), std::nullopt);
    EXPECT_EQ(IcuLocale("de").ParseNumber("1,5,5"), std::nullopt);
}

TEST(IcuLocale, NumbersAreWrittenShort) {
    IcuLocale english("en"), german("de");
    EXPECT_EQ(german.FormatNumber(12.5), "12,5");
    EXPECT_EQ(english.FormatNumber(-0.0), "0");
    EXPECT_EQ(english.FormatNumber(0.1), "0.1");
    EXPECT_EQ(english.FormatNumber(-1234567), "-1234567");
    EXPECT_EQ(english.FormatNumber(1e20), "100000000000000000000");
    EXPECT_EQ(english.FormatNumber(0.00001), "0.00001");
    for (const double value : {1.0 / 3, -2e9 / 3, 1e-9 / 3, 1e30 / 3})
        EXPECT_EQ(german.ParseNumber(german.FormatNumber(value)), value);
}

TEST(IcuLocale, CaseDoesNotCountAndAccentsDo) {
    IcuLocale english("en");
    EXPECT_EQ(english.CompareText("Main", "MAIN"), 0);
    EXPECT_EQ(english.CompareText("e", "\u00e9"), -1);
    EXPECT_EQ(english.CompareText("\u00e9", "e\u0301"), 0);
    EXPECT_EQ(english.CompareText("z", "\u00e4"), 1);
    EXPECT_EQ(IcuLocale("C").CompareText("Main", "MAIN"), 0);
}

TEST(IcuLocale, KeysCompareAsTexts) {
    for (const char* name : {"en", "de@collation=phonebook", "sv", "C"}) {
        IcuLocale locale(name);
        for (const std::string a : {"", "A", "\u00c4b", "aeb", "z", "\xFF", "\U0001F600"})
            for (const std::string b : {"a", "a b", "AEB", "z\u0301", "\xC3", "\u4e2d", "-"}) {
                const int byKeys = locale.CollationKey(a).compare(locale.CollationKey(b));
                EXPECT_EQ(locale.CompareText(a, b), (byKeys > 0) - (byKeys < 0)) << a << " " << b;
            }
    }
    IcuLocale english("en");
    EXPECT_EQ(english.CollationKey(std::string(5000, 'q')),
              english.CollationKey(std::string(5000, 'Q')));
}

TEST(IcuLocale, CharactersAreWhatReadersSee) {
    using Lengths = std::vector<std::size_t>;
    IcuLocale locale("en");
    EXPECT_EQ(locale.Characters("ab\r\nc"), (Lengths{1, 1, 1, 1, 1}));
    EXPECT_EQ(locale.Characters("e\u0301\r\nx"), (Lengths{3, 1, 1, 1}));
    EXPECT_EQ(locale.Characters("\U0001F468\u200D\U0001F469x"), (Lengths{11, 1}));
    EXPECT_EQ(locale.Characters("\u0e01\u0e33"), (Lengths{6}));

    // No byte is lost, well-formed or not.
    std::mt19937 random(5);
    for (int i = 0; i < 3000; ++i) {
        std::string text;
        for (std::size_t n = random() % 8; n > 0; --n)
            text += static_cast<char>(random() % 2 == 0 ? random() % 256 : 'a' + random() % 26);
        const Lengths lengths = locale.Characters(text);
        EXPECT_EQ(std::accumulate(lengths.begin(), lengths.end(), std::size_t{0}), text.size());
    }
    // The quick way and the rules agree.
    for (char32_t c = 1; c < 0x300; ++c) {
        const std::string letter = support::Utf8(c);
        const std::size_t bytes = letter.size();
        const std::string text = "a" + letter + letter + "b";
        EXPECT_EQ(locale.Characters(text), (Lengths{1, bytes, bytes, 1})) << letter;
        EXPECT_EQ(locale.Characters(text + "\u4e2d"), (Lengths{1, bytes, bytes, 1, 3})) << letter;
    }
}

TEST(IcuLocale, UnknownNamesAreTold) {
    for (const std::string name : {"xx_YY", "german", "de@collation=nonsense", "-", "q"})
        EXPECT_EQ(support::FailureOf([&] { const IcuLocale locale(name); }).description,
                  "There is no locale named " + name + ".");
}

TEST(IcuLocale, EmptyNameIsTheUsers) {
    const auto with = [](const char* all, const char* collate, const char* lang) {
        setenv("LC_ALL", all, 1);
        setenv("LC_COLLATE", collate, 1);
        setenv("LANG", lang, 1);
        return IcuLocale("").Name();
    };
    EXPECT_EQ(with("", "", "fr_FR.UTF-8"), "fr_FR");
    EXPECT_EQ(with("", "sv_SE", "fr_FR.UTF-8"), "sv_SE");
    EXPECT_EQ(with("de_AT.UTF-8", "sv_SE", "fr_FR"), "de_AT");
    EXPECT_EQ(with("C.UTF-8", "sv_SE", "fr_FR"), "");
    EXPECT_EQ(with("xx_nonsense", "", ""), "");
}

}  // namespace
}  // namespace desk
