#!/usr/bin/env python3
"""leaks.py PROGRAM EXAMPLES: runs each command once, in success and in failure, where a sanitized
program looks for leaks at its end."""

import os
import shutil
import subprocess
import sys
import tempfile

PROGRAM, EXAMPLES = sys.argv[1:]

# Status and arguments, in an order in which later runs find what earlier ones wrote.
RUNS = [
    (0, "--help"),
    (0, "make streets.dbf -o streets.pdf --document d.json"),
    (0, "make vietnam.dbf -o vietnam.pdf --locale vi --no-tags"),
    (0, "make streets.dbf -o press.pdf --crop-marks --press /usr/share/color/icc/ghostscript/default_cmyk.icc"),
    (0, "make streets.dbf -o links.pdf --maps vietnam.pdf"),
    (0, "make streets.dbf -o book.pdf --append-to vietnam.pdf"),
    (1, "make streets.dbf -o no.pdf --append-to streets.dbf"),
    (1, "make nothing.dbf -o no.pdf"),
    (2, "make streets.dbf -o no.pdf --columns x"),
    (0, "make town.gpkg/streets --sheets town.gpkg/sheets --grid 7x5 -o town.pdf"),
    (0, "set d.json Typesetting.HangingIndent=0.1"),
    (0, "column list d.json"),
    (0, "generate d.json"),
    (0, "check d.json"),
    (0, "show d.json"),
    (0, "draw d.json --page 1"),
    (0, "export d.json -o d.svg --pages 1"),
    (0, "export d.json -o d.png --pages 1 --dpi 40"),
    (1, "export d.json -o no/d.pdf"),
    (0, "draft d.json"),
    (0, "new n.json --listing-database streets.dbf"),
    (2, "set n.json PageSpacing=x"),
    (1, "check broken.json"),
    (0, "table streets.dbf --json"),
    (0, "import town.gpkg/streets --listing name --page district -o names.dbf"),
    (0, "locate town.gpkg/streets --name name --sheets town.gpkg/sheets --page page -o l.dbf"),
    (1, "locate town.gpkg/none --name name --sheets town.gpkg/sheets --page page -o l.dbf"),
    (0, "book new book.json --sheets town.gpkg/sheets"),
]

failed = 0
with tempfile.TemporaryDirectory() as folder:
    for name in ("streets.dbf", "vietnam.dbf", "vietnam.cpg", "town.gpkg"):
        shutil.copy(os.path.join(EXAMPLES, name), folder)
    with open(os.path.join(folder, "broken.json"), "w", encoding="utf-8") as file:
        file.write('{"page": {"elements": [{')
    for status, arguments in RUNS:
        run = subprocess.run([PROGRAM, *arguments.split()], cwd=folder, text=True,
                             capture_output=True, env=os.environ | {"XDG_DATA_HOME": folder})
        if run.returncode != status or "LeakSanitizer" in run.stderr:
            failed += 1
            print(f"gazetteer {arguments}: status {run.returncode} and not {status}\n{run.stderr}")
sys.exit(failed > 0)
