#!/usr/bin/env python3
"""Runs the program on damaged and odd input for some time:

    hostile.py PROGRAM SECONDS [SEED]

Documents, map books, tables, values and output names are changed at random, and commands run on them
with limits of memory and processor time. Every run must end by itself with exit status 0, 1 or 2; say
in plain sentences why it could not; change no file but the one that it writes; leave no file of a run
that failed; and write valid PDF, PNG and JSON. The first run that does not is printed with the seed
that repeats it, its files are kept, and the exit status is 1.
"""
import json
import os
import random
import re
import resource
import shutil
import struct
import subprocess
import sys
import tempfile
import threading
import time
from pathlib import Path

MEMORY = 2 << 30  # Bytes.
PROCESSOR = 20  # Seconds.
TEXTS = ["", " ", "$$DOTS", "$$DOTS" * 5000, "$$NEWLINE", "\u202e\u05e9\u0644", "\x1b[31m\x07", "A" * 70000,
         "e\u0301" * 9000, "a\u0416\u6771 " * 4000, "[Listing]", "[", "\U000f0000", "\x00cut", "Page", "C:\\x\\y.dbf"]
NUMBERS = [0, -1, 1, 2, 0.5, -0.25, 1e-300, 1e15, 1e300, -1e300, 1000, 1000.5, 2147483647, -2147483648,
           2147483648, 32768, 0.1, 5e-324]
OTHERS = [None, True, False, [], {}, {"double": "inf"}, {"double": "nan"}, {"integer": 3}, {"set": []},
          {"object": None}, {"empty": True}, "inf", "nan"]
COLUMNS = [("LISTING", "C", 30), ("PAGE", "N", 5), ("ROW", "N", 3), ("COLUMN", "C", 3)]
LIBRARY_WORDS = re.compile(r"std::|basic_string|bad_alloc|json\.exception|vector::|terminate|Assertion|core dumped")


class Found(Exception):
    """A run that does what none may."""


def table(rng):
    rows = [(rng.choice(["Abbey Road", "Main St", "\xc5se", "", "Llanfairpwllgwyngyllgogerychwyrndrobwll", "7th"]),
             str(rng.randrange(12)), rng.choice(["1", "2", ""]), rng.choice("ABC")) for _ in range(rng.randrange(1, 60))]
    length = 1 + sum(column[2] for column in COLUMNS)
    data = bytearray(struct.pack("<BBBBIHH20x", 3, 124, 1, 2, len(rows), 33 + 32 * len(COLUMNS), length))
    data[29] = 0x57
    for name, kind, size in COLUMNS:
        data += name.encode().ljust(11, b"\0") + kind.encode() + bytes(4) + bytes([size, 0]) + bytes(14)
    data += b"\r"
    for row in rows:
        data += b" "
        for value, (_, kind, size) in zip(row, COLUMNS):
            text = value.encode("cp1252")[:size]
            data += text.rjust(size) if kind == "N" else text.ljust(size)
    return bytes(data + b"\x1a")


def change_bytes(rng, data):
    data = bytearray(data)
    for _ in range(rng.choice([1, 1, 2, 5, 30])):
        at = rng.randrange(len(data) + 1)
        change = rng.randrange(4)
        if change == 0 and at < len(data):
            data[at] = rng.choice([0, 1, 0x20, 0x2A, 0x7F, 0xFF, rng.randrange(256)])
        elif change == 1:
            del data[at:at + rng.choice([1, 2, 8, 64, 100000])]
        elif change == 2:
            data[at:at] = rng.randbytes(rng.choice([1, 4, 40]))
        else:
            data[at:at] = data[at:at + rng.choice([4, 32, 200])] * rng.choice([1, 3])
    return bytes(data)


def places(value, path=()):
    yield path
    children = value.items() if isinstance(value, dict) else enumerate(value) if isinstance(value, list) else ()
    for key, child in children:
        yield from places(child, path + (key,))


def nested(rng):
    value, depth = [], rng.choice([3, 99, 101, 400, 3000])
    group = rng.random() < 0.5
    for _ in range(depth):
        value = ([{"kind": "group", "tag": "", "draft": False, "members": value}] if group
                 else {"set": [["a", value]]})
    return value


