"""Tests the installed plugin through qgis_process, as scripts call it."""

import os
import re
import shutil
import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = os.environ["PROGRAM"]
EXAMPLES = Path(__file__).resolve().parents[2] / "examples"
TOWN, EUROPE = EXAMPLES / "town.gpkg", EXAMPLES / "europe.gpkg"
# Debian's qgis_process adds an option that only the window knows.
QGIS = shutil.which("qgis_process.bin") or "qgis_process"


def qgis(*arguments, program=PROGRAM):
    environment = {**os.environ, "GAZETTEER_PROGRAM": program}
    return subprocess.run([QGIS, *arguments], env=environment, text=True, capture_output=True)


def layer(package, name):
    return f"{package}|layername={name}"


def gazetteer(*arguments):
    return subprocess.run([PROGRAM, *map(str, arguments)], text=True, capture_output=True,
                          check=True)


def records(table):
    """Records of a table of any kind, as the program reads it."""
    lines = gazetteer("table", table, "--limit", 10000).stdout.splitlines()
    return [line for line in lines if "\t" in line]


def page_texts(pdf):
    return subprocess.run(["pdftotext", "-layout", pdf, "-"], text=True, capture_output=True,
                          check=True).stdout


class QgisProcess(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        enabled = qgis("plugins", "enable", "gazetteer")
        assert "Enabled gazetteer" in enabled.stdout, enabled

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def town(self, algorithm, *more, sheets="sheets", program=PROGRAM):
        return qgis("run", f"gazetteer:{algorithm}", f"--LAYERS={layer(TOWN, 'streets')}",
                    f"--LAYERS={layer(TOWN, 'parks')}", f"--SHEETS={layer(TOWN, sheets)}",
                    "--ROWS=7", "--COLUMNS=5", *more, program=program)

    def test_listings_of_the_town_are_those_of_the_program(self):
        for ending in ("csv", "dbf", "gpkg"):
            with self.subTest(ending):
                own, direct = (self.folder / f"{name}.{ending}" for name in ("own", "direct"))
                made = self.town("listings", "--APART=district", "--LAYER_FIELD=Kind",
                                 "--SQUARES=1", "--FROM_BOTTOM=true", "--FROM_RIGHT=true",
                                 "--ROW_LABELS=A..H", "--LEAVE_OUT=C", "--DISTANCE=900",
                                 f"--LISTINGS={own}")
                self.assertEqual(made.returncode, 0, made.stdout + made.stderr)
                told = gazetteer("locate", TOWN / "streets", "--set", "Kind=streets",
                                 TOWN / "parks", "--set", "Kind=parks", "--sheets",
                                 TOWN / "sheets", "--grid", "7x5", "--apart", "district",
                                 "--squares", "all", "--origin", "bottom-right",
                                 "--row-labels", "A..H", "--leave-out", "C", "--distance", "900",
                                 "-o", direct).stderr
                self.assertEqual(records(own), records(direct))
                self.assertGreater(len(records(own)), 300)
                # The program's warnings name layers, not temporary files.
                for line in told.splitlines():
                    if "warning: " in line:
                        warning = line.split("/town.gpkg/")[1].replace(":", '":', 1)
                        self.assertIn(f'Layer "{warning}', made.stdout + made.stderr)

    def test_index_of_europe(self):
        made = qgis("run", "gazetteer:index", f"--LAYERS={layer(EUROPE, 'places')}",
                    f"--LAYERS={layer(EUROPE, 'rivers')}", "--NAMES=rivers,\"name\" || ' (river)'",
                    f"--SHEETS={layer(EUROPE, 'sheets')}", "--PAGE=\"page\" + 100", "--ROWS=8",
                    "--COLUMNS=6", f"--LISTINGS={self.folder / 'listings.gpkg'}",
                    f"--PDF={self.folder / 'index.pdf'}", "--PAGE_SIZE=a4", "--LOCALE=en",
                    "--TITLE=Places and rivers", "--FIRST_PAGE=231", "--INDEX_COLUMNS=2",
                    f"--DOCUMENT={self.folder / 'index.json'}", "--SETTINGS=Listing.Title=Name")
        self.assertEqual(made.returncode, 0, made.stdout + made.stderr)
        direct = self.folder / "direct.dbf"
        gazetteer("locate", EUROPE / "places", EUROPE / "rivers", "--name", "[name] (river)",
                  "--where", "name IS NOT NULL", "--sheets", EUROPE / "sheets", "--grid", "8x6",
                  "-o", direct)
        expected = {}
        for line in records(direct):
            name, page, row, column = line.split("\t")
            expected.setdefault(name, []).append(f"{int(page) + 100} {row}-{column}")
        self.assertGreater(len(expected), 800)
        self.assertIn(f"{len(expected)} listings, 0 duplicates dropped", made.stdout)
        lines = page_texts(self.folder / "index.pdf")
        self.assertIn("231", lines)
        for name in ("Oslo", "Kraków", "Danube (river)"):
            self.assertRegex(lines, rf"{re.escape(name)}[ .]+{expected[name][0]}")
        again = self.folder / "again.pdf"
        gazetteer("export", self.folder / "index.json", "-o", again)
        self.assertEqual(again.read_bytes(), (self.folder / "index.pdf").read_bytes())
        information = subprocess.run(["pdfinfo", again], text=True, capture_output=True).stdout
        self.assertIn("Places and rivers", information)
        self.assertIn("(A4)", information)

    def test_failures_are_one_sentence(self):
        listings = f"--LISTINGS={self.folder / 'listings.gpkg'}"
        cases = [
            ("no field of the page", [listings, "--PAGE=blatt"], {},
             'Layer "sheets" has no field "blatt"; its fields are fid, page.'),
            ("no field page", [listings], {"sheets": "water"},
             'Layer "water" has no field "page"; its fields are fid, name.'),
            ("an expression of no sense", [listings, "--APART=to_int(name)"], {},
             'Layer "streets": the expression to_int(name) cannot be evaluated: '),
            ("broken expression", [listings, "--NAME=\"name\" ||"], {},
             'Layer "streets": the expression "name" || cannot be evaluated: '),
            ("no such layer", [listings, "--NAMES=lanes,name"], {}, 'There is no layer "lanes"'),
            ("told by the program", [listings, "--ROW_LABELS=A..C"], {},
             '--row-labels A..C: these are 3 labels, but the grid 7x5 has 7.'),
            ("over a source", [f"--LISTINGS={TOWN}"], {},
             f"The listings cannot be written to {TOWN}: a layer is read from it."),
            ("no program", [listings], {"program": "/no/gazetteer"},
             "There is no program /no/gazetteer;")]
        for name, arguments, given, sentence in cases:
            with self.subTest(name):
                failed = self.town("listings", *arguments, **given)
                self.assertNotEqual(failed.returncode, 0, failed.stdout)
                told = [line for line in (failed.stdout + failed.stderr).splitlines()
                        if line.startswith(("ERROR", "Traceback"))]
                self.assertEqual(len(told), 1, told)
                self.assertIn(f"ERROR:\t{sentence}", told[0])
                self.assertTrue(told[0].endswith("."), told)
                self.assertEqual(list(self.folder.iterdir()), [])


if __name__ == "__main__":
    unittest.main()
