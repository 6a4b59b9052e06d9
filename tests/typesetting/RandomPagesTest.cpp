#include <gtest/gtest.h>
#include <random>

#include "host/LocaleRules.h"
#include "model/Typesetting.h"
#include "support/TestDesk.h"
#include "support/Text.h"
#include "typesetting/DrawnPage.h"

/// Pages of random gazetteers in the settings of a new printed index, and in others.
namespace typesetting {
namespace {

using gazetteer::Typesetting;
using support::TestDesk;
using Kind = DrawnRow::Kind;

constexpr double kFine = 0.05 / 72;  // Inches in 0.05 points.
constexpr double kSum = 1e-6;        // Inches; what sums may be off.

const char* const kLocales[] = {"de",
                                "de@collation=phonebook",
                                "cs",
                                "sk",
                                "nb",
                                "sv",
                                "es@collation=traditional",
                                "hu",
                                "tr",
                                "el",
                                "ja",
                                "ko",
                                "ar"};

// Words of several alphabets; most names begin alike, as in an index.
constexpr char kWords[] =
    "Aabenraa|Ähren|Ålesund|Ohre|Öl|Cheb|Chrudim|Čáslav|Ďáblice|Llanes|Ñora|Gyula|Csepel|İzmir|"
    "Isparta|Şişli|Αθήνα|Ωρωπός|東京|とうきょう|おおさか|서울|부산|القاهرة|بغداد|Киев|42|7th|(old)|"
    "-|"
    "Zwolle|am|bei|Saint-Georges-sur-Loire|Neustadt/Waldnaab|Donaudampfschifffahrtsgesellschaft";

struct RandomIndex {
    explicit RandomIndex(unsigned seed) : random(seed), words(gazetteer::Split(kWords, '|')) {
        locale = kLocales[static_cast<std::size_t>(Number(0, std::ssize(kLocales) - 1))];
        desk = DeskOf(locale);
        listingWidth = Number(14, 26) / 10.0;
        pageWidth = Number(6, 12) / 10.0;
        const double width = listingWidth + pageWidth + Number(0, 60) / 10.0;
        element = desk->NewGazetteer(Table(Number(1, 200)), width, Number(35, 70) / 10.0);
        const char* const families[] = {"Liberation Sans", "DejaVu Serif", "Liberation Serif"};
        const auto font = [&](int from, int to) {
            return TestDesk::Object(desk->TextSymbol(families[Number(0, 2)], Number(from, to)));
        };
        desk->Store(element, {{"Listing.Expression", "[Listing]$$DOTS"},
                              {"Page.Expression", "$$PAGE_NUMBER [Ref]"},
                              {"RepeatSpacing", Number(0, 4) / 10.0},
                              {"AddStartingBreak", true},
                              {"CombineListings", Number(0, 1) == 1},
                              {"CombineWithNewLine", false},
                              {"CombineFirstAndLast", false},
                              {"Listing.ColumnWidth", listingWidth},
                              {"Page.ColumnWidth", pageWidth},
                              {"Listing.BreakColumn", true},
                              {"Listing.BreakHeading", true},
                              {"Listing.BreakFontSymbol", font(7, 12)},
                              {"Listing.ShowTitle", Number(0, 1) == 1},
                              {"Page.ShowTitle", false}});
        const auto text = font(5, 8);
        const double above = Number(0, 3) / 100.0, below = Number(0, 3) / 100.0;
        for (const std::string column : {"Listing", "Page"})
            desk->Store(element, {{column + ".ColumnFontSymbol", text},
                                  {column + ".MarginTop", above},
                                  {column + ".MarginBottom", below}});
        settings = gazetteer::PrintTypesetting();
        if (Number(0, 2) == 0) settings.continued = "{letter} (continued)";
        if (Number(0, 1) == 0) settings.continuedAt = gazetteer::kAtColumnGroup;
        if (Number(0, 1) == 0) settings.digitsHeading = "0-9";
        if (Number(0, 3) == 0) settings.direction = gazetteer::kRightToLeft;
        settings.leaderBlanks = Number(0, 2);
        settings.keepHeadings = Number(0, 3) > 0;
        settings.balanceLastPage = Number(0, 3) > 0;
        settings.groupReferences = Number(0, 1) == 1;
        if (Number(0, 2) == 0) settings.leaderStyle = gazetteer::kPlainLeader;
        if (Number(0, 3) == 0) settings.leaderStyle = gazetteer::kNoLeader;
        gazetteer::StoreTypesetting(desk->Host(), element, settings);
        mirrored = settings.direction == gazetteer::kRightToLeft || locale == "ar";
    }

