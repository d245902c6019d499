"""Puts the title of every page into the index: the help viewer has a tab for it."""

from docutils import nodes
from sphinx import addnodes
from sphinx.transforms import SphinxTransform


class TitleInIndex(SphinxTransform):
    """Runs before the entries of the index are collected."""

    default_priority = 800

    def apply(self, **kwargs):
        page = next(self.document.findall(nodes.section))
        title = page.next_node(nodes.title).astext().replace(";", ",")
        page.insert(1, addnodes.index(entries=[("single", title, page["ids"][0], "", None)]))


def setup(app):
    app.add_transform(TitleInIndex)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
