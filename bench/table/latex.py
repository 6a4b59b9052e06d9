"""The programs compared with: makeindex sorts and combines, pdfLaTeX typesets."""

import shutil
import sys
from pathlib import Path

from process import Failed, run, tail

PEERS = Path(__file__).resolve().parent.parent / "peers"


def is_installed():
    return all(shutil.which(program) for program in ("makeindex", "pdflatex"))


def typeset(listings, folder):
    """Cost of making folder/index.pdf from a CSV file of listings."""
    folder.mkdir(exist_ok=True)
    (folder / "index.pdf").unlink(missing_ok=True)
    steps = [
        [sys.executable, PEERS / "prep_idx.py", listings, "index.idx"],
        ["makeindex", "-q", "-r", "-s", PEERS / "peer.ist", "-o", "index.ind", "index.idx"],
        ["pdflatex", "-interaction=batchmode", "-jobname=index",
         rf"\def\jobdata{{index.ind}}\input{{{PEERS / 'peer.tex'}}}"],
    ]
    costs = [run(step, folder / "log", cwd=folder) for step in steps]
    if not (folder / "index.pdf").exists():
        raise Failed(f"pdflatex has made no index.pdf:\n{tail(folder / 'log')}")
    return costs[0].then(costs[1]).then(costs[2])
