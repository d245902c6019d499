"""The signatures for MATLAB's tab completion are those of the help texts:  test_signatures.py SOURCE"""

import json
import pathlib
import re
import sys
import unittest

KINDS = {"required", "ordered", "namevalue"}


def syntax_of(path):
    """Arguments and results as the syntax line of the help has them; dots stand for any number of results."""
    line = path.read_text(encoding="utf-8").splitlines()[3]
    results, name, arguments = re.fullmatch(r"%   (?:(\[.*\]|\w+) = )?([\w.]+)\((.*)\)", line).groups()
    return name, re.findall(r"\w+", arguments), re.findall(r"\w+", results or "")


def options_of(path):
    """The names that the help describes in a section of their own."""
    section = re.search(r"%   Names and values:\n(.*?)%\n", path.read_text(encoding="utf-8"), re.DOTALL)
    heads = re.findall(r"^%     ((?:'\w+'(?:, )?)+)", section.group(1), re.MULTILINE) if section else []
    return [name for head in heads for name in re.findall(r"'(\w+)'", head)]


class Signatures(unittest.TestCase):
    def test_agree(self):
        toolbox = SOURCE / "toolbox"
        signatures = json.loads((toolbox / "functionSignatures.json").read_text(encoding="ascii"))
        self.assertEqual(signatures.pop("_schemaVersion"), "1.0.0")
        functions = {path.stem: path for path in toolbox.glob("capeOpen*.m")}
        methods = {name: entry for name, entry in signatures.items() if name not in functions}
        for name, path in functions.items():
            documented, arguments, results = syntax_of(path)
            self.assertEqual(documented, name)
            given = {named: [entry["name"] for entry in signatures[name]["inputs"] if (entry["kind"] == "namevalue") == named]
                     for named in (False, True)}
            self.assertEqual(given[False], arguments, name)
            self.assertEqual(given[True], options_of(path), name)
            self.assertEqual([result["name"] for result in signatures[name]["outputs"]], results, name)
        text = (toolbox / "+capeopen/Package.m").read_text(encoding="ascii")
        listed = re.search(r"%   Methods:\n(.*?)%\n", text, re.DOTALL).group(1)
        documented = dict(re.findall(r"%     (\w+)\((.*?)\)", listed))
        documented.pop("delete")
        self.assertEqual(set(methods), {f"capeopen.Package.{name}" for name in [*documented, "Package"]})
        for name, arguments in documented.items():
            given = [given["name"] for given in methods["capeopen.Package." + name]["inputs"]]
            self.assertEqual(given, ["p", *re.findall(r"\w+", arguments)], name)
        for name, entry in signatures.items():
            names = [given["name"] for given in entry["inputs"]]
            kinds = [given["kind"] for given in entry["inputs"]]
            self.assertLessEqual(set(kinds), KINDS, name)
            self.assertEqual(kinds, sorted(kinds, reverse=True), f"{name}: what may be left out comes last")
            for given in entry["inputs"]:
                for choices in re.findall(r"choices=(\w+)\(?(\w*)", json.dumps(given["type"])):
                    self.assertIn(choices[0], functions, name)
                    self.assertIn(choices[1], ["", *names], name)


if __name__ == "__main__":
    SOURCE = pathlib.Path(sys.argv[1])
    outcome = unittest.TextTestRunner().run(Signatures("test_agree"))
    sys.exit(not outcome.wasSuccessful())
