"""The pages of the guide in a browser without a window:  test_browser.py TEST GUIDE

GUIDE is the folder with the pages. The browser gets them from a server of this process where a script has to look into
them, and as files, as readers open them, everywhere else. Without a browser on this machine the test ends with 77.
"""

import pathlib
import re
import sys
import unittest

from browser import BROWSERS, DARK, browse, inspected, path_of_browser


class Browser(unittest.TestCase):
    def inspect(self, width, pages, *options):
        return inspected(GUIDE, width, pages, *options)

    def nothing_is_outside(self, width):
        reports = self.inspect(width, sorted(path.name for path in GUIDE.glob("*.html")))
        self.assertGreater(sum(report["boxes"] for report in reports), 2 * 30)  # syntax and example of each function
        self.assertEqual([(report["page"], report["outside"]) for report in reports if report["outside"]], [])

    def test_nothing_runs_out_of_its_box_on_a_desk(self):
        self.nothing_is_outside(1280)

    def test_nothing_runs_out_of_its_box_on_a_phone(self):
        self.nothing_is_outside(360)

    def test_the_search_finds_a_property(self):
        address = (GUIDE / "search.html").as_uri()
        found = re.findall(r'<li[^>]*><a href="([\w.]+\.html)[^"]*"', browse(address + "?q=fugacityCoefficient"))
        self.assertIn("properties.html", found)
        for page in found:
            self.assertIn("fugacitycoefficient", (GUIDE / page).read_text(encoding="utf-8").lower(), page)
        self.assertNotIn("properties.html", browse(address + "?q=zeppelin").partition('id="search-results"')[2])

    def test_it_is_dark_where_the_system_is(self):
        for options, ground in (((), "rgb(255, 255, 255)"), ((DARK,), "rgb(19, 20, 22)")):
            report, = self.inspect(1280, ["index.html"], *options)
            self.assertEqual(report["ground"], ground)


if __name__ == "__main__":
    TEST, GUIDE = sys.argv[1], pathlib.Path(sys.argv[2]).resolve()
    if not path_of_browser():
        print("None of these is there:", *BROWSERS)
        sys.exit(77)
    outcome = unittest.TextTestRunner().run(Browser("test_" + TEST))
    sys.exit(not outcome.wasSuccessful())
