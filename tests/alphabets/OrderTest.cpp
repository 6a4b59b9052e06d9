#include <algorithm>
#include <gtest/gtest.h>

#include "alphabets/Index.h"
#include "support/Text.h"

namespace tests {
namespace {

using gazetteer::Split;
using Lines = std::vector<std::string>;

bool IsHeading(const std::string& line) {
    return std::ranges::count_if(line, [](char c) { return (c & 0xC0) != 0x80; }) == 1;
}

Lines NamesOf(Lines lines) {
    std::erase_if(lines, IsHeading);
    return lines;
}

struct Alphabet {
    const char* locale;
    const char* printed;  ///< Headings and names, as the language's own dictionaries order them.
};

constexpr char kGermanPhoneBook[] =
    "A|Adorf|Aerzen|Ä|Ärzen|A|Afdingen|Azendorf|O|Oderberg|Ö|Öhringen|"
    "S|Straße|Strassen|Ü|Übach|U|Uelzen";

const Alphabet kAlphabets[] = {
    // A letter with an accent is a letter of its own; thorn, ae and o with dots end the alphabet.
    {"is_IS.UTF-8",
     "A|Aðaldalur|Akranes|Á|Árbær|D|Dalvík|Dýrafjörður|Ð|Ðala|E|Eiðar|I|Ingólfshöfði|Í|Ísafjörður|"
     "O|Oddi|Ó|Ólafsvík|Y|Ystad|Ý|Ýdalir|Z|Zetland|Þ|Þingvellir|Æ|Ærlækur|Ö|Ölfus"},
    // Accents only decide between names that are the same without them, but n with tilde is a
    // letter.
    {"es",
     "Á|Álava|A|Alicante|Á|Ávila|A|Avilés|C|Chinchón|Cuenca|L|Llanes|Logroño|Lugo|"
     "N|Nájera|Navarra|Nuevo|Ñ|Ñora|Ñuñoa|O|Oviedo"},
    // Ch is a letter behind h, and its heading the first character, C.
    {"cs",
     "C|Cvikov|Č|Čáslav|Česká Lípa|H|Hodonín|C|Cheb|Chrudim|I|Ivančice|R|Rychnov|Ř|Řevnice|"
     "S|Sušice|Š|Šumperk|U|Uherský Brod|Ú|Úštěk|Z|Zlín|Ž|Žatec"},
    {"de@collation=phonebook", kGermanPhoneBook},
    {"de-u-co-phonebk", kGermanPhoneBook},
    // I with and without a dot are two letters.
    {"tr", "C|Cizre|Ç|Çorum|I|Isparta|İ|İstanbul|izmir|S|Sivas|Ş|Şişli"},
    {"sr_RS.UTF-8@latin", "Č|Čačak|D|Dunav|Džep|Đ|Đurđevo|L|Lučani|Ljig|N|Niš|Njeguši"},
};

TEST(Order, IsThatOfTheAlphabet) {
    const Program program;
    for (const auto& [locale, printed] : kAlphabets) {
        const Lines lines = Split(printed, '|');
        WriteNames(program, "names", NamesOf(lines));
        program.Done(MakeTall("names", locale));
        EXPECT_EQ(PrintedLines(program, "names.pdf"), lines) << locale;
    }
}

// A column of the letter that a name is filed under, in the colour of the paper, carries the
// headings in place of the names: a letter has one heading then, whatever accents it has.
TEST(Order, HeadingsOfAColumnOfTheirOwn) {
    const Program program;
    support::DbfBuilder dbf({{"LISTING", 'C', 20}, {"PAGE", 'N', 4}, {"INITIAL", 'C', 2}});
    for (const char* name : {"Ávila", "Alicante", "Álava", "Avilés"}) dbf.Row({name, "1", "A"});
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
              (Lines{"A", "A Álava", "A Alicante", "A Ávila", "A Avilés", "B", "B Burgos"}));
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

}  // namespace
}  // namespace tests
