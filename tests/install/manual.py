"""Whether a manual page has every option of its program, and is typeset without a warning where
groff is there to ask.

manual.py PROGRAM PAGE
"""

import re
import shutil
import subprocess
import sys


def options(program, command=()):
    text = subprocess.run([program, *command, "--help"], capture_output=True, text=True,
                          check=True).stdout
    found = set(re.findall(r"^  (?:-\w,)?(--[\w-]+)", text, re.MULTILINE))
    names = re.search(r"^Subcommands:\n((?:  .*\n)+)", text, re.MULTILINE)
    for name in re.findall(r"^  (\w+)", names[1], re.MULTILINE) if names else ():
        found |= options(program, (*command, name))
    return found


def faults(program, path):
    with open(path, encoding="utf-8") as file:
        told = set(re.findall(r"--[a-z][\w-]*", file.read().replace("\\-", "-")))
    for option in sorted(options(program) - told):
        yield f"{option} is not told of"
    if shutil.which("groff"):
        yield from subprocess.run(["groff", "-man", "-Tutf8", "-ww", path], text=True,
                                  capture_output=True, check=False).stderr.splitlines()


found = list(faults(*sys.argv[1:]))
print(*found, sep="\n")
sys.exit(1 if found else 0)
