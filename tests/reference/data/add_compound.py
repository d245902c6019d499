#!/usr/bin/env python3
"""Copies the tables of the compounds to a folder, with the rows of one compound more.

    add_compound.py FOLDER

It is an isomer of one that is there, and has its values, so that what must come out of it is known.
"""
import os
import shutil
import sys

DATA = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "..", "reference", "data")
MODEL = "n-octane"
NEW = "3-methylheptane"
IDENTITY = "3-methylheptane,3-methylheptane,C8H18,589-81-1,CCCCC(C)CC"


def added(name, line):
    """The row of the new compound that corresponds to a row of its model; None for other rows."""
    cells = line.split(",")
    if name == "interaction_parameters.csv":
        if MODEL not in cells[:2]:
            return None
        return ",".join([NEW if cell == MODEL else cell for cell in cells[:2]] + cells[2:])
    if cells[0] != MODEL:
        return None
    return IDENTITY if name == "identities.csv" else ",".join([NEW] + cells[1:])


def main():
    folder = sys.argv[1]
    os.makedirs(folder, exist_ok=True)
    for name in os.listdir(DATA):
        if not name.endswith(".csv"):
            continue
        shutil.copy(os.path.join(DATA, name), folder)
        with open(os.path.join(folder, name), "r+", encoding="utf-8") as file:
            lines = file.read().splitlines()
            new = [row for row in (added(name, line) for line in lines) if row]
            file.write("".join(row + "\n" for row in new))


if __name__ == "__main__":
    main()
