#!/usr/bin/env python3
"""Turns the table of NRTL parameters into C++.

    generate_nrtl.py FILE     FILE is written, which reference/engine/compounds/nrtl.cpp includes
"""
import sys

from tables import rows


def lines():
    known = {row["id"] for row in rows("identities")}
    pairs = []
    for row in rows("nrtl_parameters"):
        names = (row["first"], row["second"])
        energies = (float(row["b12_K"]), float(row["b21_K"]))
        if not known.issuperset(names):
            raise ValueError(f"nrtl_parameters.csv: {names} are not both compounds of the tables")
        if names[1] < names[0]:
            names, energies = names[::-1], energies[::-1]
        pairs.append((*names, *energies, float(row["alpha"])))
    pairs.sort()
    if len({pair[:2] for pair in pairs}) < len(pairs):
        raise ValueError("nrtl_parameters.csv: a pair is there twice")
    yield "constexpr NrtlPair nrtlPairs[] = {"
    for first, second, one, other, alpha in pairs:
        yield f'    {{"{first}", "{second}", {one!r}, {other!r}, {alpha!r}}},'
    yield "};"


if __name__ == "__main__":
    with open(sys.argv[1], "w", encoding="utf-8") as file:
        file.write("\n".join(lines()) + "\n")
