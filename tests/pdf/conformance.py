#!/usr/bin/env python3
"""conformance.py FILE...: the rules of PDF/A-2 (by clause) and PDF/UA-1 (by the failure conditions of
the Matterhorn protocol) that a machine can check, as far as the files of this writer can break them."""
import sys

import file_rules  # noqa: F401
import font_rules  # noqa: F401
import metadata_rules  # noqa: F401
import pages
from rulebook import check, rule
from structure_rules import elements  # noqa: F401

rule("pages")(pages.check)

if __name__ == "__main__":
    broken = [(path, *one) for path in sys.argv[1:] for one in check(path)]
    for path, name, what in broken:
        print("%s: %s: %s" % (path, name, what))
    sys.exit(1 if broken else 0)
