#!/usr/bin/env python3
"""Turns the tables of published values into C++ for the test that holds the packages to them.

    published_values.py FILE     FILE is written, which published_values_test.cpp beside it includes
"""
import os
import sys

DATA = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..", "reference", "data")
sys.path.insert(0, DATA)

from tables import rows  # pylint: disable=wrong-import-position

FOLDER = os.path.join(DATA, "published")
TABLES = ("constants", "formation", "saturation", "heat_capacity", "viscosity", "conductivity",
          "surface_tension")


def braces(*cells):
    return "    {" + ", ".join(cells) + "},"


def text(cell):
    return '"' + cell.replace('"', '\\"') + '"'


def number(cell):
    return "any" if cell in ("", "inf") else cell


def array(kind, name, lines):
    return [f"constexpr {kind} {name}[] = {{", *lines, "};"]


def main():
    kinds = [braces(text(row["property"]), *(row[name] for name in ("si", "relative", "absolute", "median")))
             for row in rows("kinds", FOLDER)]
    reasons = [braces(text(row["id"]), text(row["property"]), number(row["temperature_K"]), text(row["equation"]),
                      number(row["outside"])) for row in rows("reasons", FOLDER)]
    values = [braces(text(row["id"]), text(row["property"]), number(row["temperature_K"]), row["value"], row["lowest"],
                     row["highest"]) for table in TABLES for row in rows(table, FOLDER)]
    for row in rows("reasons", FOLDER):
        if not row["reason"]:
            raise ValueError(f"reasons.csv: {row['id']} has none for its {row['property']}")
    with open(sys.argv[1], "w", encoding="utf-8", newline="\n") as file:
        file.write("\n".join(array("Kind", "kinds", kinds) + array("Reason", "reasons", reasons) +
                             array("Published", "publishedValues", values)) + "\n")


if __name__ == "__main__":
    main()
