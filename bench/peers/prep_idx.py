"""Turns listings into raw entries for makeindex, one per record.

usage: prep_idx.py LISTINGS.csv OUTPUT.idx

Numbers in the sort key are padded to six digits, because makeindex does not sort by number.
"""

import csv
import re
import sys

NUMBER = re.compile(r"\d+")


def entry(name, page, row, column):
    text = name.replace("&", r"\&").replace("#", r"\#").replace("%", r"\%")
    key = NUMBER.sub(lambda number: number.group().zfill(6), text)
    sorted_text = text if key == text else f"{key}@{text}"
    return f"\\indexentry{{{sorted_text}}}{{{page}-{row}-{column}}}\n"


def main():
    with open(sys.argv[1], encoding="utf-8", newline="") as listings:
        with open(sys.argv[2], "w", encoding="utf-8") as output:
            records = csv.reader(listings)
            next(records)
            output.writelines(entry(*record) for record in records)


main()
