"""Reads the help text of a function in toolbox/."""

import re

SECTIONS = ("Arguments:", "Properties:", "Methods:", "Results:", "Errors:", "Warnings:")
FUNCTION = r"\b(?:capeOpen\w+|capeopen\.[A-Z]\w+)"


def comment_lines(text):
    """The comment behind the line `function` or `classdef`, without the percent signs."""
    lines = text.splitlines()
    if not lines[0].startswith(("function ", "classdef ")):
        raise ValueError("the first line is not that of a function or a class")
    comment = []
    for line in lines[1:]:
        if not line.startswith("%"):
            break
        comment.append(line[1:])
    return comment


class FunctionHelp:
    """`name` is that of the page, which has to be the one in the first line of the help."""

    def __init__(self, name, text):
        lines = comment_lines(text)
        self.name, self.purpose = lines[0].strip().split("  ", 1)
        if self.name != name:
            raise ValueError(f"the help of {name} is that of {self.name}")
        self.blocks = self._split(lines[1:])
        self.see_also = re.findall(FUNCTION, self.blocks[-1][0])
        if not self.blocks[-1][0].startswith("See also ") or not self.see_also:
            raise ValueError(f"{name}: there is no See also at the end")

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
        return "\n".join(self.blocks[0])

    def parts(self):
        """The blocks between syntax and See also: pairs of a heading and what stands below it. Text has no heading, the
        items of a section are pairs of term and text, and an example is one text."""
        for block in self.blocks[1:-1]:
            if block[0] in SECTIONS:
                yield block[0][:-1], definitions(block[1:])
            elif block[0] == "Example:":
                yield "Example", "\n".join(line[2:] for line in block[1:])
            else:
                yield None, " ".join(block)


def definitions(lines):
    """Lines `  term  text`, or `  term` with the text on the following, deeper lines."""
    items = []
    for line in lines:
        if re.match(r"  \S", line):
            term, _, text = line.strip().partition("  ")
            items.append((term.strip("'"), [text.strip()] if text else []))
        else:
            items[-1][1].append(line.strip())
    return [(term, " ".join(texts)) for term, texts in items]
