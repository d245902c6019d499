#!/usr/bin/env python3
"""Looks over the .m files of the toolbox for what one of MATLAB (R2016b or later) and Octave (6 or later) would refuse:

    tests/toolbox/lint/lint.py OCTAVE [FOLDER]        FOLDER is toolbox/ unless it says otherwise

Octave reads every file with its warnings on language extensions and the like as errors. Each function that is called must
be one of the toolbox or stand in known_functions.txt, which tells those that both environments have from those of one;
the latter are allowed behind a check alone.
"""

import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
KEYWORDS = set("""break case catch classdef continue else elseif end for function if methods otherwise parfor persistent
    properties return switch try while global""".split())
OPENING = {"if", "for", "parfor", "while", "switch", "try", "function", "classdef", "methods", "properties"}
CLASS_WORDS = {"Access", "Dependent", "Hidden", "SetAccess", "Static", "private", "handle"}
CHECK = re.compile(r"\bexist\(|~isempty\(queue\)") # there is a queue in MATLAB alone
LONGEST = 120


def code_of(line):
    """The line without comment, and with what is in quotation marks taken out of them."""
    out, k = [], 0
    while k < len(line):
        char = line[k]
        if char == "%":
            break
        if line.startswith("...", k):
            out.append("...")
            break
        if char == "'" and not re.search(r"[\w)\]}'.]$", "".join(out)):
            end = k + 1
            while end < len(line):
                if line.startswith("''", end):
                    end += 2
                elif line[end] == "'":
                    break
                else:
                    end += 1
            out.append("''")
            k = end + 1
            continue
        out.append(char)
        k += 1
    return "".join(out).rstrip()


def statements(text):
    """Pairs of line number and statement, continued lines put together."""
    number, held = None, ""
    for k, line in enumerate(text.splitlines(), 1):
        code = code_of(line)
        number = number or k
        held += code.removesuffix("...")
        if not code.endswith("...") and held.count("(") + held.count("{") + held.count("[") <= held.count(")") + held.count("}") + held.count("]"):
            yield number, held.strip()
            number, held = None, ""


def names_assigned(statement):
    """The variables that a statement sets."""
    found = set()
    header = re.match(r"function\s+(?:(\[[^\]]*\]|\w+)\s*=\s*)?([\w.]+)\s*(?:\(([^)]*)\))?", statement)
    if header:
        for part in (header.group(1), header.group(3)):
            found.update(re.findall(r"[A-Za-z]\w*", part or ""))
        return found
    loop = re.match(r"(?:par)?for\s+\(?\s*(\w+)\s*=", statement)
    if loop:
        found.add(loop.group(1))
    if statement.startswith(("persistent ", "global ")):
        found.update(statement.split()[1:])
    catch = re.match(r"catch\s+(\w+)", statement)
    if catch:
        found.add(catch.group(1))
    several = re.match(r"\[([^\]=]*(?:\{[^}]*\}[^\]=]*)*)\]\s*=(?!=)", statement)
    if several:
        found.update(re.findall(r"(?:^|[,\s])([A-Za-z]\w*)", several.group(1)))
    single = re.match(r"([A-Za-z]\w*)(?:\.\(?\w+\)?|\([^=]*\)|\{[^=]*\})*\s*=(?!=)", statement)
    if single:
        found.add(single.group(1))
    for arguments in re.findall(r"@\(([^)]*)\)", statement):
        found.update(re.findall(r"[A-Za-z]\w*", arguments))
    return found


def names_used(statement):
    """Names that stand for a function or a variable: not fields, not what comes after a dot."""
    if re.match(r"hold (on|off)$", statement):
        return ["hold"]
    return [found.group() for found in re.finditer(r"(?<![\w.'])[A-Za-z]\w*", statement)]


