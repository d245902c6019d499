"""The pages of the guide in a browser without a window:  test_browser.py TEST GUIDE

GUIDE is the folder with the pages. The browser gets them from a server of this process where a script has to look into
them, and as files, as readers open them, everywhere else. Without a browser on this machine the test ends with 77.
"""

import functools
import html
import http.server
import json
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import threading
import unittest

INSPECTOR = pathlib.Path(__file__).resolve().parent / "inspector.html"
BROWSERS = ("chromium", "chromium-browser", "google-chrome", "google-chrome-stable")
DARK = "--blink-settings=preferredColorScheme=0"


class Handler(http.server.SimpleHTTPRequestHandler):
    """Serves the guide, and the inspector beside it."""

    def translate_path(self, path):
        return str(INSPECTOR) if path.startswith("/inspector.html") else super().translate_path(path)

    def log_message(self, *_):  # pylint: disable=arguments-differ
        pass


def browse(address, *options):
    """The page as it is after its scripts have run."""
    with tempfile.TemporaryDirectory() as profile:
        # Without its sandbox, which root and many containers have not got: the pages are our own.
        done = subprocess.run([BROWSER, "--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                               f"--user-data-dir={profile}", "--virtual-time-budget=60000", "--dump-dom", *options, address],
                              check=True, text=True, timeout=120, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL)
    return done.stdout


class Browser(unittest.TestCase):
    def inspect(self, width, pages, *options):
        """What the inspector writes down about the pages."""
        with http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(Handler, directory=GUIDE)) as server:
            threading.Thread(target=server.serve_forever, daemon=True).start()
            shown = browse(f"http://127.0.0.1:{server.server_port}/inspector.html?{width},{','.join(pages)}",
                           f"--window-size={max(width, 500)},1000", *options)
            server.shutdown()
        reports = json.loads(html.unescape(re.search('<pre id="reports">(.*)</pre>', shown, re.DOTALL).group(1)))
        self.assertEqual([report["page"] for report in reports], pages)
        self.assertEqual({report["width"] for report in reports}, {width})
        return reports

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
    BROWSER = next(filter(None, map(shutil.which, BROWSERS)), None)
    if not BROWSER:
        print("None of these is there:", *BROWSERS)
        sys.exit(77)
    outcome = unittest.TextTestRunner().run(Browser("test_" + TEST))
    sys.exit(not outcome.wasSuccessful())
