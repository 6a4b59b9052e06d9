"""Response times for a document with stored results."""

import json

import google
from bars import Bar, judged, missing
from bench import LARGE, LOCALE, tell
from process import Figure, Failed, output_of, times

PROCESS = Bar(1.5, 0.7, "s")
PAGE = Bar(20, 8, "ms")
EDIT = Bar(16, 2, "ms")


def rows(bench):
    tell("Measuring stored results...")
    size = bench.sizes[-1]
    document = bench.document(size)
    yield draw(bench, document, size)
    yield from page(bench, document, size)
    yield from edits(bench, size)


def draw(bench, document, size):
    def command(page_number):
        return ["draw", document, "--page", str(page_number), "--json", *LOCALE]

    first = json.loads(output_of([bench.program("gazetteer"), *command(1)]))
    middle = 1 + first["pageCount"] // 2
    costs = [bench.run("gazetteer", *command(middle)) for _ in range(bench.rounds)]
    return judged(f"`draw` of one page, {size:,} stored listings: whole process",
                  times(costs, bench.clock), PROCESS, judge=size == LARGE)


def page(bench, document, size):
    stages = {
        "BM_2_FirstPage": "the page alone, the first one (fonts are found)",
        "BM_3_OtherPages": "the page alone, further ones",
        "BM_4_LastPage": "the last page alone",
    }
    yield from of_program(bench, "bench_page", {"GAZETTEER_BENCH_DOCUMENT": str(document)}, stages,
                          PAGE, size)


def edits(bench, size):
    stages = {
        "BM_2_FirstKey": f"one edit on the property page, {size:,} stored listings: first key",
        "BM_3_FurtherKey": "further keys: one typed and taken back, in the slowest control",
    }
    yield from of_program(bench, "bench_edits", {"GAZETTEER_BENCH_RECORDS": str(size)}, stages,
                          EDIT, size)


def of_program(bench, name, environment, stages, bar, size):
    """A row per stage; a stage with several variants shows its slowest."""
    if not bench.has(name):
        for what in stages.values():
            yield missing(what, f"not measured: {name} is not built")
        return
    found = google.stages(bench.program(name), "|".join(stages), bench.clock, environment,
                          bench.is_trial)
    for stage, what in stages.items():
        values = [value for full, value in found.items() if full.split("/")[0] == stage]
        if not values:
            raise Failed(f"{name} has no stage {stage}.")
        yield judged(what, Figure((max(values),)), bar, judge=size == LARGE)
