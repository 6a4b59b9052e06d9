#include <algorithm>
#include <gtest/gtest.h>

#include "alphabets/Index.h"

namespace tests {
namespace {

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
    Lines printed;  ///< Headings and names, as the language's own dictionaries order them.
};

const Lines kGerman{"A",     "Adorf",       "Aerzen",   "Afdingen", "\u00C4",     "\u00C4rzen",
                    "A",     "Azendorf",    "O",        "Oderberg", "\u00D6",     "\u00D6hringen",
                    "S",     "Stra\u00DFe", "Strassen", "\u00DC",   "\u00DCbach", "U",
                    "Uelzen"};
const Lines kGermanPhoneBook{"A",      "Adorf",         "Aerzen",   "\u00C4",      "\u00C4rzen",
                             "A",      "Afdingen",      "Azendorf", "O",           "Oderberg",
                             "\u00D6", "\u00D6hringen", "S",        "Stra\u00DFe", "Strassen",
                             "\u00DC", "\u00DCbach",    "U",        "Uelzen"};

const Alphabet kAlphabets[] = {
    // A letter with an accent is a letter of its own; thorn, ae and o with dots end the alphabet.
    {"is_IS.UTF-8",
     {"A",
      "A\u00F0aldalur",
      "Akranes",
      "\u00C1",
      "\u00C1rb\u00E6r",
      "D",
      "Dalv\u00EDk",
      "D\u00FDrafj\u00F6r\u00F0ur",
      "\u00D0",
      "\u00D0ala",
      "E",
      "Ei\u00F0ar",
      "I",
      "Ing\u00F3lfsh\u00F6f\u00F0i",
      "\u00CD",
      "\u00CDsafj\u00F6r\u00F0ur",
      "O",
      "Oddi",
      "\u00D3",
      "\u00D3lafsv\u00EDk",
      "Y",
      "Ystad",
      "\u00DD",
      "\u00DDdalir",
      "Z",
      "Zetland",
      "\u00DE",
      "\u00DEingvellir",
      "\u00C6",
      "\u00C6rl\u00E6kur",
      "\u00D6",
      "\u00D6lfus"}},
    {"sv",
     {"A", "Abisko", "V", "Visby", "V\u00E4nersborg", "Z", "Zinkgruvan", "\u00C5", "\u00C5m\u00E5l",
      "\u00C5sele", "\u00C4", "\u00C4lmhult", "\u00D6", "\u00D6land"}},
    // Accents only decide between names that are the same without them, but n with tilde is a
    // letter.
    {"es", {"\u00C1",      "\u00C1lava",      "A",      "Alicante",
            "\u00C1",      "\u00C1vila",      "A",      "Avil\u00E9s",
            "C",           "Chinch\u00F3n",   "Cuenca", "L",
            "Llanes",      "Logro\u00F1o",    "Lugo",   "N",
            "N\u00E1jera", "Navarra",         "Nuevo",  "\u00D1",
            "\u00D1ora",   "\u00D1u\u00F1oa", "O",      "Oviedo"}},
    {"es@collation=traditional",
     {"C", "Cuenca", "Chinch\u00F3n", "L", "Logro\u00F1o", "Lugo", "Llanes", "N", "Nuevo", "\u00D1",
      "\u00D1ora"}},
    // Ch is a letter behind h, and its heading the first character, C.
    {"cs",
     {"C",
      "Cvikov",
      "\u010C",
      "\u010C\u00E1slav",
      "\u010Cesk\u00E1 L\u00EDpa",
      "H",
      "Hodon\u00EDn",
      "C",
      "Cheb",
      "Chrudim",
      "I",
      "Ivan\u010Dice",
      "R",
      "Rychnov",
      "\u0158",
      "\u0158evnice",
      "S",
      "Su\u0161ice",
      "\u0160",
      "\u0160umperk",
      "U",
      "Uhersk\u00FD Brod",
      "\u00DA",
      "\u00DA\u0161t\u011Bk",
      "Z",
      "Zl\u00EDn",
      "\u017D",
      "\u017Datec"}},
    {"el",
     {"\u0391", "\u0391\u03B8\u03AE\u03BD\u03B1",
      "\u0391\u03BB\u03B5\u03BE\u03AC\u03BD\u03B4\u03C1\u03B5\u03B9\u03B1", "\u0386",
      "\u0386\u03C1\u03B3\u03BF\u03C2", "\u0392", "\u0392\u03CC\u03BB\u03BF\u03C2", "\u039B",
      "\u039B\u03B1\u03BC\u03AF\u03B1", "\u039B\u0391\u03A1\u0399\u03A3\u0391", "\u03A7",
      "\u03A7\u03B1\u03BD\u03B9\u03AC", "\u03A9", "\u03A9\u03C1\u03C9\u03C0\u03CC\u03C2"}},
    // E with dots stands among the others, short i behind i.
    {"ru",
     {"\u0410", "\u0410\u043D\u0430\u043F\u0430", "\u0401", "\u0401\u0434\u0432\u0430", "\u0415",
      "\u0415\u043B\u0435\u0446", "\u0401", "\u0401\u043B\u043A\u0438\u043D\u043E", "\u0415",
      "\u0415\u043B\u044C\u043D\u044F", "\u0416", "\u0416\u0443\u043A\u043E\u0432", "\u0418",
      "\u0418\u0440\u043A\u0443\u0442\u0441\u043A", "\u0419",
      "\u0419\u043E\u0448\u043A\u0430\u0440-\u041E\u043B\u0430", "\u042F",
      "\u042F\u043A\u0443\u0442\u0441\u043A"}},
    {"de_DE.UTF-8", kGerman},
    {"de@collation=phonebook", kGermanPhoneBook},
    {"de-u-co-phonebk", kGermanPhoneBook},
    // Aa is the last letter.
    {"da",
     {"A", "Assens", "Z", "Zeland", "\u00C6", "\u00C6r\u00F8", "\u00D8", "\u00D8lstykke", "A",
      "Aalborg", "\u00C5", "\u00C5rslev"}},
    // I with and without a dot are two letters.
    {"tr",
     {"C", "Cizre", "\u00C7", "\u00C7orum", "I", "Isparta", "\u0130", "\u0130stanbul", "izmir", "S",
      "Sivas", "\u015E", "\u015Ei\u015Fli"}},
    {"sr_RS.UTF-8@latin",
     {"\u010C", "\u010Ca\u010Dak", "D", "Dunav", "D\u017Eep", "\u0110", "\u0110ur\u0111evo", "L",
      "Lu\u010Dani", "Ljig", "N", "Ni\u0161", "Njegu\u0161i"}},
};

TEST(Order, IsThatOfTheAlphabet) {
    const Program program;
    for (const Alphabet& alphabet : kAlphabets) {
        WriteNames(program, "names", NamesOf(alphabet.printed));
        program.Done(MakeTall("names", alphabet.locale));
        EXPECT_EQ(PrintedLines(program, "names.pdf"), alphabet.printed) << alphabet.locale;
    }
}

TEST(Order, FollowsTheUsersLocale) {
    const Program program;
    WriteNames(program, "names", NamesOf(kGerman));
    for (const auto& [environment, printed] :
         {std::pair{"LC_ALL=de_DE@collation=phonebook", kGermanPhoneBook},
          std::pair{"LC_ALL= LC_COLLATE=de_DE@collation=phonebook LANG=sv_SE", kGermanPhoneBook},
          std::pair{"LC_ALL= LC_COLLATE= LANG=de_DE.UTF-8", kGerman}}) {
        program.Shell("env " + std::string(environment) + " " + GAZETTEER_PROGRAM +
                      " make names.dbf -o names.pdf --page-size 3x60 2>&1");
        EXPECT_EQ(PrintedLines(program, "names.pdf"), printed) << environment;
    }
}

// A column of the letter that a name is filed under, in the colour of the paper, carries the
// headings in place of the names: a letter has one heading then, whatever accents it has.
TEST(Order, HeadingsOfAColumnOfTheirOwn) {
    const Program program;
    support::DbfBuilder dbf({{"LISTING", 'C', 20}, {"PAGE", 'N', 4}, {"INITIAL", 'C', 2}});
    for (const char* name : {"\u00C1vila", "Alicante", "\u00C1lava", "Avil\u00E9s"})
        dbf.Row({name, "1", "A"});
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
              (Lines{"A", "A \u00C1lava", "A Alicante", "A \u00C1vila", "A Avil\u00E9s", "B",
                     "B Burgos"}));
}

