#!/usr/bin/env python3
"""Draws the picture of docs/press.md: the plates of a page, each in the colour of its ink.

Usage: press.py PROGRAM PROFILE FOLDER
Needs Ghostscript, which separates the page, and ImageMagick, which joins the plates.
"""
import subprocess
import sys
import tempfile
from pathlib import Path

LISTINGS = ["Abbey Road,4,1,2", "Alder Ave,6,2,3", "Ash Street,9,3,1", "Beech Grove,2,1,1",
            "Birch Lane,4,2,2", "Brook Street,7,3,3"]
INKS = {"Cyan": "#00A0E3", "Magenta": "#E3007B", "Yellow": "#FFE500", "Black": "#000000",
        "Reflex Blue": "#001489"}
SETTINGS = ["*.TitleBackgroundSymbol=spot(Reflex Blue, cmyk(100,80,0,5), #001489)",
            "*.TitleFontSymbol=Liberation Sans,8,bold,#FFFFFF", "*.BackgroundSymbol=cmyk(20,0,0,0)",
            "Page.ColumnFontSymbol=Liberation Sans,8,cmyk(0,100,80,10)"]


def main() -> None:
    program, profile, folder = sys.argv[1:]
    with tempfile.TemporaryDirectory() as scratch:
        table, pdf = Path(scratch, "names.csv"), Path(scratch, "o.pdf")
        table.write_text("\n".join(["Listing,Page,Row,Column", *LISTINGS]) + "\n")
        subprocess.run([program, "make", table, "-o", pdf, "--page-size", "2.1x1.9", "--head", "",
                        "--sheet-number", "false", "--frame", "0.2,0.15,1.7,1.6", "--press", profile,
                        "--bleed", "3mm", "--crop-marks",
                        *(word for setting in SETTINGS for word in ("--set", setting))],
                       check=True, stderr=subprocess.DEVNULL)
        subprocess.run(["gs", "-q", "-dNOPAUSE", "-dBATCH", "-sDEVICE=tiffsep", "-r600", "-dLastPage=1",
                        "-o", Path(scratch, "p.tif"), pdf], check=True)
        plates = []
        for ink, color in INKS.items():
            plates += ["(", Path(scratch, f"p({ink}).tif"), "-resize", "18%", "+level-colors",
                       f"{color},white", "-gravity", "south", "-splice", "0x26", "-fill", "#444444",
                       "-pointsize", "18", "-annotate", "+0+4", ink, ")"]
        subprocess.run(["convert", *plates, "+append", Path(folder, "press-plates.png")], check=True)


main()
