"""Reads the tables of this folder: CSV with a header of comments."""
import csv
import os

FOLDER = os.path.dirname(os.path.abspath(__file__))


def number(text):
    """The value of a cell; None for an empty one."""
    return float(text) if text else None


def rows(name, folder=FOLDER):
    """The rows of a table as dictionaries of texts. A row of the wrong length is an error."""
    with open(os.path.join(folder, name + ".csv"), encoding="utf-8", newline="") as file:
        reader = csv.reader(line for line in file if not line.startswith("#"))
        heading = next(reader)
        result = []
        for cells in reader:
            if len(cells) != len(heading):
                raise ValueError(f"{name}.csv: {len(cells)} cells where {len(heading)} belong: {cells}")
            result.append(dict(zip(heading, cells)))
    return result


def by_id(name, folder=FOLDER):
    """The rows of a table by the column id. A compound that stands in it twice is an error."""
    result = {}
    for row in rows(name, folder):
        if row["id"] in result:
            raise ValueError(f"{name}.csv: {row['id']} is there twice")
        result[row["id"]] = row
    return result