def change_json(rng, text):
    """The text with values replaced, moved or taken out; sometimes with its bytes changed."""
    if rng.random() < 0.15:
        return change_bytes(rng, text)
    root = json.loads(text)
    for _ in range(rng.choice([1, 1, 1, 2, 4, 10])):
        everywhere = [path for path in places(root) if path]
        if not everywhere:
            break
        path = rng.choice(everywhere)
        parent = root
        for key in path[:-1]:
            parent = parent[key]
        change = rng.random()
        if change < 0.15 and len(parent) > 0:
            del parent[path[-1]]
        elif change < 0.25:
            other = root
            for key in rng.choice(everywhere):
                other = other[key]
            parent[path[-1]] = json.loads(json.dumps(other))
        elif change < 0.28:
            parent[path[-1]] = nested(rng)
        else:
            parent[path[-1]] = rng.choice([rng.choice(TEXTS), rng.choice(NUMBERS), rng.choice(NUMBERS), rng.choice(OTHERS)])
    return json.dumps(root).encode("utf-8", "replace")


def value_for(rng):
    kind = rng.random()
    if kind < 0.4:
        return repr(rng.choice(NUMBERS))
    if kind < 0.6:
        return rng.choice(["DejaVu Sans,", "X,", ","]) + rng.choice(["8", "0.1", "1000", "1e9", "-1", ""])
    # An argument cannot hold a NUL, nor more than the system takes.
    return rng.choice(TEXTS + ["true", "false", "#B00010", "Page,Listing", "Justify", "sheet"]).replace("\0", "")[:60000]


class World:
    def __init__(self, program, examples, rng, folder):
        self.program, self.rng, self.folder = program, rng, folder
        (folder / "names.dbf").write_bytes(table(rng))
        shutil.copy(examples / "atlas-book.json", folder / "book.json")
        shutil.copy(examples / "atlas-sheets.dbf", folder)
        self.run(["make", "names.dbf", "-o", "first.pdf", "--document", "d.json", "--book", "book.json"]
                 + rng.choice([[], ["--sample"], ["--page-size", "4x6"], ["--locale", "de"]]))
        self.keys = re.findall(r"^  (\w+) +\S", self.run(["set", "--help"]).stdout, re.MULTILINE)

    def files(self):
        return {path.name: path.read_bytes() for path in self.folder.iterdir()
                if path.is_file() and not path.is_symlink()}

    def limit(self):
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
        resource.setrlimit(resource.RLIMIT_CPU, (PROCESSOR, PROCESSOR))

    def run(self, command):
        environment = dict(os.environ, LC_ALL="C.UTF-8", XDG_DATA_HOME=str(self.folder / "data"))
        before = self.files()
        done = subprocess.run([self.program] + command, cwd=self.folder, env=environment, text=True, errors="replace",
                              stdin=subprocess.DEVNULL, capture_output=True, preexec_fn=self.limit, check=False)
        self.check(command, done, before)
        return done

    def check(self, command, done, before):
        if done.returncode not in (0, 1, 2):
            raise Found(f"exit status {done.returncode}")
        lines = done.stderr.splitlines()
        if done.returncode != 0 and not lines:
            raise Found("no word")
        for line in lines:
            if re.search("[\x00-\x08\x0b-\x1f\x7f]", line):
                raise Found("control characters in a message")
            if LIBRARY_WORDS.search(line):
                raise Found("a library's message")
        if lines and not lines[0].startswith("gazetteer: "):
            raise Found("a message without the program's name")
        if done.returncode == 0 and "--json" in command:
            json.loads(done.stdout, parse_constant=self.refuse_constant)
        self.check_files(command, done, before)

    @staticmethod
    def refuse_constant(name):
        raise Found(f"{name} in JSON")

    def check_files(self, command, done, before):
        after = self.files()
        changed = {name for name in after if before.get(name) != after[name]} | (before.keys() - after.keys())
        saves = {"new", "set", "generate", "draw", "draft", "column", "make"}
        may_change = {argument for argument in command if argument.endswith(".json")} if command[0] in saves else set()
        outputs = {name for name in changed if re.fullmatch(r"out\d*(-\d+)?\.(pdf|png|svg)|first\.pdf", name)}
        if changed - may_change - outputs:
            raise Found(f"changed {sorted(changed - may_change - outputs)}")
        if changed and done.returncode != 0:
            raise Found(f"a run that failed changed {sorted(changed)}")
        for name in outputs:
            self.check_output(self.folder / name)

    @staticmethod
    def check_output(path):
        if path.suffix == ".pdf":
            checked = subprocess.run(["qpdf", "--check", path], text=True, capture_output=True, check=False)
            if checked.returncode != 0 or "WARNING" in checked.stdout + checked.stderr:
                raise Found("qpdf: " + checked.stdout + checked.stderr)
            if re.search(rb"\b(nan|inf)\b", path.read_bytes()[:200]):
                raise Found("no number in a PDF")
        elif path.suffix == ".png" and not path.read_bytes().endswith(b"IEND\xaeB`\x82"):
            raise Found("a PNG without an end")
        elif path.suffix == ".svg" and not path.read_bytes().rstrip().endswith(b"</svg>"):
            raise Found("an SVG without an end")

    def step(self):
        """Changes some input and runs a few commands on it."""
        rng, folder = self.rng, self.folder
        good = {name: (folder / name).read_bytes() for name in ("d.json", "book.json", "names.dbf", "atlas-sheets.dbf")}
        target = rng.choice(["d.json", "d.json", "d.json", "book.json", "names.dbf", "atlas-sheets.dbf", "", ""])
        if target.endswith(".json"):
            (folder / target).write_bytes(change_json(rng, good[target]))
        elif target:
            (folder / target).write_bytes(change_bytes(rng, good[target]))
        try:
            for _ in range(rng.choice([1, 2, 3])):
                self.run(self.command())
        finally:
            kept = folder / "kept"
            kept.mkdir(exist_ok=True)
            for name in good:
                if (folder / name).exists():
                    shutil.copy(folder / name, kept)
        for name, data in good.items():
            (folder / name).write_bytes(data)
        for path in folder.glob("out*"):
            path.unlink()

    def command(self):
        rng = self.rng
        output = rng.choice(["out.pdf", "out.pdf", "out.png", "out.svg", "outlink.pdf", "d.json", "out.txt"])
        if output == "outlink.pdf" and not (self.folder / output).exists():
            os.symlink("names.dbf", self.folder / output)  # Every command reads it.
        column = rng.choice(["", "", "Listing.", "Page.", "*.", "Nowhere."])
        assignment = f"{column}{rng.choice(self.keys)}={value_for(rng)}"
        pages = rng.choice([[], [], ["--pages", rng.choice(["1", "2-3", "0", "9-1", "x"])]])
        strict = rng.choice([[], [], [], ["--strict"]])
        return rng.choice([
            ["check", "d.json", "--json"], ["check", "d.json"], ["show", "d.json", "--json"], ["show", "d.json"],
            ["column", "list", "d.json", "--json"], ["column", "list", "d.json"],
            ["draw", "d.json", "--page", rng.choice(["1", "2", "0", "-1", "99999999999"]), "--json"],
            ["draw", "d.json", "--page", "1", "-o", output] + strict, ["draw", "d.json", "--page", "1"],
            ["export", "d.json", "-o", output] + pages + strict, ["export", "d.json", "-o", output],
            ["generate", "d.json"], ["draft", "d.json"],
            ["set", "d.json", assignment], ["set", "d.json", assignment], ["set", "d.json", assignment],
            ["column", "add", "d.json", value_for(rng)[:300], "Title=" + value_for(rng)],
            ["column", "remove", "d.json", rng.choice(["Listing", "Page", "x"])],
            ["table", "names.dbf", "--json"], ["table", "names.dbf"],
            ["make", "names.dbf", "-o", output, "--set", assignment] + strict,
            ["make", "names.dbf", "-o", output, "--page-size", rng.choice(["0x1", "200x200", "1e300x1", "a5", "10mmx10mm"])],
        ])


