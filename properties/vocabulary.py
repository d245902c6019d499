"""Reads vocabulary.csv and refuses what the library could not work with."""
import pathlib
import sys

FOLDER = pathlib.Path(__file__).resolve().parent
sys.path.append(str(FOLDER.parent / "scripts"))

from csv_table import numbered_rows  # pylint: disable=wrong-import-position

KINDS = ("constant", "temperature-dependent", "pressure-dependent", "single-phase", "two-phase")
CHOICES = {
    "kind": KINDS,
    "dimensions": ("0", "1", "2"),
    "basis_power": ("-1", "0", "1"),
    "mixable": ("0", "1"),
    "specific": ("0", "1"),
}
TEXTS = ("name", "mole_unit", "mass_unit")


def complaints(row):
    for column, choices in CHOICES.items():
        if row[column] not in choices:
            yield f"{column} is '{row[column]}', not one of {', '.join(choices)}"
    for column in TEXTS:
        if not row[column].isascii() or not row[column].isprintable() or set(row[column]) & set('"\\'):
            yield f"{column} is not plain text: {row[column]!r}"
    if not row["name"]:
        yield "there is no name"
    if bool(row["mole_unit"]) != bool(row["mass_unit"]):
        yield f"{row['name']} has a unit in one basis alone"
    if row["kind"] != "single-phase" and "1" in (row["mixable"], row["specific"]):
        yield f"{row['name']} is mixable or specific, as single-phase properties alone can be"


def vocabulary(path=FOLDER / "vocabulary.csv"):
    """The rows, in order, as dictionaries of texts. ValueError, with file and line, for the first that is wrong."""
    rows, lines = [], {}
    for line, row in numbered_rows(path):
        complaint = next(complaints(row), None)
        if complaint:
            raise ValueError(f"{path}:{line}: {complaint}")
        key = row["kind"], row["name"].lower()  # names are looked up without regard to case
        if key in lines:
            raise ValueError(f"{path}:{line}: the {row['kind']} property {row['name']} is in line {lines[key]} already")
        lines[key] = line
        rows.append(row)
    return rows
