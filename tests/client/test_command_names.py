"""That the tables of what commands are called in scripts hold what the functions and the library do:

    test_command_names.py SOURCES
"""
import json
import pathlib
import re
import sys

SOURCES = pathlib.Path(sys.argv[1])


def read(file):
    return (SOURCES / file).read_text(encoding="utf-8")


def table(file):
    """The rows of a table: code, function, place of the handle, whether it calculates."""
    rows = re.findall(r"^ *\{?(\d+), ['\"](capeOpen\w+)['\"], (\d), (true|false)", read(file), re.MULTILINE)
    return {int(code): (name, int(place), calculates == "true") for code, name, place, calculates in rows}


def expected():
    """What each function calls, with its first argument at which place; a command calculates if its body does."""
    bodies = {int(code): body for code, body in
              re.findall(r"^ *\{(\d+), [^}]* (\w+)\},$", read("gateway/command_table.cpp"), re.MULTILINE)}
    calculating = set(re.findall(r"^Verdict (\w+)\(", read("commands/calculation_commands.h"), re.MULTILINE))
    rows = {}
    for name, signatures in json.loads(read("toolbox/functionSignatures.json")).items():
        calls = re.findall(r"= Verdanth\((\d+), (\w+, )?varargin", read(f"toolbox/{name}.m")) \
            if (SOURCES / f"toolbox/{name}.m").is_file() else []
        if not calls:
            continue
        code, before = int(calls[0][0]), bool(calls[0][1])
        inputs = (signatures if isinstance(signatures, dict) else signatures[0])["inputs"]
        has_handle = bool(inputs) and inputs[0]["name"] == "handle"
        assert code not in rows, f"{name} and {rows[code][0]} call {code}"
        rows[code] = (name, (2 if before else 1) if has_handle else 0, bodies[code] in calculating)
    assert rows.keys() == bodies.keys(), f"no function, or no command: {rows.keys() ^ bodies.keys()}"
    return rows


def main():
    right = expected()
    for file in ("client/command_names.cpp", "client/octave/private/commandWords.m"):
        found = table(file)
        wrong = [f"{code}: {found.get(code)} in the place of {right.get(code)}"
                 for code in sorted(found.keys() | right.keys()) if found.get(code) != right.get(code)]
        assert not wrong, "\n".join([file, *wrong])


main()
