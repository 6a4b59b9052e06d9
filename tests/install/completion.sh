#!/bin/bash
# completion.sh PROGRAMS COMPLETION: what completing on words gives, for programs in a folder.
set -eu
PATH=$1:$PATH
set +u
source /usr/share/bash-completion/bash_completion
source "$2"

expect() {
    local wanted=$1
    shift
    COMP_WORDS=("$@") COMP_CWORD=$(($# - 1)) COMP_LINE="$*" COMP_POINT=${#COMP_LINE} COMPREPLY=()
    _gazetteer 2>/dev/null || true
    if [ "${COMPREPLY[*]}" != "$wanted" ]; then
        echo "\"$*\" is completed to \"${COMPREPLY[*]}\" and not to \"$wanted\"."
        exit 1
    fi
}
expect 'draft draw' gazetteer dr
expect 'add remove list' gazetteer column ''
expect '--page-size' gazetteer make --page-
expect 'a3 a4 a5 b5 letter legal tabloid' gazetteer new --page-size ''
expect 'SortColumns= SortAscending=' gazetteer set index.json Sort
expect 'RepeatColumns= RepeatSpacing=' gazetteer make --set Rep
expect '' gazetteer export --pages ''
expect 'Listing.ColumnFontSymbol= Listing.ColumnWidth=' gazetteer set index.json Listing.Column
expect 'SortColumns=true' gazetteer set index.json SortColumns=t
expect 'Page.Alignment=Right' gazetteer set index.json Page.Alignment=R
expect 'de@collation=phonebook' gazetteer make --locale de@
cd "$3"
expect 'streets.dbf' gazetteer table str
cd "$(mktemp -d)"
touch alps.GPKG alps.json alps.txt bern.csv coated.icc
expect 'coated.icc' gazetteer export --press ''
expect 'alps.GPKG' gazetteer make al
expect 'bern.csv' gazetteer book new book.json --sheets b
rm -r "$PWD"
