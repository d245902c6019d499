"""The page that a check writes, and the line that runs one in a build:  test_report.py Pages|Build OCTAVE SOURCE VERDANTH

In a browser without a window; without one on this machine the tests of pages end with 77.
"""

import functools
import json
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
sys.path.append(str(HERE.parents[1] / "guide"))

from browser import BROWSERS, DARK, browse, inspected, path_of_browser  # pylint: disable=wrong-import-position
from pages import Page  # pylint: disable=wrong-import-position

PAGES = ("sound", "numbers", "words")


class Pages(unittest.TestCase):
    """What a reader sees of the reports of a sound and of faulty packages."""

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        subprocess.run([OCTAVE, "--quiet", "--norc", "--no-history", HERE / "make_reports.m", SOURCE / "toolbox", VERDANTH,
                        cls.folder], check=True)
        cls.found = {page: json.loads((cls.folder / f"{page}.json").read_text(encoding="utf-8")) for page in PAGES}

    @classmethod
    @functools.cache
    def inspect(cls, width, *options):
        return inspected(cls.folder, width, [page + ".html" for page in PAGES], *options)

    @classmethod
    @functools.cache
    def dom_of(cls, page):
        return browse((cls.folder / f"{page}.html").as_uri())

    def test_nothing_of_a_report_runs_out_of_its_box(self):
        for width in (1280, 360):
            reports = self.inspect(width)
            self.assertEqual([report["boxes"] for report in reports], [len(self.found[page]["findings"]) for page in PAGES])
            self.assertEqual([(report["page"], report["outside"]) for report in reports if report["outside"]], [])

    def test_the_first_half_page_of_a_report_has_verdict_and_counts(self):
        verdicts = {"sound": "passed with 1 note", "numbers": "failures, 1 note", "words": "2 failures"}
        worst = {"sound": "The heat of vaporization is not that of Clausius-Clapeyron",
                 "numbers": "density * volume - 1 is not zero", "words": "Vapor: viscosity fails: CalcSinglePhaseProp failed: <b>no</b> &amp; <script>"}
        for page, report in zip(PAGES, self.inspect(1280)):
            found = self.found[page]
            self.assertIn(verdicts[page], report["early"])
            self.assertIn("Check of Verdanth Reference Packages:Natural gas", report["early"])
            self.assertIn(f"{found['asked']} comparisons of ", report["early"])
            self.assertIn(worst[page], report["early"])

    def test_every_finding_is_in_a_report_as_text(self):
        for page in PAGES:
            shown = self.folder / "shown.html"
            shown.write_text(self.dom_of(page), encoding="utf-8")
            read = Page(shown, "utf-8")
            self.assertEqual(read.open_tags, [])
            self.assertIn("<title>Check of Verdanth Reference Packages:Natural gas</title>", self.dom_of(page))
            self.assertNotRegex(self.dom_of(page), "<b>|<script")
            self.assertTrue(self.found[page]["findings"], page)
            for finding in self.found[page]["findings"]:
                self.assertIn(f"{finding['severity'].capitalize()}: {finding['what']}", read.text)
                self.assertIn(finding["where"], read.text)
                self.assertIn("\n".join(finding["lines"]), read.text)
            anchors = {link[1:] for link in read.links}
            self.assertEqual(anchors, {f"finding{k + 1}" for k in range(min(3, len(self.found[page]["findings"])))})
            self.assertLessEqual(anchors, read.anchors)

    def test_times_and_memory_are_a_table(self):
        for page, shown in (("sound", True), ("numbers", True), ("words", False)):
            text = self.dom_of(page)
            rows = re.findall(r"<tr><td>(?:constant|TDependent|PDependent|phase|two phases|flash) [^<]*</td>"
                              r"<td>\d+</td><td>[\d.e+]+ (?:us|ms|s)</td>", text)
            self.assertEqual("<h2>Time and memory</h2>" in text, shown, page)
            self.assertEqual(len(rows) > 20, shown, f"{page}: {len(rows)} rows")

    def test_a_report_is_dark_where_the_system_is(self):
        for options, ground in (((), "rgb(255, 255, 255)"), ((DARK,), "rgb(21, 24, 28)")):
            self.assertEqual({report["ground"] for report in self.inspect(1280, *options)}, {ground})


class Build(unittest.TestCase):
    def test_the_line_of_the_guide_stops_a_build(self):
        guide = (SOURCE / "docs/pages/checking.md").read_text(encoding="ascii")
        line, = re.findall(r"```sh\n(octave-cli .*?)```", guide, re.DOTALL)
        self.assertEqual(line.count("pkg load verdanth;"), 1)
        with tempfile.TemporaryDirectory() as folder:
            setup = f"addpath('{SOURCE}/toolbox', '{VERDANTH}', '{SOURCE}/tests/toolbox/support');"
            fault = "behind_the_faulty_one(); global fault; fault = struct('command', 22, 'property', 'density', 'alter', @(v, g) -v);"
            for more, code, verdict in (("", 0, "passed with 1 note"), (fault, 1, "failures")):
                command = line.replace("octave-cli", OCTAVE + " --norc --no-history").replace("pkg load verdanth;", setup + more)
                done = subprocess.run(command, shell=True, cwd=folder, check=False, text=True, stdout=subprocess.PIPE)
                self.assertEqual(done.returncode, code, done.stdout)
                self.assertIn(verdict, done.stdout)
                self.assertIn(verdict, (pathlib.Path(folder) / "natural-gas.html").read_text(encoding="utf-8"))
            command = line.replace("octave-cli", OCTAVE + " --norc --no-history").replace("pkg load verdanth;", setup)
            done = subprocess.run(command.replace("'Natural gas'", "'No such gas'"), shell=True, cwd=folder, check=False, text=True,
                                  stderr=subprocess.PIPE)
            self.assertEqual(done.returncode, 1)
            self.assertIn("No such gas", done.stderr)


if __name__ == "__main__":
    GROUP, OCTAVE, SOURCE, VERDANTH = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3]), pathlib.Path(sys.argv[4])
    if GROUP == "Pages" and not path_of_browser():
        print("None of these is there:", *BROWSERS)
        sys.exit(77)
    suite = unittest.defaultTestLoader.loadTestsFromTestCase({"Pages": Pages, "Build": Build}[GROUP])
    sys.exit(not unittest.TextTestRunner(verbosity=2).run(suite).wasSuccessful())