def main():
    program, seconds = os.path.abspath(sys.argv[1]), float(sys.argv[2])
    seed = int(sys.argv[3]) if len(sys.argv) > 3 else int(time.time())
    examples = Path(__file__).resolve().parents[2] / "examples"
    end = time.monotonic() + seconds
    worlds = 0
    while time.monotonic() < end:
        folder = Path(tempfile.mkdtemp(prefix="hostile-"))
        last = []
        try:
            world = World(program, examples, random.Random(seed + worlds), folder)
            run = world.run
            world.run = lambda command: (last.clear(), last.extend(command), run(command))[2]
            for _ in range(40):
                if time.monotonic() < end:
                    world.step()
        except (Found, ValueError) as found:
            print(f"seed {seed + worlds}, files in {folder}\n  {last}\n  {found}", file=sys.stderr)
            return 1
        shutil.rmtree(folder)
        worlds += 1
    print(f"{worlds} sets of files from seed {seed}: nothing found", file=sys.stderr)
    return 0


if __name__ == "__main__":
    # Nested values are changed and written by recursion.
    sys.setrecursionlimit(100_000)
    threading.stack_size(512 << 20)
    status = []
    thread = threading.Thread(target=lambda: status.append(main()))
    thread.start()
    thread.join()
    sys.exit(status[0] if status else 1)
