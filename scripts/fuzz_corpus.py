#!/usr/bin/env python3
"""Writes fuzz/corpus/<target>/ from the rows of tests/data: one file a row, named like it.

Run it after adding rows. Files of other names (found by the fuzzers) are left alone."""

import pathlib
import re

ROOT = pathlib.Path(__file__).resolve().parent.parent
DATA = ROOT / "tests" / "data"
CORPUS = ROOT / "fuzz" / "corpus"


def unquoted(field):
    if not field.startswith('"'):
        return field
    escapes = {"t": "\t", "r": "\r", "n": "\n", '"': '"', "\\": "\\"}
    return re.sub(r"\\(.)", lambda match: escapes[match.group(1)], field[1:-1])


def rows(table):
    for line in (DATA / f"{table}.tsv").read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            name, *fields = line.split("\t")
            yield name, [unquoted(field) for field in fields]


def ini(lines):
    head = [";", ";note", "[Default home]", "JO20AW", "[Default Target]", "FN42AA", "[StayonTop]", " 1 "]
    tail = ["[NoCheckWebUpdates]", " 0 ", "[RememberPosition]", " 1 ", "[Left]", " 1440 ", "[Top]", " 15 ", ""]
    middle = ["[Home data]", lines.rstrip("\r\n"), "[**end**]", "[Target data]", "[**end**]"]
    return "\r\n".join(head + middle + tail)


def chain(actions):
    lines = []
    for action in actions.split(" | "):
        lines.append(action[0] + action[2:])
    return "\n".join(lines)


# Target, table, and what of a row's fields the target reads.
SOURCES = [
    ("number_text", "number_leading", lambda fields: fields[0]),
    ("number_text", "number_text", lambda fields: fields[3]),
    ("maidenhead", "maidenhead_decode", lambda fields: fields[0]),
    ("maidenhead", "locator_check", lambda fields: fields[0]),
    ("long_maidenhead", "long_maidenhead_decode", lambda fields: fields[0]),
    ("uiview", "uiview_read", lambda fields: fields[0]),
    ("uiview", "uiview_write", lambda fields: fields[8]),
    ("angles", "angles_convert_decimal", lambda fields: fields[0]),
    ("angles", "angles_convert_degree", lambda fields: fields[1]),
    ("locator_list_ini", "ini_list_lines", lambda fields: ini(fields[0])),
    ("locator_list_ini", "ini_title_note", lambda fields: ini("JO20").replace(";note", fields[0])),
    ("locator_list_ini", "ini_number_fields", lambda fields: ini("JO20").replace(" 1440 ", fields[0])),
    ("manual_search", "manual_text", lambda fields: "one\nONE\nline\n\n" + fields[0]),
    ("command_line", "command_line", lambda fields: fields[0]),
    ("converter", "converter_chains", lambda fields: chain(fields[0])),
    ("converter", "calculate", lambda fields: "C" + fields[0] + ";" + fields[1]),
    ("converter", "converter_paste", lambda fields: "P" + fields[0]),
    ("window", "converter_chains", lambda fields: chain(fields[0])),
    ("window", "calculate", lambda fields: "C" + fields[0] + ";" + fields[1]),
]


def main():
    count = 0
    for target, table, content in SOURCES:
        folder = CORPUS / target
        folder.mkdir(parents=True, exist_ok=True)
        for name, fields in rows(table):
            file = folder / (table + "-" + re.sub(r"[^A-Za-z0-9]+", "-", name).strip("-").lower())
            file.write_bytes(content(fields).encode("utf-8"))
            count += 1
    print(f"{count} files")


if __name__ == "__main__":
    main()
