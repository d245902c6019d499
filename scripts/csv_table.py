"""Reads the tables that parts of the project are made from: CSV, with lines of comment that begin with #."""
import csv


def numbered_rows(path):
    """Pairs of the number of a line and its cells, texts by the names in the heading. A row of the wrong length is an
    error."""
    with open(path, encoding="utf-8", newline="") as file:
        lines = [(number, line) for number, line in enumerate(file, 1) if not line.startswith("#")]
    cells = csv.reader(line for _, line in lines)
    heading = next(cells)
    result = []
    for (number, _), row in zip(lines[1:], cells):
        if len(row) != len(heading):
            raise ValueError(f"{path}:{number}: {len(row)} cells where {len(heading)} belong: {row}")
        result.append((number, dict(zip(heading, row))))
    return result