class File:
    def __init__(self, path, known, own):
        self.path, self.known, self.own = path, known, own
        self.text = path.read_bytes().decode("utf-8")
        self.complaints = []

    def complain(self, number, text):
        self.complaints.append(f"{self.path}:{number}: {text}")

    def check_layout(self):
        for number, line in enumerate(self.text.split("\n"), 1):
            if len(line) > LONGEST:
                self.complain(number, f"the line is longer than {LONGEST}")
            if line != line.rstrip() or "\t" in line:
                self.complain(number, "blanks at the end of the line, or a tab")
            if not line.isascii():
                self.complain(number, "not ASCII")
            if '"' in code_of(line):
                self.complain(number, "double quotation marks; releases before R2017a refuse them")
        if not self.text.endswith("\n") or self.text.endswith("\n\n"):
            self.complain(len(self.text.splitlines()), "ends without a line end, or with an empty line")

    def check_names(self):
        """Which functions are called, and whether those of one environment are behind a check."""
        lines = list(statements(self.text))
        local = set(self.own)
        for _, statement in lines:
            header = re.match(r"function\s+(?:(?:\[[^\]]*\]|\w+)\s*=\s*)?(?:get\.)?(\w+)", statement)
            if header:
                local.add(header.group(1))
        variables, blocks = set(), []
        is_class = self.text.startswith("classdef")
        for _, statement in lines:
            variables |= names_assigned(statement)
        for number, statement in lines:
            word = re.match(r"[a-z]\w*", statement)
            word = word.group() if word else ""
            in_properties = any(block[0] == "properties" for block in blocks)
            if word in OPENING and not re.match(r"\w+\s*=[^=]", statement):
                blocks.append([word, bool(word == "if" and CHECK.search(statement))])
            elif word == "elseif" and blocks:
                blocks[-1][1] = blocks[-1][1] or bool(CHECK.search(statement))
            checked = any(block[1] for block in blocks) or bool(CHECK.search(statement))
            if not (is_class and (in_properties or word in ("properties", "methods", "classdef"))):
                for name in names_used(statement):
                    if name in KEYWORDS or name in variables or name in local:
                        continue
                    if name not in self.known:
                        self.complain(number, f"{name} is not in known_functions.txt")
                    elif self.known[name] != "both" and not checked:
                        self.complain(number, f"{name} is there in {self.known[name]} alone, and there is no check before it")
            if word == "end" and blocks:
                blocks.pop()
        if blocks:
            self.complain(len(self.text.splitlines()), f"a {blocks[-1][0]} has no end")

    def check_unused(self):
        """Variables that are set and never read; a comment %#ok excuses it."""
        marked = {number for number, line in enumerate(self.text.splitlines(), 1) if "%#ok" in line}
        words = {}
        for _, statement in statements(self.text):
            for name in re.findall(r"[A-Za-z]\w*", statement):
                words[name] = words.get(name, 0) + 1
        for name in re.findall(r"@?(\w+)", "".join(re.findall(r"'([^'\n]*)'", self.text))):
            words[name] = words.get(name, 0) + 1 # evalc
        for number, statement in statements(self.text):
            if number in marked or statement.startswith(("function", "for ", "parfor ")) or "@(" in statement:
                continue
            for name in names_assigned(statement):
                if words[name] == 1:
                    self.complain(number, f"{name} is set and not used")


def check_head(path, complaints, purposes):
    """The first comment line is the name and the purpose; those of the public functions are listed in Contents.m."""
    lines = path.read_text(encoding="utf-8").splitlines()
    name = path.stem
    if path.parent.name.startswith("+"):
        name = ".".join(part[1:] for part in path.parts if part.startswith("+")) + "." + name
    head = re.match(r"%(\S+)  (\S.*[.:].*)$", lines[1])
    if not head or head.group(1) != name:
        complaints.append(f"{path}:2: the help should begin with the name, two blanks and the purpose")
    elif not {"private", "+internal", "package"} & set(path.parts):
        purposes[name] = head.group(2)
    declared = re.match(r"(?:function\s+(?:(?:\[[^\]]*\]|\w+)\s*=\s*)?|classdef\s+)(\w+)", lines[0])
    if not declared or declared.group(1) != path.stem:
        complaints.append(f"{path}:1: the file does not begin with {path.stem}")


def known_functions():
    known, kind = {}, None
    for line in (HERE / "known_functions.txt").read_text(encoding="ascii").splitlines():
        if line.startswith("["):
            kind = line.strip("[]")
        elif not line.startswith("#"):
            known.update((name, kind) for name in line.split())
    return known


def main(octave, folder):
    files = sorted(path for path in folder.rglob("*.m"))
    functions = [path for path in files if path.name != "Contents.m" and "examples" not in path.parts]
    own = {path.stem for path in files} | {"capeopen", "Verdanth"}
    known, complaints, purposes = known_functions(), [], {}
    for path in files:
        file = File(path, known, own)
        file.check_layout()
        if path.name != "Contents.m":
            file.check_names()
            file.check_unused()
        complaints += file.complaints
    for path in functions:
        check_head(path, complaints, purposes)
    listed = dict(re.findall(r"^%   (\S+) +- (.*)$", (folder / "Contents.m").read_text(encoding="ascii"), re.MULTILINE))
    for name in sorted(set(purposes) | set(listed)):
        if purposes.get(name) != listed.get(name):
            complaints.append(f"{folder / 'Contents.m'}: {name} - {listed.get(name)}; its help says {purposes.get(name)}")

    parsed = subprocess.run([octave, "--quiet", "--norc", "--no-history", HERE / "parse.m", *files], text=True, check=False,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if parsed.returncode or not parsed.stdout.endswith(f"{len(files)} files read\n"):
        complaints.append(parsed.stdout)
    print("\n".join(complaints) if complaints else f"{len(files)} files are clean.")
    return bool(complaints)


if __name__ == "__main__":
    FOLDER = pathlib.Path(sys.argv[2]) if len(sys.argv) > 2 else HERE.parents[2] / "toolbox"
    sys.exit(main(sys.argv[1], FOLDER))
