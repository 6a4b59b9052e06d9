#!/bin/bash
# walk.sh BUILD: installs the programs of a release build and uses them as a new user would, from the
# installed documents to the property page, in a home of their own and on a display of its own.
set -euo pipefail
build=$(realpath "$1")
work=$(mktemp -d)
display=:$((1000 + $$ % 30000))
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$work"' EXIT
cmake --install "$build" --component program --prefix "$work/usr" >/dev/null
documents=$work/usr/share/doc/gazetteer
mkdir "$work/home"
export HOME=$work/home XDG_RUNTIME_DIR=$work PATH=$work/usr/bin:$PATH LC_ALL=C.UTF-8
unset GAZETTEER_GDAL_BUILD XDG_DATA_HOME XDG_CONFIG_HOME QT_QPA_PLATFORM
cd "$HOME"

fail() {
    echo "$*" >&2
    exit 1
}
# refused STATUS WORDS COMMAND...: the command ends with the status and says the words.
refused() {
    local status=$1 words=$2 told got=0
    shift 2
    told=$("$@" 2>&1) || got=$?
    [ $got -eq "$status" ] || fail "$* ends with $got, not $status: $told"
    [[ $told == *"$words"* ]] || fail "$* does not say \"$words\": $told"
}

# Every link of the installed documents leads somewhere.
while read -r page; do
    links=$(grep -oE '\]\([^)#: ]+' "$page" | cut -c 3- | grep -v '^http' || true)
    for link in $links; do
        [ -e "$(dirname "$page")/$link" ] || fail "${page#"$work"/usr/} links to $link"
    done
done < <(find "$documents" -name '*.md')

# A first index; the same document anywhere and in any language.
cp "$documents"/examples/{streets,atlas,atlas-sheets}.* .
gazetteer make streets.dbf -o index.pdf --document index.json --locale sv --page-size a5 \
    --first-page 97 --title 'Street Index' 2>told
qpdf --check index.pdf >/dev/null
pdftotext -l 1 index.pdf - | grep -x 97 >/dev/null
mkdir moved
cp index.json streets.dbf moved
LC_ALL=C gazetteer export moved/index.json -o moved/index.pdf 2>/dev/null
cmp index.pdf moved/index.pdf

# What is wrong is told before it is printed, and nothing is written over.
gazetteer set index.json Listing.ColumnWidth=15 2>/dev/null
gazetteer check index.json | grep 'off the sheet' >/dev/null
refused 1 '--strict' gazetteer export index.json -o wrong.pdf --strict
[ ! -e wrong.pdf ] || fail "--strict wrote a file"
refused 2 'Did you mean "ColumnWidth"?' gazetteer set index.json Listing.ColumWidth=1
ln -s streets.dbf link.pdf
refused 2 'cannot be written' gazetteer export index.json -o link.pdf

mkdir made
cp streets.dbf made/index-1.png
refused 2 'cannot be written' gazetteer make made/index-1.png -o made/index.png

# Odd and hostile input: one sentence, and no file.
python3 -c 'print("[" * 10100 + "]" * 10100)' >deep.json
refused 1 'too deep' gazetteer make streets.dbf -o deep.pdf --book deep.json
[ ! -e deep.pdf ] || fail "a wrong book wrote a file"
mkfifo pipe
refused 1 'pipe' gazetteer check pipe
refused 1 'cannot be written' bash -c 'gazetteer --help >/dev/full'
for length in inf 1e15 -1e300 10000; do
    refused 2 'ColumnWidth' gazetteer set index.json "Listing.ColumnWidth=$length"
done

# What people type.
gazetteer make streets.dbf -o typed.pdf --page-size tabloid --columns 2 --title 'Street Index' \
    --set 'Listing.ColumnFontSymbol=DejaVu Sans,9,italic' --head-font 'DejaVu Serif,8' 2>/dev/null
pdffonts typed.pdf | grep -i oblique >/dev/null
gazetteer make streets.dbf -o typed.png --dpi 50 --page-size 4x4 2>/dev/null
file typed*.png | grep '200 x 200' >/dev/null
refused 2 'Did you mean "CombineDelimeter"?' gazetteer set index.json 'CombineDelimiter=; '
refused 2 'Did you mean "--page-size"?' gazetteer make streets.dbf -o o.pdf --pagesize a4

