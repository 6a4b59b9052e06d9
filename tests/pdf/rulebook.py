"""The rules that files are checked by; other modules add theirs."""
from pdffile import Pdf

RULES = []


def rule(*names):
    """A rule yields what breaks it; with several names each as (name, what)."""
    def add(check):
        RULES.append((names, check))
        return check
    return add


def check(path):
    """All violations as (rule, what)."""
    pdf = Pdf(path)
    return [one if isinstance(one, tuple) else (names[0], one)
            for names, rules in RULES for one in rules(pdf)]
