"""The first lines of Octave in the README, typed as they stand:  test_readme.py OCTAVE SOURCE

SOURCE is the root of the project; the library must have been built in its build/linux.
"""

import pathlib
import re
import subprocess
import sys
import unittest


class FirstLines(unittest.TestCase):
    def test_they_run_and_show_a_flash(self):
        readme = (SOURCE / "README.md").read_text(encoding="utf-8")
        block = re.search(r"\n## Five lines of Octave\n(?:\S.*\n|\n)+((?:    .*\n)+)", readme).group(1)
        lines = [line[4:] for line in block.splitlines()]
        self.assertEqual(lines[0], "addpath toolbox")
        self.assertEqual(len(lines), 1 + 5)
        typed = "set(0, 'DefaultFigureVisible', 'off');\n" + "\n".join(lines) + "\n"
        done = subprocess.run([OCTAVE, "--quiet", "--norc", "--no-history"], cwd=SOURCE, input=typed, text=True, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.assertNotIn("error", done.stderr)
        self.assertEqual(done.returncode, 0)
        self.assertRegex(done.stdout, r"11 compounds: methane, ethane, propane")
        self.assertRegex(done.stdout, r"T = 220 K, P = 4e\+06 Pa\n +Vapor +Liquid\n +fraction +0\.791127 +0\.208873\n")
        self.assertRegex(done.stdout, r"fraction =\s+0\.5041\s+0\.7911\s")


if __name__ == "__main__":
    OCTAVE, SOURCE = sys.argv[1], pathlib.Path(sys.argv[2])
    outcome = unittest.TextTestRunner().run(FirstLines("test_they_run_and_show_a_flash"))
    sys.exit(not outcome.wasSuccessful())
