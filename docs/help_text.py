"""Reads the help text of a function in toolbox/ and writes it as HTML."""

import html
import re

SECTIONS = ("Arguments:", "Properties:", "Methods:", "Results:", "Errors:", "Warnings:")
FUNCTION = r"\b(?:capeOpen\w+|capeopen\.[A-Z]\w+)"


def help_files(toolbox):
    """The files in toolbox/ that have a page: all functions, and the classes of the package capeopen."""
    return sorted(toolbox.glob("capeOpen*.m")) + sorted(toolbox.glob("+capeopen/*.m"))


def name_of(path):
    return ("capeopen." if path.parent.name == "+capeopen" else "") + path.stem


def comment_lines(path):
    """The comment behind the line `function` or `classdef`, without the percent signs."""
    lines = path.read_text(encoding="utf-8").splitlines()
    if not lines[0].startswith(("function ", "classdef ")):
        raise ValueError(f"{path}: the first line is not that of a function or a class")
    comment = []
    for line in lines[1:]:
        if not line.startswith("%"):
            break
        comment.append(line[1:])
    return comment


class FunctionHelp:
    def __init__(self, path):
        self.name = name_of(path)
        lines = comment_lines(path)
        name, self.purpose = lines[0].split("  ", 1)
        if name != self.name:
            raise ValueError(f"{path}: the help is that of {name}")
        self.blocks = self._split(lines[1:])
        self.see_also = re.findall(FUNCTION, self.blocks[-1][0])
        if not self.blocks[-1][0].startswith("See also ") or not self.see_also:
            raise ValueError(f"{path}: there is no See also at the end")

    @staticmethod
    def _split(lines):
        """Blocks of lines between empty ones, without the three blanks that all of them have in front. An example may
        have empty lines and goes on to See also."""
        blocks = [[]]
        for line in lines:
            text = line[3:] if line.startswith("   ") else line.strip()
            in_example = blocks[-1] and blocks[-1][0] == "Example:"
            if text or (in_example and text.startswith("  ")):
                blocks[-1].append(text)
            elif blocks[-1]:
                blocks.append([])
        return [block for block in blocks if block]

    def syntax(self):
        return self.blocks[0]

    def to_html(self, link):
        """`link` gives the HTML for the name of a function."""

        def running_text(text):
            escaped = html.escape(text, quote=False)
            return re.sub(FUNCTION, lambda found: link(found.group()) if found.group() != self.name else found.group(), escaped)

        parts = [f"<h1>{self.name}</h1>", f"<p>{running_text(self.purpose)}</p>"]
        parts += ["<h2>Syntax</h2>", pre(self.syntax())]
        for block in self.blocks[1:-1]:
            if block[0] in SECTIONS:
                parts += [f"<h2>{block[0][:-1]}</h2>", definitions(block[1:], running_text)]
            elif block[0] == "Example:":
                parts += ["<h2>Example</h2>", pre([line[2:] for line in block[1:]])]
            else:
                parts.append(f"<p>{running_text(' '.join(block))}</p>")
        parts.append("<h2>See also</h2>")
        parts.append("<p>" + ", ".join(link(name) for name in self.see_also) + "</p>")
        return "\n".join(parts)


def pre(lines):
    return "<pre>" + html.escape("\n".join(lines), quote=False) + "</pre>"


def definitions(lines, running_text):
    """Lines `  term  text`, or `  term` with the text on the following, deeper lines."""
    items = []
    for line in lines:
        if re.match(r"  \S", line):
            term, _, text = line.strip().partition("  ")
            items.append((term, [text.strip()] if text else []))
        else:
            items[-1][1].append(line.strip())
    rows = []
    for term, texts in items:
        rows.append(f"<dt><code>{html.escape(term.strip(chr(39)), quote=False)}</code></dt>")
        rows.append(f"<dd>{running_text(' '.join(texts))}</dd>")
    return "<dl>\n" + "\n".join(rows) + "\n</dl>"
