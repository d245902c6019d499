"""A browser without a window, and what the inspector sees in it of pages in a folder."""

import functools
import html
import http.server
import json
import pathlib
import re
import shutil
import subprocess
import tempfile
import threading

INSPECTOR = pathlib.Path(__file__).resolve().parent / "inspector.html"
BROWSERS = ("chromium", "chromium-browser", "google-chrome", "google-chrome-stable")
DARK = "--blink-settings=preferredColorScheme=0"


class Handler(http.server.SimpleHTTPRequestHandler):
    """Serves the pages, and the inspector beside them."""

    def translate_path(self, path):
        return str(INSPECTOR) if path.startswith("/inspector.html") else super().translate_path(path)

    def log_message(self, *_):  # pylint: disable=arguments-differ
        pass


def path_of_browser():
    return next(filter(None, map(shutil.which, BROWSERS)), None)


def browse(address, *options):
    """The page as it is after its scripts have run."""
    with tempfile.TemporaryDirectory() as profile:
        # Without its sandbox, which root and many containers have not got: the pages are our own.
        done = subprocess.run([path_of_browser(), "--headless", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                               f"--user-data-dir={profile}", "--virtual-time-budget=60000", "--dump-dom", *options, address],
                              check=True, text=True, timeout=120, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.DEVNULL)
    return done.stdout


def inspected(folder, width, pages, *options):
    """What the inspector writes down about pages of the folder in a window of this width."""
    with http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(Handler, directory=folder)) as server:
        threading.Thread(target=server.serve_forever, daemon=True).start()
        shown = browse(f"http://127.0.0.1:{server.server_port}/inspector.html?{width},{','.join(pages)}",
                       f"--window-size={max(width, 500)},1000", *options)
        server.shutdown()
    reports = json.loads(html.unescape(re.search('<pre id="reports">(.*)</pre>', shown, re.DOTALL).group(1)))
    if [report["page"] for report in reports] != pages or {report["width"] for report in reports} != {width}:
        raise AssertionError(f"{pages} at {width} were not what was seen: {reports}")
    return reports
