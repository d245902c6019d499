#!/usr/bin/env python3
"""Makes the user guide: HTML pages, and the project from which chmcmd compiles Verdanth.chm.

    docs/build.py VERSION FOLDER

The pages of the functions come from the help texts in toolbox/, and the tables of properties from the vocabulary of the
library, so that they can't differ from these; the other pages are in docs/pages/. docs/contents.txt puts all of them in order.
"""

import html
import pathlib
import re
import shutil
import sys

DOCS = pathlib.Path(__file__).resolve().parent
TOOLBOX = DOCS.parent / "toolbox"
sys.path.append(str(DOCS.parent / "properties"))

from help_text import FunctionHelp, help_files  # pylint: disable=wrong-import-position
from vocabulary import vocabulary  # pylint: disable=wrong-import-position

PAGE = """<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01//EN" "http://www.w3.org/TR/html4/strict.dtd">
<html lang="en">
<head>
<meta http-equiv="Content-Type" content="text/html; charset=us-ascii">
<title>{title}</title>
<link rel="stylesheet" type="text/css" href="style.css">
</head>
<body>
<p class="where">{where}</p>
{body}
</body>
</html>
"""

KINDS = {
    "constant": "Compound constants",
    "temperature-dependent": "Temperature-dependent properties of pure compounds",
    "pressure-dependent": "Pressure-dependent properties of pure compounds",
    "single-phase": "Single-phase properties",
    "two-phase": "Two-phase properties",
}
SHAPES = {"0": "one value", "1": "each compound", "2": "pairs of compounds"}


class Entry:
    """A page in the contents: its file name without extension, title, depth and HTML."""

    def __init__(self, name, title, depth, body):
        self.name, self.title, self.depth, self.body = name, title, depth, body

    @property
    def file(self):
        return self.name + ".html"


def link(name, title=None):
    return f'<a href="{name}.html">{title or name}</a>'


def source_of(name):
    return (DOCS / "pages" / (name + ".html")).read_text(encoding="utf-8")


def title_of(source):
    return re.search(r"<h1>(.*?)</h1>", source).group(1)


def resolve_links(text, helps):
    """[[name]] is a link to the page of that name: a function's, or one of docs/pages/ by its title."""
    def resolved(found):
        name = found.group(1)
        return link(name) if name in helps else link(name, title_of(source_of(name)))

    return re.sub(r"\[\[([\w.]+)\]\]", resolved, text)


def property_tables():
    """One table for each kind of properties."""
    rows = {kind: [] for kind in KINDS}
    for row in vocabulary():
        units = "".join(f"<td>{html.escape(row[unit]) or 'none'}</td>" for unit in ("mole_unit", "mass_unit"))
        rows[row["kind"]].append(f"<tr><td><code>{row['name']}</code></td><td>{SHAPES[row['dimensions']]}</td>{units}</tr>")
    head = "<tr><th>name</th><th>values</th><th>unit, mole basis</th><th>unit, mass basis</th></tr>"
    return "\n".join(f'<h2><a name="{kind}"></a>{title}</h2>\n<table>\n{head}\n' + "\n".join(rows[kind]) + "\n</table>"
                     for kind, title in KINDS.items())


def function_table(helps):
    rows = [f"<tr><td>{link(name)}</td><td>{html.escape(text.purpose, quote=False)}</td></tr>" for name, text in helps.items()]
    return "<table>\n" + "\n".join(rows) + "\n</table>"


def example_table():
    """The scripts in toolbox/examples/, each with the first line of its comment."""
    rows = []
    for path in sorted((TOOLBOX / "examples").glob("*.m")):
        first = path.read_text(encoding="ascii").splitlines()[0]
        if first.startswith("% "):
            rows.append(f"<tr><td><code>{path.stem}</code></td><td>{html.escape(first[2:], quote=False)}</td></tr>")
    return "<table>\n" + "\n".join(rows) + "\n</table>"


def page_body(name, version, helps):
    body = source_of(name).replace("{{version}}", version)
    if "{{functions}}" in body:
        body = body.replace("{{functions}}", function_table(helps))
    if "{{examples}}" in body:
        body = body.replace("{{examples}}", example_table())
    if "{{properties}}" in body:
        body = body.replace("{{properties}}", property_tables())
    return resolve_links(body, helps)


