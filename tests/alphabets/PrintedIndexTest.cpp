#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <set>

#include "app/Program.h"
#include "desk/locale/IcuLocale.h"
#include "support/NamesOf.h"
#include "support/Text.h"

/// The printed index of names in many alphabets.
namespace tests {
namespace {

using gazetteer::Split;
using Lines = std::vector<std::string>;

/// Writes a table of names in UTF-8, in an order far from any alphabet's, each on a page of its
/// own.
void WriteNames(const Program& program, const std::string& table, Lines names) {
    std::shuffle(names.begin(), names.end(), std::mt19937(7));
    support::DbfBuilder dbf(
        {{"LISTING", 'C', 250}, {"PAGE", 'N', 4}, {"ROW", 'N', 4}, {"COLUMN", 'N', 4}});
    for (std::size_t i = 0; i < names.size(); ++i)
        dbf.Row({names[i], std::to_string(i + 1), "2", "3"});
    dbf.Write(program.File(table + ".dbf"));
    program.Write(table + ".cpg", "UTF-8");
}

/// The lines of names and headings of a printed index of one column group, from the top, without
/// leaders and references.
Lines PrintedLines(const Program& program, const std::string& pdf) {
    std::string all = program.Shell("pdftotext -raw " + pdf + " -");
    // Marks of direction that pdftotext puts around texts from right to left.
    for (const char* mark : {"\u202A", "\u202B", "\u202C"})
        all = gazetteer::ReplaceAll(std::move(all), mark, "");
    Lines lines;
    for (const std::string& line : Split(all, '\n')) {
        if (line == "Listing Page") break;  // The title row is printed after the rows.
        lines.push_back(gazetteer::WithoutOuterBlanks(line.substr(0, line.find(".."))));
    }
    return lines;
}

/// The options for an index of one column group that takes all names on one sheet.
Lines MakeTall(const std::string& table, const std::string& locale) {
    return {"make",          table + ".dbf", "-o",   table + ".pdf", "--document",
            table + ".json", "--locale",     locale, "--page-size",  "3x60"};
}

// By locale: names as the language's own dictionaries order them, and headings, marked by "#", as
// its indexes have them.
const std::pair<const char*, const char*> kAlphabets[] = {
    // A letter with an accent is a letter of its own; thorn, ae and o with dots end the alphabet.
    {"is_IS.UTF-8",
     "#A|Aðaldalur|Akranes|#Á|Árbær|#D|Dalvík|Dýrafjörður|#Ð|Ðala|#E|Eiðar|#I|Ingólfshöfði|#Í|"
     "Ísafjörður|#O|Oddi|#Ó|Ólafsvík|#Y|Ystad|#Ý|Ýdalir|#Z|Zetland|#Þ|Þingvellir|#Æ|Ærlækur|#Ö|"
     "Ölfus"},
    // Accents only decide between names that are the same without them, but n with tilde is a
    // letter.
    {"es",
     "#A|Álava|Alicante|Ávila|Avilés|#C|Chinchón|Cuenca|#L|Llanes|Logroño|Lugo|"
     "#N|Nájera|Navarra|Nuevo|#Ñ|Ñora|Ñuñoa|#O|Oviedo"},
    // Ch is a letter behind h.
    {"cs",
     "#C|Cvikov|#Č|Čáslav|Česká Lípa|#H|Hodonín|#CH|Cheb|Chrudim|#I|Ivančice|#R|Rychnov|#Ř|Řevnice|"
     "#S|Sušice|#Š|Šumperk|#U|Uherský Brod|Úštěk|#Z|Zlín|#Ž|Žatec"},
    {"de@collation=phonebook",
     "#A|Adorf|Aerzen|Ärzen|Afdingen|Azendorf|#O|Oderberg|Öhringen|#S|Straße|Strassen|#U|Übach|"
     "Uelzen"},
    {"de-u-co-phonebk", "#A|Aerzen|Ärzen|Afdingen"},
    // I with and without a dot are two letters.
    {"tr", "#C|Cizre|#Ç|Çorum|#I|Isparta|#İ|İstanbul|izmir|#S|Sivas|#Ş|Şişli"},
    {"hr_HR.UTF-8", "#Č|Čačak|#D|Dunav|#DŽ|Džep|#Đ|Đurđevo|#L|Lučani|#LJ|Ljig|#N|Niš|#NJ|Njeguši"},
};

TEST(Order, IsThatOfTheAlphabet) {
    const Program program;
    for (const auto& [locale, printed] : kAlphabets) {
        Lines lines = Split(printed, '|');
        Lines names = lines;
        std::erase_if(names, [](const auto& line) { return line.starts_with('#'); });
        for (auto& line : lines) line.erase(0, line.starts_with('#') ? 1 : 0);
        WriteNames(program, "names", names);
        program.Done(MakeTall("names", locale));
        EXPECT_EQ(PrintedLines(program, "names.pdf"), lines) << locale;
    }
}

// By the plain rules a heading stands where the first character changes.
TEST(Order, OfPlainRulesHasTheFirstCharacterAsHeading) {
    const Program program;
    WriteNames(program, "names", {"Ávila", "Alicante", "Álava", "Avilés", "Burgos", "delta"});
    Lines make = MakeTall("names", "es");
    make.emplace_back("--plain-rules");
    program.Done(make);
    EXPECT_EQ(PrintedLines(program, "names.pdf"),
              Split("Á|Álava|A|Alicante|Á|Ávila|A|Avilés|B|Burgos|d|delta", '|'));
}

/// The texts of the rows of page 1: name or heading, with what the row is.
std::vector<std::pair<bool, std::string>> DrawnRows(const Program& program,
                                                    const std::string& document) {
    std::vector<std::pair<bool, std::string>> rows;
    const auto page = program.Done({"draw", document, "--page", "1", "--json"}).Json();
    for (const auto& row : page["members"]) {
        if (row["tag"] == "TITLEGROUP") continue;
        std::string text;
        for (const auto& piece : row["members"][0]["members"]) {
            if (!piece.contains("text")) continue;
            const std::string part = piece["text"];
            if (part.find_first_not_of('.') != std::string::npos) text += part;
        }
        rows.emplace_back(row["tag"] == "BREAKGROUP", text);
    }
    return rows;
}

// Two hundred towns of each, on one long sheet: one heading a letter, and each name under its own.
TEST(Order, EachLetterOfTwelveLocalesHasOneHeading) {
    const Program program;
    for (const auto& [locale, file] : {std::pair{"de", "de"},
                                       {"de@collation=phonebook", "de"},
                                       {"cs", "cs"},
                                       {"sk", "sk"},
                                       {"nb", "nb"},
                                       {"sv", "sv"},
                                       {"es@collation=traditional", "es"},
                                       {"hu", "hu"},
                                       {"tr", "tr"},
                                       {"el", "el"},
                                       {"ja", "ja"},
                                       {"ko", "ko"},
                                       {"ar", "ar"}}) {
        SCOPED_TRACE(locale);
        const Lines names = support::NamesOf(file);
        ASSERT_EQ(names.size(), 200U);
        WriteNames(program, "names", names);
        Lines make = MakeTall("names", locale);
        make.insert(make.end(),
                    {"--set", "Listing.ColumnWidth=1.5", "--set", "Page.ColumnWidth=0.5"});
        program.Done(make);
        desk::IcuLocale letters(locale);
        std::set<std::string> headings;
        std::size_t listings = 0;
        std::string heading;
        for (const auto& [isHeading, text] : DrawnRows(program, "names.json")) {
            if (isHeading) {
                heading = text;
                EXPECT_TRUE(headings.insert(text).second) << text << " again";
                continue;
            }
            ++listings;
            EXPECT_EQ(letters.IndexLetter(text), heading) << text;
        }
        EXPECT_EQ(listings, names.size());
        EXPECT_GT(headings.size(), 7U);
    }
}

// A column of the letter that a name is filed under, in the colour of the paper, carries the
// headings in place of the names: a letter has one heading then, whatever accents it has.
TEST(Order, HeadingsOfAColumnOfTheirOwn) {
    const Program program;
    support::DbfBuilder dbf({{"LISTING", 'C', 20}, {"PAGE", 'N', 4}, {"INITIAL", 'C', 2}});
    for (const char* name : {"Ávila", "Alicante", "Álava", "Avilés"}) dbf.Row({name, "1", "A"});
    dbf.Row({"1 de Mayo", "1", "#"});
    dbf.Row({"Burgos", "2", "B"}).Write(program.File("names.dbf"));
    program.Write("names.cpg", "UTF-8");
    program.Done(MakeTall("names", "es"));
    program.Done({"column", "add", "names.json", "Initial", "Expression=[INITIAL]",
                  "ColumnWidth=0.2", "BreakColumn=true", "BreakHeading=true",
                  "Title=", "ColumnFontSymbol=Liberation Sans,8,#FFFFFF"});
    program.Done({"set", "names.json", "ColumnDisplayOrder=Initial,Listing,Page",
                  "ColumnSortOrder=Initial,Listing,Page", "Listing.BreakColumn=false",
                  "Listing.ColumnWidth=1.2"});
    program.Done({"draw", "names.json", "--page", "1", "--locale", "es", "-o", "names.pdf"});
    EXPECT_EQ(PrintedLines(program, "names.pdf"),
              (Lines{"#", "# 1 de Mayo", "A", "A Álava", "A Alicante", "A Ávila", "A Avilés", "B",
                     "B Burgos"}));
}

// Fifteen stands before a hundred and ten, or one and a tenth before one and a half.
TEST(Order, AndNumbersAreThoseOfTheLocale) {
    const Program program;
    support::DbfBuilder({{"LISTING", 'C', 20}, {"PAGE", 'N', 6, 1}, {"HEIGHT", 'N', 8, 2}})
        .Row({"1,5 km", "12.5", "1234.50"})
        .Row({"1,10 km", "3.0", "-0.25"})
        .Write(program.File("names.dbf"));
    const std::string make = " " GAZETTEER_PROGRAM
                             " make names.dbf -o names.pdf --page-size 3x60 --set "
                             "'Listing.Expression=[Listing] [HEIGHT]$$DOTS' 2>&1 ";
    const Lines english{"1,5 km 1234.5", "1,10 km -0.25"};
    const Lines german{"1,10 km -0,25", "1,5 km 1234,5"};
    for (const auto& [user, option, lines, page] :
         {std::tuple{"LC_ALL=en_US", "", english, ". 12.5\n"},
          std::tuple{"LC_ALL= LC_COLLATE=de_DE@collation=phonebook", "", german, ". 12,5\n"},
          std::tuple{"LC_ALL=en_US", "--locale de", german, ". 12,5\n"}}) {
        program.Shell("env LANG=sv_SE " + (user + make) + option);
        EXPECT_EQ(PrintedLines(program, "names.pdf"), lines) << user << option;
        EXPECT_TRUE(Contains(program.Shell("pdftotext -raw names.pdf -"), page)) << user << option;
    }
}

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

TEST(Scripts, WrapBetweenCharacters) {
    const Program program;
    WriteNames(program, "names", kNames);
    for (const bool plain : {true, false}) {
        SCOPED_TRACE(plain ? "plain" : "typeset");
        Lines make = MakeTall("names", "en");
        if (plain) make.emplace_back("--plain-rules");
        const auto made = program.Done(make);
        // Where words have no blanks between them, the hyphens are told.
        EXPECT_EQ(made.errors.find("warning", made.errors.rfind("is broken.") + 1),
                  std::string::npos)
            << made.errors;
        Lines texts;
        for (const auto& [isHeading, text] : DrawnRows(program, "names.json"))
            if (!isHeading) texts.push_back(text);
        ASSERT_EQ(texts.size(), kNames.size());
        for (const auto& name : kNames)
            EXPECT_NE(std::ranges::find(texts, Letters(name), Letters), texts.end())
                << name << " was torn or lost";
    }
}

TEST(Scripts, CharactersThatNoFontHasAreTold) {
    const Program program;
    for (const auto& [names, told] :
         {std::pair{Lines{"\U000F0000 Park"},
                    "page 1: no installed font has the character U+F0000 of the listing "
                    "\"\U000F0000 Park\"; a box"},
          std::pair{Lines{"\U000F0000", "\U000F0001", "\U000F0002", "\U000F0003", "\U000F0004",
                          "\U000F0005 \U000F0006"},
                    "in all, 7 characters are in no installed font."}}) {
        WriteNames(program, "names", names);
        const auto made = program.Done(MakeTall("names", "en"));
        EXPECT_NE(made.errors.find(told), std::string::npos) << made.errors;
    }
}

}  // namespace
}  // namespace tests
