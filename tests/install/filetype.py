"""Whether desktops know documents from other files: by their content under any name, and without
claiming other JSON files.

filetype.py PROGRAM TYPES TABLE
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

SYSTEM_DATA = "/usr/share"
DOCUMENT = "application/x-gazetteer-document"


def type_of(file, data):
    told = subprocess.run(["gio", "info", "-a", "standard::content-type", file], check=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                          env=dict(os.environ, XDG_DATA_DIRS=f"{data}:{SYSTEM_DATA}",
                                   XDG_DATA_HOME=str(data)))
    return told.stdout.split()[-1]


def faults(program, types, table, folder):
    # Beside the system's types, as under /usr/local: there a type wins more easily than among them.
    packages = folder / "data/mime/packages"
    packages.mkdir(parents=True)
    shutil.copy(types, packages)
    subprocess.run(["update-mime-database", folder / "data/mime"], check=True)
    document = folder / "index.json"
    subprocess.run([program, "new", document, "--listing-database", table], check=True)
    (folder / "plain.json").write_text('{"format": "another"}\n')
    for name in ("index", "index.gazetteer"):
        shutil.copy(document, folder / name)
    for name, wanted in (("index.json", DOCUMENT), ("index", DOCUMENT),
                         ("index.gazetteer", DOCUMENT), ("plain.json", "application/json")):
        told = type_of(folder / name, folder / "data")
        if told != wanted:
            yield f"{name} is taken for {told} and not for {wanted}."


with tempfile.TemporaryDirectory() as place:
    found = list(faults(*sys.argv[1:], pathlib.Path(place)))
print(*found, sep="\n")
sys.exit(1 if found else 0)