TEST(Order, NumbersAreThoseOfTheLocale) {
    const Program program;
    // Fifteen before a hundred and ten, or one and a tenth before one and a half.
    const Lines english{"1,5 km", "1,10 km"};
    const Lines german{"1,10 km", "1,5 km"};
    support::DbfBuilder({{"LISTING", 'C', 20}, {"PAGE", 'N', 6, 1}, {"HEIGHT", 'N', 8, 2}})
        .Row({"1,5 km", "12.5", "1234.50"})
        .Row({"1,10 km", "3.0", "-0.25"})
        .Write(program.File("names.dbf"));
    for (const auto& [locale, lines, numbers] :
         {std::tuple{"en", english, Lines{" 12.5", " 3", "1234.5", "-0.25"}},
          std::tuple{"de", german, Lines{" 12,5", " 3", "1234,5", "-0,25"}},
          std::tuple{"fr_FR.UTF-8", german, Lines{" 12,5", " 3", "1234,5", "-0,25"}}}) {
        auto arguments = MakeTall("names", locale);
        program.Done(arguments);
        EXPECT_EQ(PrintedLines(program, "names.pdf"), lines) << locale;
        arguments.insert(arguments.end(), {"--set", "Listing.Expression=[Listing] [HEIGHT]$$DOTS"});
        program.Done(arguments);
        const std::string text = program.Shell("pdftotext -raw names.pdf -");
        for (const auto& number : numbers)
            EXPECT_NE(text.find(number), std::string::npos) << locale << number << "\n" << text;
    }
}

}  // namespace
}  // namespace tests
