"""Makes the page of a function from its .m file: the source of the page is the help text."""

import re

from docutils import nodes
from sphinx import addnodes
from sphinx.parsers import Parser

from help_text import FUNCTION, FunctionHelp


def link_to(page, docname):
    reference = addnodes.pending_xref("", nodes.inline("", page), refdomain="std", reftype="doc", reftarget="/" + page,
                                      refexplicit=False, refdoc=docname, refwarn=True)
    return reference


def running_text(text, docname):
    """The nodes of a text in which the names of other functions are links."""
    found, at = [], 0
    for match in re.finditer(FUNCTION, text):
        if match.group() != docname:
            found += [nodes.Text(text[at:match.start()]), link_to(match.group(), docname)]
            at = match.end()
    return found + [nodes.Text(text[at:])]


def paragraph(text, docname):
    return nodes.paragraph("", "", *running_text(text, docname))


def definition_list(items, docname):
    rows = nodes.definition_list()
    for term, text in items:
        rows += nodes.definition_list_item("", nodes.term("", "", nodes.literal(term, term)),
                                           nodes.definition("", paragraph(text, docname)))
    return rows


def code(text):
    return nodes.literal_block(text, text, language="matlab")


class HelpParser(Parser):
    """The parser of .m files."""

    supported = ("matlab",)

    def parse(self, inputstring, document):
        self.setup_parse(inputstring, document)
        docname = self.env.docname
        function = FunctionHelp(docname, inputstring)
        page = self._section(docname, paragraph(function.purpose, docname))
        page += self._section("Syntax", code(function.syntax()))
        for heading, content in function.parts():
            if heading is None:
                page[-1] += paragraph(content, docname)
            elif heading == "Example":
                page += self._section(heading, code(content))
            else:
                page += self._section(heading, definition_list(content, docname))
        links = [node for name in function.see_also for node in (nodes.Text(", "), link_to(name, docname))]
        page += self._section("See also", nodes.paragraph("", "", *links[1:]))
        document += page
        self.finish_parse()

    def _section(self, title, *content):
        section = nodes.section("", nodes.title(title, title), *content, names=[nodes.fully_normalize_name(title)])
        self.document.note_implicit_target(section, section)
        return section


def setup(app):
    app.add_source_suffix(".m", "matlab")
    app.add_source_parser(HelpParser)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
