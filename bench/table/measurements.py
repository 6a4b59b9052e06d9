"""Counts the measurements made to fit texts, compared with the plain loops."""

import os

from bars import Bar, Row, compared, missing
from bench import SMALL, tell
from process import output_of

# A text that fits takes one question, one with a leader three, as the number of dots is verified.
# For the listings of the comparisons that alone allows at most 6.7 times fewer.
BAR = Bar(4, 6, "times fewer", more=True)


def rows(bench):
    what = "`SplitText` against the plain loop: questions to the host"
    if not bench.has("bench_measurements"):
        yield missing(what, "not measured: bench_measurements is not built")
        return
    tell("Counting measurements...")
    size = bench.sizes[0]
    columns = count(bench, size)
    texts, ours, plain = (sum(column[i] for column in columns.values()) for i in range(3))
    yield compared(f"{what}, {texts:,} texts of {size:,} listings", f"{ours:,}", f"{plain:,}",
                   plain / ours, BAR, judge=size == SMALL)
    for name, (texts, ours, plain) in columns.items():
        yield Row(f"of these the {texts:,} of column {name}", f"{ours:,}", f"{plain:,}",
                  f"{plain / ours:.2f} {BAR.unit}")


def count(bench, size):
    """By column: number of texts, our measurements, measurements of the plain loop."""
    environment = {**os.environ, "GAZETTEER_BENCH_TABLE": str(bench.listings(size, "dbf"))}
    lines = output_of([bench.program("bench_measurements")], env=environment).splitlines()
    return {name: tuple(map(int, counts))
            for name, *counts in (line.split("\t") for line in lines)}
