"""Writes helptoc.xml, the contents as MATLAB's help wants them; the first page stands above all others."""

import pathlib
import xml.etree.ElementTree


def item(env, parent, page):
    element = xml.etree.ElementTree.SubElement(parent, "tocitem", target=page + ".html")
    element.text = env.titles[page].astext()
    return element


def add_pages_below(env, parent, page):
    for below in env.toctree_includes.get(page, ()):
        add_pages_below(env, item(env, parent, below), below)


def write(app, problem):
    if problem or app.builder.name != "html":
        return
    contents = xml.etree.ElementTree.Element("toc", version="2.0")
    first = app.config.root_doc
    add_pages_below(app.env, item(app.env, contents, first), first)
    xml.etree.ElementTree.indent(contents)
    path = pathlib.Path(app.outdir) / "helptoc.xml"
    xml.etree.ElementTree.ElementTree(contents).write(path, encoding="utf-8", xml_declaration=True)


def setup(app):
    app.connect("build-finished", write)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
