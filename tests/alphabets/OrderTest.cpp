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

constexpr char kGerman[] =
    "A|Adorf|Aerzen|Afdingen|Ä|Ärzen|A|Azendorf|O|Oderberg|Ö|Öhringen|"
    "S|Straße|Strassen|Ü|Übach|U|Uelzen";
constexpr char kGermanPhoneBook[] =
    "A|Adorf|Aerzen|Ä|Ärzen|A|Afdingen|Azendorf|O|Oderberg|Ö|Öhringen|"
    "S|Straße|Strassen|Ü|Übach|U|Uelzen";

const Alphabet kAlphabets[] = {
    // A letter with an accent is a letter of its own; thorn, ae and o with dots end the alphabet.
    {"is_IS.UTF-8",
     "A|Aðaldalur|Akranes|Á|Árbær|D|Dalvík|Dýrafjörður|Ð|Ðala|E|Eiðar|I|Ingólfshöfði|Í|Ísafjörður|"
     "O|Oddi|Ó|Ólafsvík|Y|Ystad|Ý|Ýdalir|Z|Zetland|Þ|Þingvellir|Æ|Ærlækur|Ö|Ölfus"},
    {"sv", "A|Abisko|V|Visby|Vänersborg|Z|Zinkgruvan|Å|Åmål|Åsele|Ä|Älmhult|Ö|Öland"},
    // Accents only decide between names that are the same without them, but n with tilde is a
    // letter.
    {"es",
     "Á|Álava|A|Alicante|Á|Ávila|A|Avilés|C|Chinchón|Cuenca|L|Llanes|Logroño|Lugo|"
     "N|Nájera|Navarra|Nuevo|Ñ|Ñora|Ñuñoa|O|Oviedo"},
    {"es@collation=traditional", "C|Cuenca|Chinchón|L|Logroño|Lugo|Llanes|N|Nuevo|Ñ|Ñora"},
    // Ch is a letter behind h, and its heading the first character, C.
    {"cs",
     "C|Cvikov|Č|Čáslav|Česká Lípa|H|Hodonín|C|Cheb|Chrudim|I|Ivančice|R|Rychnov|Ř|Řevnice|"
     "S|Sušice|Š|Šumperk|U|Uherský Brod|Ú|Úštěk|Z|Zlín|Ž|Žatec"},
    {"el", "Α|Αθήνα|Αλεξάνδρεια|Ά|Άργος|Β|Βόλος|Λ|Λαμία|ΛΑΡΙΣΑ|Χ|Χανιά|Ω|Ωρωπός"},
    // E with dots stands among the others, short i behind i.
    {"ru", "А|Анапа|Ё|Ёдва|Е|Елец|Ё|Ёлкино|Е|Ельня|Ж|Жуков|И|Иркутск|Й|Йошкар-Ола|Я|Якутск"},
    {"de_DE.UTF-8", kGerman},
    {"de@collation=phonebook", kGermanPhoneBook},
    {"de-u-co-phonebk", kGermanPhoneBook},
    // Aa is the last letter.
    {"da", "A|Assens|Z|Zeland|Æ|Ærø|Ø|Ølstykke|A|Aalborg|Å|Årslev"},
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

TEST(Order, FollowsTheUsersLocale) {
    const Program program;
    const Lines lines = Split(kGermanPhoneBook, '|');
    WriteNames(program, "names", NamesOf(lines));
    program.Shell("env LC_ALL= LC_COLLATE=de_DE@collation=phonebook LANG=sv_SE " +
                  std::string(GAZETTEER_PROGRAM) +
                  " make names.dbf -o names.pdf --page-size 3x60 2>&1");
    EXPECT_EQ(PrintedLines(program, "names.pdf"), lines);
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

TEST(Order, NumbersAreThoseOfTheLocale) {
    const Program program;
    support::DbfBuilder({{"LISTING", 'C', 20}, {"PAGE", 'N', 6, 1}, {"HEIGHT", 'N', 8, 2}})
        .Row({"1,5 km", "12.5", "1234.50"})
        .Row({"1,10 km", "3.0", "-0.25"})
        .Write(program.File("names.dbf"));
    // Fifteen before a hundred and ten, or one and a tenth before one and a half.
    for (const auto& [locale, lines, page] :
         {std::tuple{"en", Lines{"1,5 km 1234.5", "1,10 km -0.25"}, ". 12.5\n"},
          std::tuple{"de", Lines{"1,10 km -0,25", "1,5 km 1234,5"}, ". 12,5\n"}}) {
        auto arguments = MakeTall("names", locale);
        arguments.insert(arguments.end(), {"--set", "Listing.Expression=[Listing] [HEIGHT]$$DOTS"});
        program.Done(arguments);
        EXPECT_EQ(PrintedLines(program, "names.pdf"), lines) << locale;
        const std::string text = program.Shell("pdftotext -raw names.pdf -");
        EXPECT_NE(text.find(page), std::string::npos) << locale << "\n" << text;
    }
}

}  // namespace
}  // namespace tests
