#include "app/HelpTexts.h"

namespace app {

const char kProgramHelp[] = R"(
The main job in one step:
  gazetteer make names.dbf -o index.pdf

Step by step, with a document that keeps the settings:
  gazetteer new index.json --listing-database names.dbf
  gazetteer set index.json Listing.ColumnWidth=1.75 'Listing.Expression=[Listing]$$DOTS'
  gazetteer check index.json
  gazetteer generate index.json
  gazetteer export index.json -o index.pdf

Exit status: 0 done, 1 it could not be done, 2 wrong usage.
`gazetteer COMMAND --help` tells more about a command.)";

const char kMakeHelp[] = R"(
The listing database is a dBase table with a field Page, and as a rule Listing, Row and Column.

Beyond the default columns and properties, make sets what an index needs that goes to print:
  CombineWithNewLine=false  CombineFirstAndLast=false  AddStartingBreak=true
  *.ColumnFontSymbol=Liberation Sans,8        *.TitleFontSymbol=Liberation Sans,8,bold
  *.BreakFontSymbol=Liberation Sans,9,bold    *.TitleBackgroundSymbol=#E6E6E6
  *.MarginTop=0.003 *.MarginBottom=0.003 *.MarginLeft=0.02 *.MarginRight=0.02
  *.BreakSpacing=0.08  RepeatSpacing=0.15
  Listing.Expression=[Listing]$$DOTS
  Page.Expression=$$PAGE_NUMBER $$ROW-$$COLUMN with a no-break space, where the table has a grid
  and widths with which column groups of at least 2.1 inches fill the frame: three on a Letter sheet
and adds a running head and a sheet number to the sheet. --set comes after all of these.

Examples:
  gazetteer make names.dbf -o index.pdf
  gazetteer make names.dbf -o index.pdf --page-size a4 --locale is
  gazetteer make names.dbf -o index.pdf --set 'CombineDelimeter=; ' --set Listing.Title=Place
  gazetteer make names.dbf -o sample.png --sample)";

const char kKeysHelp[] = R"(
Keys are those that the document stores. A column's key has the column's name in front, or * for all
columns.
  SortColumns=false RepeatSpacing=0.2 'CombineDelimeter=; '   properties
  Listing.ColumnWidth=1.75 '*.MarginTop=0.01'                 column properties
  'Listing.ColumnFontSymbol=DejaVu Sans,10,bold,#B00000'      a font: FAMILY,SIZE[,bold][,#RRGGBB]
  Listing.BackgroundSymbol=#F4F4F4                            a fill: #RRGGBB
  ColumnDisplayOrder=Listing,Page                             left to right
  ColumnSortOrder=Listing,Page:off                            :off takes no part in the sort
  'Page.Expression=$$PAGE_NUMBER $$ROW-$$COLUMN'              text of a column: [Field], $$PAGE_NUMBER,
                                                              $$ROW, $$COLUMN, $$DOTS, $$NEWLINE
`gazetteer column list DOC` shows all keys of all columns. Any change drops stored results.)";

const char kColumnHelp[] = R"(
A column's name has at most 8 characters and no blank. A new column looks like the first one.
  gazetteer column add index.json Region 'Expression=[Region]' ColumnWidth=1.2
  gazetteer column remove index.json Region
  gazetteer column list index.json --json)";

const char kExportHelp[] = R"(
  gazetteer export index.json -o index.pdf              all pages, with bookmarks
  gazetteer export index.json -o index.pdf --pages 2-5
  gazetteer export index.json -o page.png               page-1.png, page-2.png, ...)";

}  // namespace app
