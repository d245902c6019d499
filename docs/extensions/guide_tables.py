"""Directives for the tables that are made from the sources: functions, examples and properties."""

import pathlib
import sys

from docutils import nodes
from sphinx import addnodes
from sphinx.util.docutils import SphinxDirective

from function_pages import link_to
from help_text import FunctionHelp

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.append(str(ROOT / "properties"))

from vocabulary import vocabulary  # pylint: disable=wrong-import-position

SHAPES = {"0": "one value", "1": "each compound", "2": "pairs of compounds"}


def row_of(cells):
    return nodes.row("", *(nodes.entry("", nodes.paragraph("", "", cell)) for cell in cells))


def table(rows, head=None):
    """Rows of inline nodes."""
    columns = len(head or rows[0])
    group = nodes.tgroup("", *(nodes.colspec(colwidth=1) for _ in range(columns)), cols=columns)
    if head:
        group += nodes.thead("", row_of([nodes.Text(title) for title in head]))
    group += nodes.tbody("", *map(row_of, rows))
    return nodes.table("", group, classes=["colwidths-auto"])


def literal(text):
    return nodes.literal(text, text)


class FunctionTable(SphinxDirective):
    """All functions with their purposes, in the order of the alphabet."""

    def run(self):
        rows = []
        for name in sorted(self.env.found_docs):
            path = pathlib.Path(self.env.doc2path(name))
            if path.suffix == ".m":
                purpose = FunctionHelp(name, path.read_text(encoding="utf-8")).purpose
                rows.append((link_to(name, self.env.docname), nodes.Text(purpose)))
        return [table(rows)]


class ExampleTable(SphinxDirective):
    """The scripts in toolbox/examples/, each with the first line of its comment."""

    def run(self):
        rows = []
        for path in sorted((ROOT / "toolbox/examples").glob("*.m")):
            first = path.read_text(encoding="ascii").splitlines()[0]
            if first.startswith("% "):
                rows.append((literal(path.stem), nodes.Text(first[2:])))
        return [table(rows)]


class PropertyTable(SphinxDirective):
    """The properties of the kind that is the argument, with their units. The index has their names."""

    required_arguments = 1

    def run(self):
        properties = [row for row in vocabulary() if row["kind"] == self.arguments[0]]
        anchor = self.arguments[0] + "-names"
        names = addnodes.index(entries=[("single", row["name"].strip(), anchor, "", None) for row in properties])
        rows = [(literal(row["name"]), nodes.Text(SHAPES[row["dimensions"]]),
                 *(nodes.Text(row[unit] or "none") for unit in ("mole_unit", "mass_unit"))) for row in properties]
        return [names, nodes.target("", "", ids=[anchor]),
                table(rows, ("name", "values", "unit, mole basis", "unit, mass basis"))]


def setup(app):
    app.add_directive("function-table", FunctionTable)
    app.add_directive("example-table", ExampleTable)
    app.add_directive("property-table", PropertyTable)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
