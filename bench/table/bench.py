"""Common parameters of the measurements: programs, data, rounds and clock."""

import os
import shutil
import sys
from dataclasses import dataclass
from pathlib import Path

from process import output_of, run

PEERS = Path(__file__).resolve().parent.parent / "peers"
SMALL, LARGE = 100_000, 1_000_000

# Makes sorting independent of the user's locale.
LOCALE = ["--locale", "en_US"]


def tell(text):
    print(text, file=sys.stderr, flush=True)


@dataclass(frozen=True)
class Bench:
    programs: Path
    data: Path
    sizes: tuple  # Numbers of listings, ascending.
    rounds: int
    clock: str  # "wall" or "cpu".
    peers: bool

    @property
    def is_trial(self):
        """A trial only checks that everything works."""
        return self.sizes[-1] < SMALL

    def has(self, name):
        return (self.programs / name).exists()

    def program(self, name):
        return self.programs / name

    def run(self, name, *arguments):
        return run([self.program(name), *arguments], self.data / "log")

    def listings(self, count, kind):
        """The seeded listings as a table (dbf, csv), or the finished texts of their index (tsv)."""
        name = f"texts-{count}.tsv" if kind == "tsv" else f"listings-{count}.{kind}"
        if not (self.data / name).exists():
            tell(f"Making {count:,} listings...")
            folder = self.data / "unfinished"
            shutil.rmtree(folder, ignore_errors=True)
            output_of([sys.executable, PEERS / "gen.py", str(count), folder])
            for file in folder.iterdir():
                os.replace(file, self.data / file.name)
            folder.rmdir()
        return self.data / name

    def make(self, count, *options):
        return self.run("gazetteer", "make", self.listings(count, "dbf"), "-o",
                        self.data / "ours.pdf", *options, *LOCALE)

    def document(self, count):
        """The path of a document with stored results."""
        path = self.data / f"index-{count}.json"
        self.make(count, "--document", path)
        return path
