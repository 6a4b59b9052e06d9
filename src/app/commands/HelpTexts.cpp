#include "app/commands/HelpTexts.h"

#include <algorithm>

#include "model/KeyNames.h"
#include "model/Keys.h"
#include "model/TypesettingKeys.h"

namespace app {
namespace {

using gazetteer::ValueKind;

struct HelpRow {
    std::string_view command;
    const char* text;
};

constexpr HelpRow kTexts[] = {
    {"gazetteer", R"(
The main job in one step:
  gazetteer make names.dbf -o index.pdf

Step by step, with a document that keeps the settings:
  gazetteer new index.json --listing-database names.dbf
  gazetteer set index.json Listing.ColumnWidth=1.75 'Listing.Expression=[Listing]$$DOTS'
  gazetteer check index.json
  gazetteer generate index.json
  gazetteer export index.json -o index.pdf

Exit status: 0 done, 1 it could not be done, 2 wrong usage.
`gazetteer COMMAND --help` tells more about a command.)"},
    {"make", R"(
The listing database is a table with a field Page, and as a rule Listing, Row and Column: a dBase
file or, with the package gazetteer-gdal, any other that GDAL reads, such as names.csv,
atlas.gpkg/streets (a layer) or PG:dbname=atlas/streets (a PostGIS server).

Beyond the default columns and properties, make sets what an index needs that goes to print:
  CombineWithNewLine=false  CombineFirstAndLast=false  AddStartingBreak=true
  *.ColumnFontSymbol=Liberation Sans,8        *.TitleFontSymbol=Liberation Sans,8,bold
  *.BreakFontSymbol=Liberation Sans,9,bold    *.TitleBackgroundSymbol=#E6E6E6
  *.MarginTop=0.003 *.MarginBottom=0.003 *.MarginLeft=0.02 *.MarginRight=0.02
  *.BreakSpacing=0.08  RepeatSpacing=0.15
  Listing.Expression=[Listing]$$DOTS
  Page.Expression=$$PAGE_NUMBER $$ROW-$$COLUMN with a no-break space, where the table has a grid
  and widths with which column groups of at least 2.1 inches fill the frame: three on a Letter sheet
and adds a running head and a sheet number to the sheet. --set comes after all of these. The document
keeps the locale and the size.

What would be wrong in print is told as warnings (see check). With --strict no file is written then.

Examples:
  gazetteer make names.dbf -o index.pdf
  gazetteer make names.dbf -o index.pdf --page-size a4 --locale is
  gazetteer make names.dbf -o index.pdf --page-size 148x210mm --columns 2 --first-page 97
  gazetteer make names.dbf -o index.pdf --set 'CombineDelimeter=; ' --set Listing.Title=Place
  gazetteer make names.dbf -o index.pdf --maps atlas.pdf         links to the pages of the maps
  gazetteer make names.dbf -o book.pdf --append-to atlas.pdf     maps and index in one file
  gazetteer make names.dbf -o sample.png --sample)"},
    {"new", R"(
Where the table has a field Listing the columns are Listing and Page, else Page alone.
  gazetteer new index.json --listing-database names.dbf --page-size 6x9 --set SortColumns=false

A document that belongs to a map book can show the book's page numbers and grid labels:
  gazetteer new atlas.json --listing-database names.dbf --book book.json
  gazetteer set atlas.json LinkToMapSeries=true MapSeriesSectionKey=maps \
      MapSeriesTemplateKey=sheet 'MapSeriesFrameName=Main map' Page.FromDatabase=false)"},
    {"set", R"(
Keys are those that the document stores. A column's key has the column's name in front, or * for all
columns. The value is all that follows the first =, blanks included.
  gazetteer set index.json SortColumns=false RepeatSpacing=0.2 'CombineDelimeter=; '
  gazetteer set index.json Listing.ColumnWidth=1.75 '*.MarginTop=0.01'
  gazetteer set index.json 'Listing.ColumnFontSymbol=DejaVu Sans,10,bold,#B00000'
  gazetteer set index.json '*.BackgroundSymbol=#F4F4F4' Page.Alignment=Right
  gazetteer set index.json ColumnDisplayOrder=Listing,Page ColumnSortOrder=Listing,Page:off
  gazetteer set index.json 'Page.Expression=$$PAGE_NUMBER $$ROW-$$COLUMN'
  gazetteer set index.json Typesetting.KeepHeadings=true 'Typesetting.Continued={letter} (continued)'
Typesetting=none brings back the plain rules.
A colour is #RRGGBB or, for a press, an ink: cmyk(0,100,80,10) in percent, or spot(NAME), which may tell what
stands in for it on process plates and on a screen: spot(Reflex Blue, cmyk(100,80,0,5), #001489).
An expression is text with [Field], $$PAGE_NUMBER, $$ROW, $$COLUMN, $$DOTS and $$NEWLINE.
Any change drops stored results. `gazetteer column list DOC` shows the values of all columns.
DefaultPage is the page that the window shows first; it changes no number. The number printed on the
first sheet is that of --first-page.
  gazetteer set index.json --first-page 97 --title 'Index of Streets' --locale de
On another --page-size the frame keeps its margins. The running head and the sheet number stand beside
the frame, in the typeface of the first column unless they have a font of their own.
  gazetteer set index.json --page-size a5 --head 'Streets $$FIRST to $$LAST' --number-font 'DejaVu Sans,7'
  gazetteer set index.json --head '' --sheet-number false
)"},
    {"column", R"(
A column's name has at most 8 characters and no blank. A new column looks like the first one.
  gazetteer column add index.json Region 'Expression=[Region]' ColumnWidth=1.2
  gazetteer column remove index.json Region
  gazetteer column list index.json --json)"},
    {"check", R"(
  gazetteer check index.json --json      {"drawable": true, "reasons": [], "findings": [...]}
The exit status is 0 in any case. Findings tell what would be wrong on the printed pages; of each kind
the first five are told, and how many there are. The JSON has the first hundred of each kind, and how
many there are under "findingCounts".
  outside-sheet, outside-frame   a listing stands off the sheet, or out of the gazetteer's frame
  missing-field                  the table has no field Page, Row or Column, but it is printed, as 0
  empty-value                    a record has an empty listing, page, row or column that is printed
  broken-word                    a word is longer than a line of its column
  heading-left-out               a letter heading found no room
  heading-alone                  a letter heading stands at the foot, without a listing below it
  missing-character              no font has a character; a box is printed
  missing-font                   a font is not installed; another stands in for it
  no-place                       a listing stands on no page
  outside-grid                   a record's row or column is beyond the grid of the linked map
  old-results                    the table or the map book has changed since the pages were made
  table-fault                    the table's file lacks records, or its texts may be read wrongly
  unknown-token                  an expression has a word behind "$$" that is no token
  overlap                        column groups print over each other
  no-target                      a reference leads to no page of the maps (--maps, --append-to)
make, generate, export, draw and show tell them, too; export, make and draw take --strict.)"},
    {"generate", R"(
  gazetteer generate index.json
The results are stored in the document; later commands reload them, and generate makes them anew where
the table or the map book has changed since. Any `set` or `column add` drops
them. With AutoRefreshListings=true nothing is stored, and every command runs anew.)"},
    {"show", R"(
  gazetteer show index.json
  gazetteer show index.json --json       with every listing; its rows are those of the pages
A gazetteer that cannot be drawn is shown as {"drawable": false, ...}; `check` says why.)"},
    {"draft", R"(
  gazetteer draw index.json --page 3     the page stands in the document
  gazetteer draft index.json             and is taken away again; the results stay)"},
    {"draw", R"(
  gazetteer draw index.json --page 3                 the page stands in the document, which is saved
  gazetteer draw index.json --page 3 -o page.png     an image of the sheet
  gazetteer draw index.json --page 3 --json          texts, fonts, fills and places in inches
`export` writes all pages at once.)"},
    {"export", R"(
  gazetteer export index.json -o index.pdf              all pages, with bookmarks
  gazetteer export index.json -o index.pdf --strict     no file where anything would be wrong
  gazetteer export index.json -o index.pdf --pages 2-5
  gazetteer export index.json -o book.pdf --append-to atlas.pdf
  gazetteer export index.json -o index.pdf --press coated.icc --bleed 3mm --crop-marks
  gazetteer export index.json -o page.png               page-1.png, page-2.png, ...
A PDF for a press is PDF/X-4: black text on the black plate alone, spot colours on their own plates, other
colours with the inks that come closest. It is dated by SOURCE_DATE_EPOCH, else by its newest input, and has
no tags.)"},
    {"table", R"(
  gazetteer table names.dbf --limit 5
The encoding of a dBase table is taken from a .cpg file beside it, else from its header. Warnings tell
of records that are missing or damaged.)"},
    {"import", R"(
  gazetteer import places.gpkg --listing name --page blatt --row zeile --column spalte -o names.dbf
  gazetteer import places.xlsx --layer Sheet1 --where "kind = 'town'" --keep region -o names.csv
Without --listing, --page, --row and --column the fields Listing, Page, Row and Column of the source are
taken. A source is any table that GDAL reads, such as a GeoPackage, a Shapefile, CSV, GeoJSON, XLSX, ODS
or PostGIS ("PG:dbname=atlas/places").)"},
    {"locate", R"(
  gazetteer locate streets.gpkg --name name --sheets atlas.gpkg/sheets --grid 8x10 -o names.dbf
  gazetteer locate streets.gpkg --set Kind=street parks.gpkg --name title --set Kind=park \
                   --sheets atlas.gpkg/sheets --page blatt --grid 8x10 -o names.dbf
--name, --where and --set behind a source belong to it, before all sources to each. Sheets are rectangles
in any rotation, with a field of the page; those that overlap give a reference each. The top of a sheet is
the side whose middle lies highest. A square owns its upper and left border, the last row and column their
outer border, too. A line that only touches a square is not listed under it; of squares with equal parts of
it the upper, then the left one is taken. Features of other reference systems are transformed to that of the
sheets. --json prints {"features": 2, "unnamed": 0, "withoutPlace": 0, "withoutLength": 0, "outside": 0,
"inNoSquare": 0, "broken": 0, "mended": 0, "listings": 2, "references": 3, "emptySheets": []}.)"},
    {"book", R"(
  gazetteer book new book.json --sheets sheets.dbf --start-page 5 --row-labels A..F
A map book tells on which page of the book a map sheet stands, and what its grid squares are called.
`new` and `make` take it with --book.)"},
    {"component", R"(
  gazetteer component uninstall
  gazetteer component install
The desk's window shows the property page for as long as it is entered. The window enters the component
of its own installation by itself, unless it was taken out. The component's library is
looked for as ../lib/gazetteer/libCVNGazetteer.so beside the program, and loaded for this command
alone. The list of what is entered is gazetteer-desk/components.json in your data folder.)"},
};

std::string FormOf(std::string_view key, ValueKind kind) {
    if (key == gazetteer::keys::kAlignment || key == gazetteer::keys::kTitleAlignment)
        return "Left, Center, Right, Justify";
    switch (kind) {
        case ValueKind::Boolean:
            return "true, false";
        case ValueKind::Integer:
        case ValueKind::Long:
            return "whole number";
        case ValueKind::Double:
            return "inches";
        case ValueKind::TextSymbol:
            return "FAMILY,SIZE[,bold][,italic][,COLOUR]";
        case ValueKind::FillSymbol:
            return "COLOUR";
        case ValueKind::Set:
            return "all columns, with commas";
        case ValueKind::String:
            break;
    }
    return "text";
}

std::string FormOf(const gazetteer::TypesettingKey& key) {
    if (key.most > 0) return "whole number from 0 to " + std::to_string(key.most);
    std::string form;
    for (const char* const choice : key.Choices())
        form += (form.empty() ? "" : ", ") + std::string(choice);
    return form.empty() ? FormOf(key.name, key.kind) : form;
}

std::string FormOf(const auto& key) {
    return FormOf(key.name, key.kind);
}

// Returns the keys that a user may set, one per line, with the form of their values.
std::string Lines(const auto& table) {
    constexpr std::size_t kFormsFrom = 29;
    std::string text;
    for (const auto& key : table) {
        if (key.writer == gazetteer::Writer::Run) continue;
        std::string line = std::string("\n  ") + key.name;
        line.resize(std::max(line.size() + 1, kFormsFrom), ' ');
        text += line + FormOf(key);
    }
    return text;
}

}  // namespace

std::string HelpText(std::string_view command) {
    const auto* const row = std::ranges::find(kTexts, command, &HelpRow::command);
    if (row == std::end(kTexts)) return {};
    if (command != "set") return row->text;
    return std::string(row->text) + "\nProperties:" + Lines(gazetteer::PropertyKeys()) +
           "\n\nProperties of a column:" + Lines(gazetteer::ColumnKeys()) +
           "\n\nProperties of typesetting:" + Lines(gazetteer::TypesettingKeys());
}

}  // namespace app
