"""Tests that the lint of .m files finds what it is there for:  test_lint.py OCTAVE"""

import pathlib
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

    def lint(self, *lines):
        """What is said of a private function with these lines."""
        (self.toolbox / "private").mkdir(exist_ok=True)
        text = "\n".join(["function y = part(x)", "%part  A part.", *lines, "end", ""])
        (self.toolbox / "private/part.m").write_text(text, encoding="utf-8")
        done = subprocess.run([sys.executable, "-B", HERE / "lint.py", OCTAVE, self.toolbox], text=True, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        return done.returncode, done.stdout

    def test_finds(self):
        self.assertEqual(self.lint("y = x;"), (0, "3 files are clean.\n"))
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
        for words, lines in cases.items():
            with self.subTest(words):
                code, said = self.lint(*lines)
                self.assertEqual(code, 1)
                self.assertIn(words, said)
        checked = ["if exist('OCTAVE_VERSION', 'builtin')", "    y = nproc();", "else", "    y = gcp();", "end", "y = [y, x];"]
        self.assertEqual(self.lint(*checked)[0], 0)
        shutil.rmtree(self.toolbox / "private")
        (self.toolbox / "Contents.m").write_text("% Contents\n%   capeOpenVersion - Something else.\n")
        (self.toolbox / "private").mkdir()
        code, said = self.lint("y = x;")
        self.assertEqual(code, 1)
        self.assertIn("capeOpenVersion - Something else.; its help says Version of the library.", said)


if __name__ == "__main__":
    OCTAVE = sys.argv[1]
    outcome = unittest.TextTestRunner().run(Lint("test_finds"))
    sys.exit(not outcome.wasSuccessful())