# For the press: black alone, the printed page numbers, the language.
qpdf --qdf --object-streams=disable index.pdf - | strings >whole
! grep -E ' (rg|RG|k|K)$' whole || fail "black text is printed in colours"
grep '/Lang (sv' whole >/dev/null
pdfinfo -meta index.pdf | grep 'Street Index' >/dev/null
qpdf --json index.pdf | python3 -c 'import json, sys
labels = json.load(sys.stdin)["pagelabels"]
sys.exit(labels[0]["label"]["/St"] != 97)'

# A map book to start from, and one that lost its section.
gazetteer book new book.json --sheets atlas-sheets.dbf --start-page 5
gazetteer make atlas.dbf -o atlas.pdf --book book.json --set LinkToMapSeries=true \
    --set MapSeriesSectionKey=maps --set MapSeriesTemplateKey=sheet \
    --set 'MapSeriesFrameName=Main map' --set Page.FromDatabase=false 2>/dev/null
pdftotext -layout atlas.pdf - | grep 'Reykjavík[ .]*7.C-5' >/dev/null

# A table of a GIS, which a library of its own reads.
cat >places.geojson <<'END'
{"type": "FeatureCollection", "features": [
{"type": "Feature", "properties": {"Listing": "Žižkov", "Page": 7, "Row": 2, "Column": 3},
 "geometry": {"type": "Point", "coordinates": [14.45, 50.08]}}]}
END
refused 1 'needs the package gazetteer-gdal, which is not installed' \
    gazetteer make places.geojson -o places.pdf
[ ! -e places.pdf ] || fail "a table that was not read became a file"
# The table of a shapefile needs none.
: >streets.shp
gazetteer make streets.shp -o shapes.pdf 2>/dev/null
gazetteer make streets.dbf -o records.pdf 2>/dev/null
cmp shapes.pdf records.pdf
cmake --install "$build" --component gdal --prefix "$work/usr" >/dev/null
gazetteer make places.geojson -o places.pdf 2>/dev/null
pdftotext -layout places.pdf - | grep 'Žižkov[ .]*7 2-3' >/dev/null

# The window finds its component at the first start.
Xvfb "$display" -screen 0 1366x768x24 >/dev/null 2>&1 &
export DISPLAY=$display
for _ in {1..50}; do xdotool getmouselocation >/dev/null 2>&1 && break; sleep 0.2; done
# await NAME: prints a window with that in its title as soon as it is there.
await() {
    for _ in {1..150}; do
        xdotool search --onlyvisible --name "$1" 2>/dev/null | head -1 | grep . && return
        sleep 0.2
    done
    fail "no window \"$1\" opened"
}
gazetteer-desk moved/index.json 2>told &
window=$(await 'index.json')
xdotool windowfocus --sync "$window"
# The middle of the sheet selects the gazetteer.
xdotool mousemove --window "$window" 700 400 click 1 key alt+Return
sheet=$(await 'Properties')
# Draft state and back, and the manual.
xdotool windowfocus --sync "$sheet" key Escape
xdotool windowfocus --sync "$window" key ctrl+d
await 'index.json\*' >/dev/null
xdotool key ctrl+z
await 'index.json[^*]*$' >/dev/null
# From the layers of a map to an index.
cp "$documents/examples/town.gpkg" .
xdotool key ctrl+n
dialog=$(await 'New Document')
xdotool windowfocus --sync "$dialog" key alt+y
# fill KEY TEXT: types a text into the box of that key.
fill() {
    xdotool key "$1" ctrl+a
    xdotool type --delay 20 "$2"
}
fill alt+f town.gpkg/streets
fill alt+s town.gpkg/sheets
fill alt+g 7
fill alt+c 5
xdotool key Return
await 'streets-listings' >/dev/null
gazetteer table streets-listings.dbf | grep -P '^Am Markt\t6\tF\t3' >/dev/null
xdotool windowfocus --sync "$window" key F1
await 'Manual' >/dev/null
grep -q '/usr/lib/gazetteer/libCVNGazetteer.so' "$HOME/.local/share/gazetteer-desk/components.json"
! grep -i 'error\|warning' told || fail "the window complained"
echo "walked through the installed programs" >&2
