"""A PDF as qpdf tells it: objects, streams, and the operators of contents."""
import base64
import json
import re
import subprocess

TOKEN = re.compile(rb"""\s*(?:
    (?P<number>[+-]?(?:\d+\.?\d*|\.\d+)) | (?P<name>/[^\s()<>\[\]{}/%]*) |
    (?P<hex><[0-9A-Fa-f\s]*>) | (?P<mark><<|>>|\[|\]) | (?P<string>\() |
    (?P<operator>[^\s()<>\[\]{}/%]+))""", re.X)
ESCAPES = {b"n": b"\n", b"r": b"\r", b"t": b"\t", b"b": b"\b", b"f": b"\f"}


def literal(data, at):
    """The string that begins behind the bracket before at, and the place behind it."""
    out, depth = bytearray(), 1
    while True:
        byte = data[at:at + 1]
        at += 1
        if byte == b"\\":
            octal = re.compile(rb"[0-7]{1,3}").match(data, at)
            out += bytes([int(octal[0], 8) & 255]) if octal else ESCAPES.get(
                data[at:at + 1], data[at:at + 1])
            at += len(octal[0]) if octal else 1
            continue
        depth += (byte == b"(") - (byte == b")")
        if depth == 0:
            return bytes(out), at
        out += byte


def operators(data):
    """Yields (operator, operands). Names are str with the slash, strings are bytes."""
    at, stack = 0, [[]]
    while token := TOKEN.match(data, at):
        at, kind, text = token.end(), token.lastgroup, token[token.lastgroup]
        if kind == "operator" and text not in (b"true", b"false", b"null"):
            yield text.decode(), stack[0]
            stack = [[]]
        elif text in (b"[", b"<<"):
            stack.append([])
        elif text in (b"]", b">>"):
            inner = stack.pop()
            stack[-1].append(dict(zip(inner[::2], inner[1::2])) if text == b">>" else inner)
        elif kind == "string":
            value, at = literal(data, at)
            stack[-1].append(value)
        elif kind == "hex":
            stack[-1].append(bytes.fromhex(text[1:-1].decode()))
        else:
            stack[-1].append(float(text) if kind == "number" else text.decode())


def text_of(value):
    """A text string of qpdf's JSON."""
    return value[2:] if value.startswith("u:") else bytes.fromhex(value[2:]).decode("latin-1")


class Pdf:
    def __init__(self, path):
        with open(path, "rb") as file:
            self.bytes = file.read()
        told = subprocess.run(["qpdf", "--json=2", "--json-key=qpdf", "--json-stream-data=inline",
                               "--decode-level=generalized", path], capture_output=True)
        if told.returncode not in (0, 3):  # 3: with warnings.
            raise ValueError(told.stderr)
        self.json = json.loads(told.stdout)
        self.objects = self.json["qpdf"][1]
        self.trailer = self.objects["trailer"]["value"]
        self.root = self.get(self.trailer["/Root"])

    def get(self, value):
        """The object that a reference leads to; of a stream the dictionary."""
        while isinstance(value, str) and re.fullmatch(r"\d+ \d+ R", value):
            held = self.objects.get("obj:" + value, {"value": None})
            value = held["stream"]["dict"] if "stream" in held else held["value"]
        return value

    def data(self, reference):
        held = self.objects.get("obj:%s" % reference, {})
        return base64.b64decode(held["stream"].get("data", "")) if "stream" in held else None

    def pages(self, node=None):
        node = node or self.root["/Pages"]
        for kid in self.get(node)["/Kids"]:
            if "/Kids" in self.get(kid):
                yield from self.pages(kid)
            else:
                yield kid

    def contents(self, page):
        streams = self.get(page).get("/Contents", [])
        return b"\n".join(self.data(one) for one in (
            streams if isinstance(streams, list) else [streams]))

    def values(self):
        """Every dictionary of the file with the name of its object, those in others too."""
        def inside(name, value):
            if isinstance(value, dict):
                yield name, value
            for one in value.values() if isinstance(value, dict) else (
                    value if isinstance(value, list) else []):
                yield from inside(name, one)
        for name, held in self.objects.items():
            yield from inside(name, held["stream"]["dict"] if "stream" in held else held["value"])
