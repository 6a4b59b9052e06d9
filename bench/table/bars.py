"""Rows of the table: a figure, what it is compared with, its limits and the verdict."""

from dataclasses import dataclass

NOT_JUDGED = "for information"


@dataclass(frozen=True)
class Row:
    what: str
    ours: str
    held: str = ""
    ratio: str = ""
    must: str = ""
    aim: str = ""
    verdict: str = NOT_JUDGED

    def cells(self):
        return (self.what, self.ours, self.held, self.ratio, self.must, self.aim, self.verdict)


def missing(what, reason):
    return Row(what, "", verdict=reason)


@dataclass(frozen=True)
class Bar:
    """The limits of a figure: what it must and what it should reach. Less is better unless `more`."""

    must: float
    aim: float
    unit: str
    more: bool = False

    def verdict(self, value):
        if self._reaches(value, self.aim):
            return "met, aim too"
        return "met, aim not" if self._reaches(value, self.must) else "**not met**"

    def _reaches(self, value, limit):
        return value >= limit if self.more else value <= limit

    def limit(self, value):
        return f"{'≥' if self.more else '≤'} {value:g} {self.unit}"


def judged(what, figure, bar, judge=True):
    """A figure without comparison, in the unit of its bar."""
    return Row(what, told(figure, bar.unit), "", "", bar.limit(bar.must), bar.limit(bar.aim),
               bar.verdict(figure.median) if judge else NOT_JUDGED)


def compared(what, ours, held, ratio, bar, judge=True):
    """A figure compared with another; both are given as text."""
    return Row(what, ours, held, f"{ratio:.2f} {bar.unit}", bar.limit(bar.must),
               bar.limit(bar.aim), bar.verdict(ratio) if judge else NOT_JUDGED)


def number(value):
    return f"{value:.0f}" if value >= 100 else f"{value:.3g}"


def told(figure, unit):
    """The median, and the least and greatest value."""
    text = f"{number(figure.median)} {unit}"
    if len(figure.values) > 1:
        text += f" ({number(min(figure.values))}–{number(max(figure.values))})"
    return text


def markdown(rows):
    heads = ("Work", "Ours", "Held against", "Ratio", "Must", "Aim", "Verdict")
    yield "| " + " | ".join(heads) + " |"
    yield "|---|--:|--:|--:|--:|--:|---|"
    for row in rows:
        yield "| " + " | ".join(row.cells()) + " |"
