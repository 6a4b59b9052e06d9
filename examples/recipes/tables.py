"""Writes dBase III tables, the same bytes on every run."""

import struct
from dataclasses import dataclass

LAST_UPDATE = (2024, 1, 1)
HEADER_BYTES, FIELD_BYTES = 32, 32
FIELDS_END, FILE_END = b"\r", b"\x1a"
LIVE, DELETED = b" ", b"*"

# Language driver bytes by code page; UTF-8 has none and is named in a .cpg file beside the table.
LANGUAGE_DRIVERS = {"cp1250": 0xC8, "cp1252": 0x57}


@dataclass(frozen=True)
class Field:
    name: str  # at most 10 ASCII characters
    type: str  # "C" or "N"
    length: int = 0  # bytes; 0 in a character field: as long as its longest text
    decimals: int = 0


def _cell(field, value, encoding):
    if field.type == "N":
        cell = f"{value:.{field.decimals}f}".encode("ascii").rjust(field.length)
    else:
        cell = value.encode(encoding).ljust(field.length)
    if len(cell) > field.length:
        raise ValueError(f"{field.name} is too narrow for {value}")
    return cell


def _fitted(fields, rows, encoding):
    """Fields with their lengths filled in."""
    result = []
    for i, field in enumerate(fields):
        if field.type == "C" and not field.length:
            longest = max(len(row[i].encode(encoding)) for row in rows)
            field = Field(field.name, field.type, longest)
        result.append(field)
    return result


def table_bytes(fields, rows, encoding, deleted=()):
    """The table. `deleted` holds the positions of rows that stay in it but are struck out."""
    fields = _fitted(fields, rows, encoding)
    year, month, day = LAST_UPDATE
    header = struct.pack("<4BLHH17xB2x", 3, year - 1900, month, day, len(rows),
                         HEADER_BYTES + FIELD_BYTES * len(fields) + len(FIELDS_END),
                         1 + sum(field.length for field in fields),
                         LANGUAGE_DRIVERS.get(encoding, 0))
    parts = [header]
    for field in fields:
        parts.append(struct.pack("<11sc4xBB14x", field.name.encode("ascii"),
                                 field.type.encode("ascii"), field.length, field.decimals))
    parts.append(FIELDS_END)
    for i, row in enumerate(rows):
        parts.append(DELETED if i in deleted else LIVE)
        parts += [_cell(field, value, encoding) for field, value in zip(fields, row, strict=True)]
    parts.append(FILE_END)
    return b"".join(parts)


def write_table(path, fields, rows, encoding, deleted=()):
    """Writes the table, and the .cpg file if its encoding has no language driver byte."""
    path.write_bytes(table_bytes(fields, rows, encoding, deleted))
    if encoding not in LANGUAGE_DRIVERS:
        path.with_suffix(".cpg").write_text(encoding.upper(), encoding="ascii")
