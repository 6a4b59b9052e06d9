"""Whether the manual page tells of every command and option that the program has, and of no other.

manual.py PROGRAM PAGE
"""

import re
import subprocess
import sys

COMMON = {"--help", "--locale", "--verbose", "--version"}  # Told once, for all commands.


def help_of(program, command):
    return subprocess.run([program, *command, "--help"], capture_output=True, text=True,
                          check=True).stdout


def options_by_command(program, command=()):
    text = help_of(program, command)
    names = re.search(r"^Subcommands:\n((?:  .*\n)+)", text, re.MULTILINE)
    if not names:
        return {" ".join(command): set(re.findall(r"^  (?:-\w,)?(--[\w-]+)", text, re.MULTILINE))}
    found = {}
    for name in re.findall(r"^  (\w+)", names[1], re.MULTILINE):
        found |= options_by_command(program, (*command, name))
    return found


def told_by_command(page):
    told = {}
    for section in re.split(r"^\.SS gazetteer ", page, flags=re.MULTILINE)[1:]:
        heading, text = section.split("\n", 1)
        text = re.split(r"^\.SH ", text, flags=re.MULTILINE)[0]
        command = re.match(r"[a-z]+( [a-z]+)?", heading)[0]
        told[command] = set(re.findall(r"--[a-z][\w-]*", text.replace("\\-", "-")))
    return told


def main(program, path):
    has = options_by_command(program)
    with open(path, encoding="utf-8") as file:
        told = told_by_command(file.read())
    faults = [f"the command {name} is not told of" for name in has.keys() - told.keys()]
    faults += [f"there is no command {name}" for name in told.keys() - has.keys()]
    for name in has.keys() & told.keys():
        faults += [f"{name}: {option} is not told of"
                   for option in has[name] - told[name] - COMMON]
        faults += [f"{name}: there is no {option}" for option in told[name] - has[name]]
    for fault in sorted(faults):
        print(f"{path}: {fault}")
    return 1 if faults or not has else 0


sys.exit(main(*sys.argv[1:]))
