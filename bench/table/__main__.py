"""Measures speed and memory and prints the figures with their limits as a Markdown table."""

import argparse
import sys
from pathlib import Path

import locate
import machine
import measurements
import numbering
import stored
import whole
from bars import markdown
from bench import LARGE, SMALL, Bench
from process import Failed, share_of_core


def options():
    parser = argparse.ArgumentParser(prog="bench", description=__doc__)
    parser.add_argument("--quick", action="store_true",
                        help="100,000 listings only, three rounds")
    parser.add_argument("--no-peers", action="store_true", help="do not run makeindex + pdfLaTeX and ogr2ogr")
    parser.add_argument("--clock", choices=("wall", "cpu"), default="wall",
                        help="judge by wall time or, on a busy machine, by processor time "
                             "(default: wall)")
    parser.add_argument("--programs", type=Path, required=True,
                        help="folder of the programs (scripts/bench gives it)")
    parser.add_argument("--data", type=Path, required=True,
                        help="folder for data and outputs (likewise)")
    parser.add_argument("--trial", type=int, metavar="LISTINGS",
                        help="one round with this number of listings, to check that everything works")
    return parser.parse_args()


def bench_of(given):
    sizes = (given.trial,) if given.trial else (SMALL,) if given.quick else (SMALL, LARGE)
    given.data.mkdir(parents=True, exist_ok=True)
    return Bench(given.programs.resolve(), given.data.resolve(), sizes,
                 1 if given.trial else 3 if given.quick else 5, given.clock, not given.no_peers)


def main():
    bench = bench_of(options())
    core = machine.pin()
    rows = [row for part in (whole, numbering, stored, measurements, locate) for row in part.rows(bench)]
    clock = {"wall": "Wall time", "cpu": "Processor time"}[bench.clock]
    print(machine.describe(core))
    print(f"{clock}, medians of {bench.rounds} (least–most). The programs had the core for "
          f"{share_of_core():.0%} of their time.\n")
    print("\n".join(markdown(rows)))


try:
    main()
except (Failed, OSError) as failure:
    sys.exit(f"bench: {failure}")
