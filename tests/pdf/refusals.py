#!/usr/bin/env python3
"""refusals.py PROGRAM TABLE: a file that would not be what it claims is not written, and the reason is
told in one sentence. Fonts with other licences are made from an installed one."""
import os
import re
import struct
import subprocess
import sys
import tempfile
from pathlib import Path

# Of the package libgs-common, which ghostscript needs.
PROFILE = "/usr/share/color/icc/ghostscript/default_cmyk.icc"


def licensed(source, licence):
    """The font with another fsType in its table OS/2."""
    font = bytearray(source)
    for at in range(12, 12 + 16 * struct.unpack_from(">H", font, 4)[0], 16):
        if font[at:at + 4] == b"OS/2":
            struct.pack_into(">H", font, struct.unpack_from(">I", font, at + 8)[0] + 8, licence)
    return font


class Folder:
    def __init__(self, path, program, table):
        self.path = Path(path)
        self.program, self.table = program, table
        self.font = subprocess.run(["fc-match", "-f", "%{file}", "Liberation Sans:bold=0"],
                                   stdout=subprocess.PIPE, check=True, text=True).stdout
        (self.path / "fonts.conf").write_text(
            '<?xml version="1.0"?><!DOCTYPE fontconfig SYSTEM "fonts.dtd"><fontconfig>'
            "<dir>%s/fonts</dir><cachedir>%s/cache</cachedir></fontconfig>" % (self.path, self.path))
        (self.path / "fonts").mkdir()

    def make(self, licence, *options, **variables):
        """Status, errors, and the bytes of the file."""
        (self.path / "fonts" / "font.ttf").write_bytes(
            licensed(Path(self.font).read_bytes(), licence))
        output = self.path / "index.pdf"
        output.unlink(missing_ok=True)
        done = subprocess.run(
            [self.program, "make", self.table, "-o", "index.pdf", *options], cwd=self.path, text=True,
            env={**os.environ, "FONTCONFIG_FILE": str(self.path / "fonts.conf"), **variables},
            stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        return done.returncode, done.stderr, output.read_bytes() if output.exists() else None


def cases():
    """Licence, options, and what is told; empty: the file is written."""
    font = 'the font "LiberationSans" may not be embedded %s by its licence \\(on page 1 of the file\\)'
    yield from ((licence, (), "") for licence in (0, 4, 8, 2 | 8))
    yield 2, (), font % "in files"
    yield 0x100, (), font % "in part"
    yield 0x208, (), font % "as outlines"
    yield 2, ("--no-tags",), ""
    yield 2, ("--press", PROFILE), font % "in files"
    yield 0, ("--title", 40000 * "T"), 'the title that begins with "T{30}" is longer than 32767 bytes'


def main(program, table):
    with tempfile.TemporaryDirectory() as path:
        faults = list(check(Folder(path, program, table)))
    print("\n".join(faults))
    return 1 if faults else 0


def check(folder):
    for licence, options, told in cases():
        status, errors, written = folder.make(licence, "--locale", "en-US", *options)
        advice = "--no-tags .*" if "--press" not in options else "use another font"
        sentence = r'(?m)^gazetteer: The file "index.pdf" cannot be written: %s, .*%s\.$'
        good = (status, bool(written)) == ((1, False) if told else (0, True)) and (
            not told or re.search(sentence % (told, advice), errors))
        if not good:
            yield "%s %s: status %d: %s" % (licence, options, status, errors)
    # Without a language, less is claimed.
    for locale, level, access in (("en-US", b"A", True), ("C", b"B", False)):
        written = folder.make(0, LC_ALL=locale, *(("--locale", locale) if access else ()))[2]
        if b"<pdfaid:conformance>%s<" % level not in written or (
                b"pdfuaid:part>" in written) != access:
            yield "claims for " + locale


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
