#!/usr/bin/env python3
"""Turns vocabulary.csv into C++.

    generate.py FILE [TABLE]     FILE is written, for properties/vocabulary.cpp to include; TABLE: another than vocabulary.csv
"""
import sys

from vocabulary import vocabulary

KINDS = {
    "constant": "CompoundConstant",
    "temperature-dependent": "TemperatureDependent",
    "pressure-dependent": "PressureDependent",
    "single-phase": "SinglePhase",
    "two-phase": "TwoPhase",
}


def text(words):
    return f'OLESTR("{words}")' if words else "nullptr"


def cpp(row):
    members = {
        "kind": KINDS[row["kind"]],
        "massUnit": text(row["mass_unit"]),
        "moleUnit": text(row["mole_unit"]),
        "name": text(row["name"]),
        "basisPower": row["basis_power"],
        "dimensions": row["dimensions"],
        "mixable": row["mixable"],
        "specific": row["specific"],
    }
    return "    {" + ", ".join(f".{name} = {value}" for name, value in members.items()) + "},"


def main(target, *table):
    lines = ["// Made by properties/generate.py from vocabulary.csv.", "constexpr PropertyInfo rows[] = {"]
    lines += [cpp(row) for row in vocabulary(*table)]
    with open(target, "w", encoding="ascii", newline="\n") as file:
        file.write("\n".join(lines + ["};"]) + "\n")


if __name__ == "__main__":
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    try:
        main(*sys.argv[1:])
    except (OSError, ValueError) as error:
        sys.exit(str(error))