def read_contents(version):
    """The entries of docs/contents.txt: a name on each line, two blanks in front for each level."""
    helps = {text.name: text for text in map(FunctionHelp, help_files(TOOLBOX))}
    names = (DOCS / "contents.txt").read_text(encoding="ascii").splitlines()
    listed = {name.strip(): text for name in names if (text := helps.get(name.strip()))}
    entries = []
    for line in names:
        name, depth = line.strip(), (len(line) - len(line.lstrip())) // 2
        if name in helps:
            entries.append(Entry(name, name, depth, helps[name].to_html(link)))
        else:
            body = page_body(name, version, listed)
            entries.append(Entry(name, title_of(body), depth, body))
    return entries


def write_ascii(path, text):
    path.write_bytes(text.encode("ascii", "xmlcharrefreplace"))


def sitemap(entries, nested):
    def item(entry):
        return (f'<LI><OBJECT type="text/sitemap"><param name="Name" value="{html.escape(entry.title)}">'
                f'<param name="Local" value="{entry.file}"></OBJECT>')

    lines, depth = ["<UL>"], 0
    for entry in entries:
        wanted = entry.depth if nested else 0
        lines += ["<UL>"] * (wanted - depth) + ["</UL>"] * (depth - wanted) + [item(entry)]
        depth = wanted
    lines += ["</UL>"] * (depth + 1)
    return ('<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">\n<HTML><HEAD></HEAD><BODY>\n' + "\n".join(lines) + "\n</BODY></HTML>\n")


def matlab_contents(entries):
    """The contents as MATLAB's help wants them; the first page stands above all others."""
    lines, depth = ["<?xml version=\"1.0\" encoding=\"utf-8\"?>", '<toc version="2.0">'], -1
    for entry in entries:
        level = 0 if entry is entries[0] else entry.depth + 1
        lines += ["</tocitem>"] * (depth - level + 1)
        lines.append(f'<tocitem target="{entry.file}">{html.escape(entry.title, quote=False)}')
        depth = level
    return "\n".join(lines + ["</tocitem>"] * (depth + 1) + ["</toc>"]) + "\n"


def project(version, entries, images):
    options = {
        "Compatibility": "1.1 or later", "Compiled file": "Verdanth.chm", "Contents file": "Verdanth.hhc",
        "Index file": "Verdanth.hhk", "Default topic": entries[0].file, "Default Window": "main", "Full-text search": "Yes",
        "Display compile progress": "No", "Language": "0x409 English (United States)", "Title": f"Verdanth {version}",
    }
    first = entries[0].file
    window = f'main="Verdanth {version}","Verdanth.hhc","Verdanth.hhk","{first}","{first}",,,,,0x63520,,0x387e,,,,,,,,0'
    lines = ["[OPTIONS]", *(f"{key}={value}" for key, value in options.items()), "", "[WINDOWS]", window, "", "[FILES]"]
    return "\n".join(lines + [entry.file for entry in entries] + ["style.css", *images, "", "[INFOTYPES]", ""])


def main(version, folder):
    folder = pathlib.Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    for old in folder.glob("*.html"):
        old.unlink()
    entries = read_contents(version)
    shutil.copyfile(DOCS / "style.css", folder / "style.css")
    images = sorted(path.name for path in (DOCS / "images").glob("*.png"))
    for image in images:
        shutil.copyfile(DOCS / "images" / image, folder / image)
    for entry in entries:
        where = "Verdanth " + version if entry is entries[0] else f'<a href="{entries[0].file}">Verdanth {version}</a>'
        write_ascii(folder / entry.file, PAGE.format(title=entry.title, where=where, body=entry.body))
    write_ascii(folder / "Verdanth.hhc", sitemap(entries, nested=True))
    write_ascii(folder / "Verdanth.hhk", sitemap(sorted(entries, key=lambda entry: entry.title.lower()), nested=False))
    write_ascii(folder / "helptoc.xml", matlab_contents(entries))
    write_ascii(folder / "Verdanth.hhp", project(version, entries, images))


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(*sys.argv[1:])
