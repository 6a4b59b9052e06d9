"""Numbering the pages, compared with shaping every finished text once."""

import google
from bars import Bar, Row, compared, told
from bench import LOCALE, SMALL, tell
from process import Failed, Figure, alternate, output_of, times

BAR = Bar(4, 2, "times the floor")
STAGE = "BM_5_NumberPages"


def rows(bench):
    tell("Measuring the numbering of pages...")
    size = bench.sizes[0]
    font = output_of(["fc-match", "-f", "%{file}", "Liberation Sans"])
    texts = bench.listings(size, "tsv")
    floors, stages = alternate(bench.rounds, [
        lambda: bench.run("harfbuzz_floor", font, texts),
        lambda: number_pages(bench, size),
    ])
    floor, ours = times(floors, bench.clock), Figure(tuple(stages))
    yield compared(f"page numbering alone, {size:,}, against HarfBuzz", told(ours, "s"),
                   told(floor, "s"), ours.median / floor.median, BAR, judge=size == SMALL)
    yield generate(bench, size)


def number_pages(bench, size):
    found = google.stages(bench.program("bench_stages"), STAGE, bench.clock,
                          {"GAZETTEER_BENCH_TABLE": str(bench.listings(size, "dbf"))},
                          bench.is_trial)
    if STAGE not in found:
        raise Failed(f"bench_stages has no stage {STAGE}.")
    return found[STAGE] / 1000


def generate(bench, size):
    document = bench.document(size)

    def once():
        # An edit removes the stored results.
        bench.run("gazetteer", "set", document, "DefaultPage=1", *LOCALE)
        return bench.run("gazetteer", "generate", document, *LOCALE)

    costs = [once() for _ in range(bench.rounds)]
    return Row(f"`generate`, {size:,}: a run without pages, and storing it",
               told(times(costs, bench.clock), "s"))
