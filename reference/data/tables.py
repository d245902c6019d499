"""Reads the tables of this folder: CSV with a header of comments."""
import os
import sys

FOLDER = os.path.dirname(os.path.abspath(__file__))
sys.path.append(os.path.join(FOLDER, "..", "..", "scripts"))

from csv_table import numbered_rows  # pylint: disable=wrong-import-position


# The columns of a heat capacity: the constant, and the temperatures of the oscillators.
HEAT_CAPACITY = ("c0", "c150", "c250", "c400", "c650", "c1050", "c1700", "c2750", "c4450", "c7200")


def number(text):
    """The value of a cell; None for an empty one."""
    return float(text) if text else None


def rows(name, folder=FOLDER):
    """The rows of a table as dictionaries of texts. A row of the wrong length is an error."""
    return [row for _, row in numbered_rows(os.path.join(folder, name + ".csv"))]


def transport_correlations(folder=FOLDER):
    """The rows of transport_correlations.csv by compound and property. A property that stands there twice is an error."""
    result = {}
    for row in rows("transport_correlations", folder):
        key = (row["id"], row["property"])
        if key in result:
            raise ValueError(f"transport_correlations.csv: the {key[1]} of {key[0]} is there twice")
        result[key] = row
    return result


def by_id(name, folder=FOLDER):
    """The rows of a table by the column id. A compound that stands in it twice is an error."""
    result = {}
    for row in rows(name, folder):
        if row["id"] in result:
            raise ValueError(f"{name}.csv: {row['id']} is there twice")
        result[row["id"]] = row
    return result
