"""tutorial.py PROGRAM DOCUMENT EXAMPLES: does what the blocks of commands in the document say (```sh), in
a folder with the example maps, and compares what they print with the block behind (```text). With
--write the document gets what they print, with --into FOLDER the folder is kept."""

import argparse
import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

BLOCK = re.compile(r"^```sh\n(.*?)^```\n(?:\n```text\n(.*?)^```\n)?", re.MULTILINE | re.DOTALL)


def printed(commands, folder, program):
    environment = {**os.environ, "LC_ALL": "C.UTF-8",
                   "PATH": f"{program.resolve().parent}:{os.environ['PATH']}"}
    done = subprocess.run(["bash", "-e", "-o", "pipefail", "-c", commands], cwd=folder, text=True,
                          env=environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if done.returncode != 0:
        sys.exit(f"{commands}ends with {done.returncode}:\n{done.stdout}")
    return done.stdout


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program", type=Path)
    parser.add_argument("document", type=Path)
    parser.add_argument("examples", type=Path)
    parser.add_argument("--into", type=Path)
    parser.add_argument("--write", action="store_true")
    arguments = parser.parse_args()
    text = arguments.document.read_text(encoding="utf-8")
    wrong = []
    with tempfile.TemporaryDirectory() as temporary:
        folder = arguments.into or Path(temporary)
        for example in arguments.examples.glob("*.gpkg"):
            shutil.copy(example, folder)

        def follow(block):
            commands, told = block.groups()
            got = printed(commands, folder, arguments.program)
            if got != (told or ""):
                wrong.append(f"{commands}prints\n{got}instead of\n{told or ''}")
            return block[0] if told is None else block[0].replace(told, got)

        text = BLOCK.sub(follow, text)
    if arguments.write:
        arguments.document.write_text(text, encoding="utf-8")
    elif wrong:
        sys.exit("\n".join(wrong))
    elif not BLOCK.search(text):
        sys.exit("The document has no commands.")


main()
