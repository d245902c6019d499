"""The user guide for Sphinx, which makes HTML pages of it and, with the tag chm, what Verdanth.chm is compiled from.

make_guide.sh puts the sources together and says the version.
"""

import os
import pathlib
import sys

DOCS = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(DOCS / "extensions"))

project = "Verdanth"
version = release = os.environ["VERDANTH_VERSION"]
language = "en"
extensions = ["myst_parser", "sphinxcontrib.htmlhelp", "function_pages", "guide_tables", "page_index", "help_viewer",
              "matlab_contents", "scripts_of_pages", "version_in_text"]
myst_enable_extensions = ["deflist"]
nitpicky = True
exclude_patterns = ["CHANGELOG.md"]  # a part of releases.md
# Messages are quoted letter by letter, so that quotation marks and dashes stay as they are.
smartquotes = False
highlight_language = "text"

html_title = f"Verdanth {version}"
html_copy_source = False
html_show_copyright = False
html_show_sphinx = False
htmlhelp_basename = "Verdanth"
if tags.has("chm"):  # pylint: disable=undefined-variable  # Sphinx provides it
    html_theme = "basic"
    html_static_path = ["static/chm"]
    html_css_files = ["chm.css"]
else:
    html_theme = "furo"
    html_static_path = ["static/html"]
    html_css_files = ["guide.css"]
