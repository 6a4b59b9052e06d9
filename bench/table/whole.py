"""Whole runs from a table to a finished PDF."""

import latex
from bars import Bar, Row, compared, judged, missing, told
from bench import LARGE, SMALL, tell
from process import Figure, alternate, peaks, times

TIME = Bar(2, 3, "times faster", more=True)
MEMORY = Bar(700, 450, "MB")
GROWTH = Bar(11, 10, "times the time")


def rows(bench):
    tell("Measuring whole runs...")
    with_peer = bench.peers and latex.is_installed()
    costs = measure(bench, with_peer)
    for size in bench.sizes:
        what = f"`make`, {size:,} listings, against makeindex + pdfLaTeX"
        ours = costs["make", size]
        if with_peer:
            yield against_peer(bench, what, size, ours, costs["latex", size])
        else:
            yield Row(what, told(times(ours, bench.clock), "s"), verdict=why_no_peer(bench))
        held = told(peaks(costs["latex", size]), "MB") if with_peer else ""
        yield memory(size, peaks(ours), held)
    if (SMALL, LARGE) == bench.sizes:
        yield growth(bench, costs)
    else:
        yield missing("growth from 100,000 to 1,000,000", "not measured in a quick run")


def measure(bench, with_peer):
    works = {}
    for size in bench.sizes:
        works["make", size] = lambda size=size: bench.make(size)
        if with_peer:
            listings = bench.listings(size, "csv")
            works["latex", size] = lambda listings=listings: latex.typeset(
                listings, bench.data / "latex")
    return dict(zip(works, alternate(bench.rounds, works.values())))


def why_no_peer(bench):
    return "not measured: makeindex or pdflatex is not installed" if bench.peers else "left out"


def against_peer(bench, what, size, ours, theirs):
    ours, theirs = times(ours, bench.clock), times(theirs, bench.clock)
    return compared(what, told(ours, "s"), told(theirs, "s"), theirs.median / ours.median, TIME,
                    judge=size in (SMALL, LARGE))


def memory(size, ours, held):
    what = f"peak memory of `make`, {size:,} listings"
    if size != LARGE:
        return Row(what, told(ours, "MB"), held)
    row = judged(what, ours, MEMORY)
    return Row(what, row.ours, held, "", row.must, row.aim, row.verdict)


def growth(bench, costs):
    small, large = (times(costs["make", size], bench.clock) for size in (SMALL, LARGE))
    # Ratios within a round, so that a temporary load affects both.
    ratio = Figure(tuple(b / a for a, b in zip(small.values, large.values))).median
    return compared("growth from 100,000 to 1,000,000", told(large, "s"), told(small, "s"), ratio,
                    GROWTH)
