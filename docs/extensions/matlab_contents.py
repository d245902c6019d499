"""Writes helptoc.xml, the contents as MATLAB's help wants them; the first page stands above all others."""

import pathlib
import xml.etree.ElementTree

from contents import pages_in_order


def write(app, problem):
    if problem or app.builder.name != "html":
        return
    above = [xml.etree.ElementTree.Element("toc", version="2.0")]
    for depth, page in pages_in_order(app.env, app.config.root_doc):
        item = xml.etree.ElementTree.SubElement(above[depth], "tocitem", target=page + ".html")
        item.text = app.env.titles[page].astext()
        above[depth + 1:] = [item]
    xml.etree.ElementTree.indent(above[0])
    path = pathlib.Path(app.outdir) / "helptoc.xml"
    xml.etree.ElementTree.ElementTree(above[0]).write(path, encoding="utf-8", xml_declaration=True)


def setup(app):
    app.connect("build-finished", write)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