    int Number(long from, long to) {
        return std::uniform_int_distribution(static_cast<int>(from), static_cast<int>(to))(random);
    }
    std::string Table(int count) {
        TestDesk::Rows rows;
        for (int i = 0; i < count; ++i) {
            std::string name;
            for (int j = Number(1, 4); j > 0; --j)
                name += (name.empty() ? "" : " ") +
                        words[static_cast<std::size_t>(Number(0, std::ssize(words) - 1))];
            constexpr std::size_t kField = 60;  // Bytes.
            if (name.size() > kField) name.resize(name.find(' '));
            rows.push_back({name, std::to_string(i)});
        }
        return desk->ListingTable(rows);
    }
    std::string LetterOf(const std::string& text) {
        auto& letters = dynamic_cast<host::IHostIndexLetters&>(desk->Host().Locale());
        const std::string letter = letters.IndexLetter(text);
        return letter.empty() ? settings.digitsHeading : letter;
    }

    std::mt19937 random;
    std::vector<std::string> words;
    std::string locale;
    std::unique_ptr<TestDesk> desk;
    double listingWidth = 0, pageWidth = 0;
    host::Ref<host::IHostGroupElement> element;
    Typesetting settings;
    bool mirrored = false;
};

// What is known of the pages so far.
struct Reader {
    std::vector<std::string> references;  // As drawn.
    std::vector<std::string> headings;
    std::string letter;         // Of the heading read last.
    bool continues = false;     // The row before was a continuation.
    std::string listingLetter;  // Of the listing read last.
};

void ReadRow(RandomIndex& index, const DrawnRow& row, bool onTop, bool onTopOfPage,
             const std::map<std::string, std::string>& names, Reader& reader) {
    if (row.kind == Kind::Heading) {
        const std::string& text = row.First();
        if (text == reader.listingLetter + " (continued)") {
            const bool everywhere = index.settings.continuedAt == gazetteer::kAtColumnGroup;
            EXPECT_TRUE(onTop && (everywhere || onTopOfPage)) << text;
            reader.continues = true;
            return;
        }
        reader.headings.push_back(text);
        reader.letter = text;
        return;
    }
    if (row.kind != Kind::Listing) return;
    std::string& reference = reader.references.emplace_back();
    for (const DrawnText& line : row.cells[1])
        reference += (reference.empty() ? "" : " ") + line.text;
    const std::string letter = index.LetterOf(names.at(reference));
    if (std::exchange(reader.continues, false)) {
        EXPECT_EQ(letter, reader.listingLetter);
    }
    reader.listingLetter = letter;
    if (!letter.empty() && index.settings.keepHeadings) {
        EXPECT_EQ(letter, reader.letter) << names.at(reference);
    }
}

// Dots on a grid hang at the column's end. The reference stands beside the last line.
void ExpectLeaders(const RandomIndex& index, const DrawnRow& row, std::set<long>& edges) {
    const auto& name = row.cells[0];
    for (const DrawnText& piece : name) {
        const std::string dots = gazetteer::ReplaceAll(piece.text, " ", "");
        if (!IsLeader(dots) || index.settings.leaderStyle != gazetteer::kAlignedLeader) continue;
        EXPECT_EQ(piece.placement, index.mirrored ? 0 : 2);
        edges.insert(std::lround((piece.edge - row.left) / kFine));
        EXPECT_EQ(&piece, &name.back());
    }
    EXPECT_NEAR(row.cells[1].front().middle, name.back().middle, kFine);
    for (std::size_t i = 1; i < name.size(); ++i)
        EXPECT_LE(name[i].middle, name[i - 1].middle + kSum);
}

void ExpectOneGrid(const DrawnPage& page, double lineHeight, double top) {
    for (const auto& group : page.columnGroups)
        for (const DrawnRow& row : group) {
            const double lines = (top - row.top) / lineHeight;
            EXPECT_NEAR(lines, std::round(lines), kFine / lineHeight);
        }
}

// A listing leaves the frame only where it is the first of its column group.
void ExpectInFrame(const DrawnPage& page, double foot) {
    for (const auto& group : page.columnGroups) {
        bool first = true;
        for (const DrawnRow& row : group) {
            if (row.kind != Kind::Listing) continue;
            if (!std::exchange(first, false)) {
                EXPECT_GT(row.cells[0].back().middle, foot);
            }
        }
    }
}

// Lines from one baseline to the next.
double LineHeight(const std::vector<DrawnPage>& pages) {
    double least = 1000;
    for (const auto& page : pages)
        for (const auto& group : page.columnGroups)
            for (const auto& row : group)
                if (row.kind == Kind::Listing) least = std::min(least, row.top - row.foot);
    return least;
}

// A heading goes on with its first listing, so that the two count as one row.
void ExpectBalanced(const DrawnPage& page) {
    double longest = 0, shortest = 1000, heading = 0, listing = 0;
    for (const auto& rows : page.columnGroups) {
        longest = std::max(longest, rows.front().top - rows.back().foot);
        shortest = std::min(shortest, rows.front().top - rows.back().foot);
        for (const DrawnRow& row : rows) {
            double& tallest = row.kind == Kind::Heading ? heading : listing;
            tallest = std::max(tallest, row.top - row.foot);
        }
    }
    EXPECT_LE(longest - shortest, heading + listing + kSum);
}

void ExpectGoodPages(RandomIndex& index) {
    gazetteer::CVNGazetteerManager manager(index.desk->HostRef());
    manager.SetIndexElement(index.element);
    ASSERT_EQ(index.desk->Dialogs().LastCause(), "");
    const auto cells = TestDesk::SetIn(*manager.Working().listings, "Page")->AllItems();
    const auto listings = TestDesk::SetIn(*manager.Working().listings, "Listing")->AllItems();
    std::map<std::string, std::string> names;
    std::vector<std::string> all;
    for (std::size_t i = 0; i < cells.names.size(); ++i) {
        all.push_back(std::get<std::string>(cells.values[i]));
        names[all.back()] = std::get<std::string>(listings.values[i]);
    }

    Reader reader;
    std::vector<DrawnPage> pages;
    std::set<long> edges;
    for (std::int32_t number = 1; number <= manager.Working().pageCount; ++number) {
        manager.SetIndexToPageNumber(number);
        ASSERT_EQ(index.desk->Dialogs().LastCause(), "");
        pages.emplace_back(*index.desk, *index.element, index.mirrored);
        const std::size_t before = reader.references.size();
        bool onTopOfPage = true;
        for (const auto& group : pages.back().columnGroups) {
            if (index.settings.keepHeadings) {
                EXPECT_NE(group.back().kind, Kind::Heading) << "page " << number;
            }
            bool onTop = true;
            for (const DrawnRow& row : group) {
                ReadRow(index, row, onTop, onTopOfPage, names, reader);
                if (row.kind == Kind::Title) continue;
                onTop = onTopOfPage = false;
                if (row.kind == Kind::Listing) ExpectLeaders(index, row, edges);
            }
        }
        const auto rows = TestDesk::SetIn(*manager.Working().pageGroups, std::to_string(number));
        EXPECT_EQ(reader.references.size() - before, static_cast<std::size_t>(rows->Count()));
    }
    if (index.settings.balanceLastPage && index.settings.keepHeadings) ExpectBalanced(pages.back());
    EXPECT_EQ(reader.references, all);
    const std::set<std::string> letters(reader.headings.begin(), reader.headings.end());
    EXPECT_EQ(letters.size(), reader.headings.size()) << testing::PrintToString(reader.headings);
    EXPECT_LE(edges.size(), 1U);
    const auto frame = index.element->Geometry()->Bounds();
    for (const DrawnPage& page : pages) {
        ExpectOneGrid(page, LineHeight(pages), frame->YMax());
        ExpectInFrame(page, frame->YMin());
    }
}

TEST(RandomPages, KeepWhatTheirSettingsPromise) {
    for (unsigned seed = 1; seed <= 60; ++seed) {
        RandomIndex index(seed);
        SCOPED_TRACE("seed " + std::to_string(seed) + ", " + index.locale);
        ExpectGoodPages(index);
        if (HasFatalFailure()) return;
    }
}

// In another order a letter would come up again and again.
TEST(Letters, HoldWhereListingsAreSortedByThem) {
    for (const auto& [first, headings] :
         {std::pair{"Listing", std::vector<std::string>{"A"}}, {"Page", {"A", "Ä", "A"}}}) {
        const auto desk = DeskOf("de");
        const auto element = desk->NewGazetteer(
            desk->ListingTable({{"Ahlen", "1"}, {"Ärzen", "2"}, {"Aurich", "3"}}), 4, 4);
        const auto order = desk->Host().NewPropertySet();
        for (const char* column : {"Listing", "Page"})
            order->SetItem(column, std::string(column) == first);
        desk->Store(element, {{"ColumnSortOrder", TestDesk::Object(order)},
                              {"AddStartingBreak", true},
                              {"Page.Expression", "[Ref]"},
                              {"Listing.BreakColumn", true},
                              {"Listing.BreakHeading", true}});
        gazetteer::StoreTypesetting(desk->Host(), element, gazetteer::PrintTypesetting());
        gazetteer::CVNGazetteerManager manager(desk->HostRef());
        manager.SetIndexElement(element);
        manager.SetIndexToPageNumber(1);
        EXPECT_EQ(TestDesk::DrawnTexts(*element, 0, "BREAKGROUP"), headings) << first;
    }
}

// Rows of one height, a heading as high as two of them, none of them behind the last.
TEST(LastPage, EndsItsColumnGroupsWithinARow) {
    for (const int count : {2, 3, 7, 10, 11, 31, 62, 63, 64, 100}) {
        SCOPED_TRACE(count);
        TestDesk desk;
        TestDesk::Rows rows;
        for (int i = 0; i < count; ++i)
            rows.push_back({"Name " + std::to_string(i), std::to_string(i)});
        const auto element = desk.NewGazetteer(desk.ListingTable(rows), 6.4, 4);
        desk.Store(element, {{"Listing.ColumnWidth", 1.0},
                             {"Page.ColumnWidth", 0.5},
                             {"Page.Expression", "[Ref]"},
                             {"Listing.BreakColumn", false},
                             {"CombineListings", false}});
        gazetteer::StoreTypesetting(desk.Host(), element, gazetteer::PrintTypesetting());
        gazetteer::CVNGazetteerManager manager(desk.HostRef());
        manager.SetIndexElement(element);
        const std::int32_t last = manager.Working().pageCount;
        manager.SetIndexToPageNumber(last);
        const DrawnPage page(desk, *element, false);
        const auto left = TestDesk::SetIn(*manager.Working().pageGroups, std::to_string(last));
        EXPECT_EQ(page.columnGroups.size(), std::min<std::size_t>(4, left->Count()));
        std::size_t least = 1000, most = 0;
        for (const auto& group : page.columnGroups) {
            const auto listings =
                static_cast<std::size_t>(std::ranges::count(group, Kind::Listing, &DrawnRow::kind));
            least = std::min(least, listings);
            most = std::max(most, listings);
        }
        EXPECT_LE(most - least, 1U);
    }
}

}  // namespace
}  // namespace typesetting
