"""Tests that the lint of .m files finds what it is there for:  test_lint.py OCTAVE"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
TOOLBOX = HERE.parents[2] / "toolbox"


class Lint(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.toolbox = pathlib.Path(self.folder.name) / "toolbox"
        self.toolbox.mkdir()
        shutil.copy(TOOLBOX / "capeOpenVersion.m", self.toolbox)
        (self.toolbox / "Contents.m").write_text("% Contents\n%   capeOpenVersion - Version of the library.\n")

    def lint(self, files):
        """What is said of private functions with these lines."""
        shutil.rmtree(self.toolbox / "private", ignore_errors=True)
        (self.toolbox / "private").mkdir()
        called = dict.fromkeys(("callAgain", "backEndOfCalls"), ["y = x;"]) # by capeOpenVersion
        for name, lines in {**called, **files}.items():
            text = "\n".join([f"function y = {name}(x)", f"%{name}  A part.", *lines, "end", ""])
            (self.toolbox / "private" / (name + ".m")).write_text(text, encoding="utf-8")
        done = subprocess.run([sys.executable, "-B", HERE / "lint.py", OCTAVE, self.toolbox], text=True, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        return done.returncode, done.stdout

    def test_finds(self):
        cases = {
            "double quotation marks": ['y = [x, "a"];'],
            "contains is not in known_functions.txt": ["y = contains(x, 'a');"],
            "nproc is there in Octave alone": ["y = x + nproc();"],
            "gcp is there in MATLAB alone": ["y = {x, gcp()};"],
            "left is set and not used": ["left = x;", "y = x;"],
            "language extension": ["y = x;", "if x != 3", "    y = 4;", "end"],
            "line 3 has no semicolon": ["y = x"],
            "a function has no end": ["y = x;", "if y > 3", "    y = 4;"],
            "the line is longer than 120": ["y = x; % " + "long " * 25 + "."],
            "blanks at the end": ["y = x; "],
            "not ASCII": ["y = x; % \u00e4"],
            "syntax error": ["y = x + ;"],
        }
        code, said = self.lint({f"part{k}": lines for k, lines in enumerate(cases.values())})
        self.assertEqual(code, 1)
        for k, words in enumerate(cases):
            # All that is said of one file, up to the line with the next one.
            self.assertRegex(said, rf"part{k}\.m:(?:[^\n]|\n(?!/))*{re.escape(words)}")

        checked = ["if exist('OCTAVE_VERSION', 'builtin')", "    y = nproc();", "else", "    y = gcp();", "end", "y = [y, x];"]
        self.assertEqual(self.lint({"good": ["y = x;"], "checked": checked}), (0, "6 files are clean.\n"))

        (self.toolbox / "Contents.m").write_text("% Contents\n%   capeOpenVersion - Something else.\n")
        code, said = self.lint({})
        self.assertEqual(code, 1)
        self.assertIn("capeOpenVersion - Something else.; its help says Version of the library.", said)


if __name__ == "__main__":
    OCTAVE = sys.argv[1]
    outcome = unittest.TextTestRunner().run(Lint("test_finds"))
    sys.exit(not outcome.wasSuccessful())
