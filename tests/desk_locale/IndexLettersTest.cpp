#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <unicode/alphaindex.h>
#include <unicode/strenum.h>
#include <unicode/ucol.h>
#include <unicode/uset.h>
#include <vector>

#include "desk/locale/IcuLocale.h"
#include "desk/locale/IndexLetters.h"
#include "desk/locale/LetterPrefix.h"
#include "support/NamesOf.h"
#include "support/Utf8.h"

namespace desk {
namespace {

constexpr const char* kLocales[] = {"de", "de@collation=phonebook",   "cs", "sk", "nb", "sv",
                                    "hu", "es@collation=traditional", "tr", "el", "ja", "ko",
                                    "ar"};

std::string Utf8(const icu::UnicodeString& text) {
    std::string utf8;
    return text.toUTF8String(utf8);
}

TEST(IndexLetters, AreThoseOfTheLanguage) {
    using Names = std::vector<std::pair<const char*, const char*>>;
    const std::pair<const char*, Names> languages[] = {
        {"de", {{"Ärmel", "A"}, {"äußere", "A"}, {"Öhr", "O"}, {"ßen", "S"}, {"Žatec", "Z"}}},
        {"de@collation=phonebook", {{"Ärmel", "A"}, {"Übach", "U"}}},
        {"cs", {{"Cheb", "CH"}, {"chata", "CH"}, {"Cvikov", "C"}, {"Čáslav", "Č"}, {"Ústí", "U"}}},
        {"sk", {{"Ätna", "Ä"}, {"Ôstie", "Ô"}, {"Ďurkov", "D"}, {"Ľubica", "L"}}},
        {"nb", {{"Ålesund", "Å"}, {"Aalesund", "Å"}, {"Ørsta", "Ø"}, {"Ärla", "Æ"}}},
        {"sv", {{"Åre", "Å"}, {"Älmhult", "Ä"}, {"Örebro", "Ö"}, {"Wik", "W"}}},
        {"es@collation=traditional", {{"Ñora", "Ñ"}, {"Chiva", "C"}, {"Ávila", "A"}}},
        {"hu",
         {{"Csorna", "CS"},
          {"Dzsana", "DZS"},
          {"ddzsa", "DZS"},
          {"Őcsény", "Ö"},
          {"Ács", "A"},
          {"Szeged", "SZ"},
          {"Quedlinburg", "Q"}}},
        {"tr", {{"Iğdır", "I"}, {"isparta", "İ"}, {"Şile", "Ş"}, {"Çine", "Ç"}}},
        {"el", {{"Άργος", "Α"}, {"Ύδρα", "Υ"}, {"Athens", "A"}}},
        {"ja", {{"ぎふ", "か"}, {"サロマ", "さ"}, {"東京", "東"}, {"Kobe", "K"}}},
        {"ko", {{"강릉", "ㄱ"}, {"까치", "ㄱ"}, {"서울", "ㅅ"}, {"江原", "ㄱ"}}},
        {"ar", {{"أبها", "ا"}, {"بغداد", "ب"}, {"ءال", "ا"}}},
        {"zh", {{"北京", "B"}, {"重庆", "C"}, {"Beijing", "Ｂ"}}},
        {"zh@collation=stroke", {{"一路", "1劃"}, {"Beijing", "B"}}},
        {"mt", {{"Ieri", "I"}, {"Iva", "I"}}},
        {"th", {{"เชียงใหม่", "ช"}, {"กระบี่", "ก"}, {"(Alt)", "A"}}},
        {"en",
         {{"Ёлкино", "Е"},
          {"№ 4", "N"},
          {"Ἀθῆναι", "Α"},
          {"תל אביב", "ת"},
          {"ჭიათურა", "ჭ"},
          {"Երևան", "Ե"},
          {"เชียงใหม่", "ช"},
          {"दिल्ली", "द"},
          {"カムイ", "か"},
          {"서울", "ㅅ"},
          {"東京", "東"},
          {"℅ Miller", "C"},
          {"ﷺ", "ص"},
          {"ⰀⰁ", "Ⰰ"},
          {"\xFF", "\uFFFD"},
          {"A", "A"},
          {"e\u0301", "E"},
          {"\u0301e", "E"}}},
        {"C", {{"Ärmel", "A"}, {"æ", "A"}}}};
    for (const auto& [name, letters] : languages) {
        IcuLocale locale(name);
        for (const auto& [text, letter] : letters)
            EXPECT_EQ(locale.IndexLetter(text), letter) << name << " " << text;
        if (std::string(name) == "th") continue;  // Thai order looks behind signs.
        for (const char* sign :
             {"", "1. Mai", "٣ شارع", "(Alt)", "'s-Hertog", "–", "\u00AD", "½", "☎ 5", " A"})
            EXPECT_EQ(locale.IndexLetter(sign), "") << name << " " << sign;
    }
}

TEST(IndexLetters, AreWhereIcusOwnIndexGroupsTowns) {
    for (const char* name : kLocales) {
        UErrorCode error = U_ZERO_ERROR;
        icu::AlphabeticIndex index(icu::Locale(name), error);
        index.addLabels(icu::Locale::getEnglish(), error);
        const auto names = support::NamesOf(std::string(name).substr(0, 2));
        ASSERT_EQ(names.size(), 200U);
        for (const std::string& town : names)
            index.addRecord(icu::UnicodeString::fromUTF8(town), nullptr, error);
        IcuLocale locale(name);
        int grouped = 0;
        while (index.nextBucket(error) != 0) {
            const std::string label = Utf8(index.getBucketLabel());
            const bool isLetter = index.getBucketLabelType() == U_ALPHAINDEX_NORMAL;
            while (index.nextRecord(error) != 0) {
                const std::string town = Utf8(index.getRecordName());
                // Towns written in ideographs alone are beyond the Japanese index.
                EXPECT_EQ(locale.IndexLetter(town), isLetter ? label : town.substr(0, 3)) << name;
                grouped += isLetter ? 1 : 0;
            }
        }
        EXPECT_FALSE(U_FAILURE(error)) << name;
        EXPECT_GE(grouped, std::string(name) == "ja" ? 100 : 200) << name;
    }
}

/// A text of one script, with some Latin letters, marks and signs in it.
std::string RandomText(std::mt19937& random) {
    static constexpr std::pair<char32_t, char32_t> kRanges[] = {
        {0x20, 0x7E},     {0x41, 0x5A},     {0x61, 0x7A},     {0xC0, 0x17F},    {0x300, 0x30C},
        {0x180, 0x24F},   {0x370, 0x3FF},   {0x400, 0x52F},   {0x531, 0x587},   {0x5D0, 0x5EA},
        {0x620, 0x6FF},   {0x900, 0x97F},   {0x980, 0x9FF},   {0xC80, 0xCFF},   {0xE00, 0xE5B},
        {0xE80, 0xEDF},   {0x1000, 0x109F}, {0x10D0, 0x10FF}, {0x1100, 0x11FF}, {0x1200, 0x137F},
        {0x13A0, 0x13F5}, {0x1E00, 0x1FFF}, {0x2100, 0x214F}, {0x3041, 0x30FF}, {0x3105, 0x312F},
        {0x4E00, 0x5200}, {0x9F00, 0x9FA5}, {0xAC00, 0xD7A3}, {0xF900, 0xFAFF}, {0xFF21, 0xFF5A}};
    const auto range = kRanges[random() % std::size(kRanges)];
    std::string text;
    for (std::size_t length = 1 + random() % 4; length > 0; --length) {
        const auto [first, last] = random() % 3 != 0 ? range : kRanges[random() % 5];
        const auto character = static_cast<char32_t>(first + random() % (last - first + 1));
        text += u_isdefined(static_cast<UChar32>(character)) != 0 ? support::Utf8(character) : "x";
    }
    return text;
}

/// Letters that languages of the table take together, in all their ways.
std::string RandomLetters(std::mt19937& random) {
    static constexpr const char* kLetters[] = {"a", "A", "c", "h", "C", "d", "D", "z", "s",
                                               "S", "l", "y", "n", "g", "i", "e", "t", "\u030C"};
    std::string text;
    for (std::size_t length = 1 + random() % 5; length > 0; --length)
        text += kLetters[random() % std::size(kLetters)];
    return text;
}

TEST(IndexLetters, HaveOneRunEachInSortedTexts) {
    std::vector<std::string> names(std::begin(kLocales), std::end(kLocales));
    for (const char* more : {"zh", "zh@collation=zhuyin", "zh@collation=unihan", "zh_Hant", "mt",
                             "th", "ru", "cy", "km", "kn@collation=traditional", "C"})
        names.emplace_back(more);
    std::mt19937 random(20240229);
    for (const std::string& name : names) {
        IcuLocale locale(name);
        std::vector<std::string> texts;
        for (int i = 0; i < 500; ++i) {
            texts.push_back(RandomText(random));
            texts.push_back(RandomLetters(random));
        }
        std::stable_sort(texts.begin(), texts.end(), [&](const auto& a, const auto& b) {
            return locale.CompareText(a, b) < 0;
        });
        std::set<std::string> seen;
        const std::string* last = nullptr;
        std::string run = "none yet";
        for (const std::string& text : texts) {
            const std::string letter = locale.IndexLetter(text);
            if (letter != run) {
                EXPECT_TRUE(seen.insert(letter).second)
                    << name << ": " << letter << " again at " << text << " after " << *last;
            }
            run = letter;
            last = &text;
            // Behind an ignored character, no other text's letter is taken.
            EXPECT_EQ(letter, locale.IndexLetter("\u00AD" + text)) << name << ' ' << text;
        }
    }
}

/// Whether a text goes on with a character that is no mark on the first.
bool HasSecondLetter(const icu::UnicodeString& text) {
    for (std::int32_t at = text.moveIndex32(0, 1); at < text.length(); at = text.moveIndex32(at, 1))
        if (u_getIntPropertyValue(text.char32At(at), UCHAR_LEAD_CANONICAL_COMBINING_CLASS) == 0)
            return true;
    return false;
}

/// The longest letter of an order whose first character can begin a prefix.
int LongestLetter(const icu::Collator& order) {
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<USet, decltype(&uset_close)> together(uset_openEmpty(), &uset_close);
    ucol_getContractionsAndExpansions(order.toUCollator(), together.get(), nullptr, 0, &error);
    int longest = 0;
    for (std::int32_t i = 0; i < uset_getItemCount(together.get()); ++i) {
        UChar32 first = 0, last = 0;
        char16_t letters[64];
        const std::int32_t length =
            uset_getItem(together.get(), i, &first, &last, letters, std::size(letters), &error);
        const icu::UnicodeString text(letters, length);
        if (length >= 2 && CanBeginPrefix(static_cast<char32_t>(text.char32At(0))) &&
            HasSecondLetter(text))
            longest = std::max(longest, static_cast<int>(text.countChar32()));
    }
    return longest;
}

TEST(IndexLetters, NoOrderHasLongerOnesThanThePrefixAllows) {
    int longest = 0;
    std::set<icu::UnicodeString> seen;
    std::int32_t count = 0;
    const icu::Locale* const locales = icu::Collator::getAvailableLocales(count);
    for (std::int32_t i = 0; i < count; ++i) {
        UErrorCode error = U_ZERO_ERROR;
        const std::unique_ptr<icu::StringEnumeration> orders(
            icu::Collator::getKeywordValuesForLocale("collation", locales[i], 1, error));
        while (const char* order = orders->next(nullptr, error)) {
            icu::Locale locale = locales[i];
            locale.setKeywordValue("collation", order, error);
            const std::unique_ptr<icu::Collator> collator(
                icu::Collator::createInstance(locale, error));
            const auto& rules = dynamic_cast<icu::RuleBasedCollator&>(*collator).getRules();
            if (seen.insert(rules).second) longest = std::max(longest, LongestLetter(*collator));
        }
    }
    EXPECT_EQ(longest, kLongestLetter);

    const auto root = icu::Locale::getRoot();
    UErrorCode error = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> letters(icu::Collator::createInstance(root, error));
    letters->setStrength(icu::Collator::PRIMARY);
    for (UChar32 c = 0; c < 0x110000; ++c)
        if (CanBeginPrefix(static_cast<char32_t>(c))) {
            EXPECT_NE(letters->compare(icu::UnicodeString(c), {}, error), UCOL_EQUAL) << c;
        }
}

TEST(IndexLetters, InitialsOfTablesStandForSignsToo) {
    IndexLetters german("de");
    for (const auto& [text, initial] : {std::pair("", ""),
                                        {"Ärmel", "A"},
                                        {"(Öhr)", "O"},
                                        {"'s-Hertog", "S"},
                                        {"1. Mai", "#"},
                                        {"A 8", "A"},
                                        {"§ 8", "#"},
                                        {"–", "#"},
                                        {"\xFF", "#"}})
        EXPECT_EQ(InitialOf(german, text), initial) << text;
}

}  // namespace
}  // namespace desk
