"""Tests of the user guide as it was made:  test_guide.py TEST GUIDE SOURCE

GUIDE is the folder with the pages and Verdanth.chm, SOURCE the root of the project.
"""

import html.parser
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree


class Page(html.parser.HTMLParser):
    """What a page links to, and what can be linked to in it."""

    def __init__(self, path):
        super().__init__()
        self.links, self.anchors, self.open_tags, self.text = [], set(), [], ""
        self.feed(path.read_text(encoding="ascii"))

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        for name in ("href", "src"):
            if name in attributes:
                self.links.append(attributes[name])
        if "name" in attributes and tag == "a":
            self.anchors.add(attributes["name"])
        if tag not in ("meta", "link", "br", "img"):
            self.open_tags.append(tag)

    def handle_endtag(self, tag):
        # Lists and tables may leave out end tags; ours do not.
        if not self.open_tags or self.open_tags.pop() != tag:
            raise ValueError(f"</{tag}> at {self.getpos()} does not fit")

    def handle_data(self, data):
        self.text += data


class Guide(unittest.TestCase):
    def setUp(self):
        self.pages = {path.name: Page(path) for path in GUIDE.glob("*.html")}
        toolbox = SOURCE / "toolbox"
        self.functions = {path.stem: path for path in toolbox.glob("capeOpen*.m")}
        self.functions["capeopen.Package"] = toolbox / "+capeopen/Package.m"
        self.assertEqual(len(self.functions), 27 + 5)

    def test_every_link_leads_somewhere(self):
        for name, page in self.pages.items():
            self.assertTrue(page.links, name)
            for link in page.links:
                file, _, anchor = link.partition("#")
                self.assertTrue((GUIDE / (file or name)).is_file(), f"{name}: {link}")
                if anchor:
                    self.assertIn(anchor, self.pages[file or name].anchors, f"{name}: {link}")

    def test_every_image_is_shown(self):
        shown = {link for page in self.pages.values() for link in page.links if link.endswith(".png")}
        self.assertEqual(shown, {path.name for path in (SOURCE / "docs/images").glob("*.png")})

    def test_every_element_is_closed(self):
        for name, page in self.pages.items():
            self.assertEqual(page.open_tags, [], name)

    def test_nothing_is_left_of_the_templates(self):
        for name, page in self.pages.items():
            self.assertNotRegex(page.text, r"\{\{|\}\}|\[\[[a-z]", name)

    def test_every_function_has_its_page_with_the_words_of_its_help(self):
        for name, path in self.functions.items():
            shown = re.sub(r"\s+", " ", self.pages[name + ".html"].text)
            help_text = path.read_text(encoding="utf-8")
            for line in help_text.splitlines()[2:]:
                if not line.startswith("%"):
                    break
                for word in re.findall(r"[\w/.:-]+", line):
                    if word not in ("See", "Arguments:", "Properties:", "Methods:", "Results:", "Errors:", "Warnings:", "Example:"):
                        self.assertIn(word.rstrip(".:"), shown, name)

    def test_every_page_is_reached_from_the_first(self):
        reached, waiting = set(), ["index.html"]
        while waiting:
            name = waiting.pop()
            if name not in reached:
                reached.add(name)
                waiting += [link for link in self.pages[name].links if link.endswith(".html")]
        self.assertEqual(reached, set(self.pages))

    def test_contents_and_index_name_every_page(self):
        for file in ("Verdanth.hhc", "Verdanth.hhk"):
            named = re.findall(r'name="Local" value="([^"]+)"', (GUIDE / file).read_text(encoding="ascii"))
            self.assertEqual(sorted(named), sorted(self.pages), file)

    def test_the_contents_for_matlab_name_every_page_below_the_first(self):
        root = xml.etree.ElementTree.parse(GUIDE / "helptoc.xml").getroot()
        self.assertEqual((root.tag, root.get("version"), len(root)), ("toc", "2.0", 1))
        self.assertEqual(root[0].get("target"), "index.html")
        self.assertEqual(sorted(item.get("target") for item in root.iter("tocitem")), sorted(self.pages))
        functions = next(item for item in root[0] if item.get("target") == "functions.html")
        self.assertEqual({item.get("target") for item in functions}, {name + ".html" for name in self.functions})
        info = xml.etree.ElementTree.parse(SOURCE / "toolbox/info.xml").getroot()
        self.assertEqual((info.tag, info.findtext("name"), info.findtext("help_location")), ("productinfo", "Verdanth", "html"))

    def test_the_help_file_holds_every_page_as_it_is(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(["extract_chmLib", GUIDE / "Verdanth.chm", folder], check=True, stdout=subprocess.DEVNULL)
            images = [path.name for path in GUIDE.glob("*.png")]
            for name in [*self.pages, *images, "style.css", "Verdanth.hhc", "Verdanth.hhk"]:
                self.assertEqual((pathlib.Path(folder) / name).read_bytes(), (GUIDE / name).read_bytes(), name)
            # The viewer takes the first topic from here.
            self.assertIn(b"index.html\0", (pathlib.Path(folder) / "#SYSTEM").read_bytes())

    def test_compiling_again_gives_the_same_bytes(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([sys.executable, "-B", SOURCE / "docs/build.py", version_of_project(), folder], check=True)
            # Whatever time others are told to write down: a file that is there already is not made anew for it.
            subprocess.run([SOURCE / "docs/compile_chm.sh", folder], check=True,
                           env=os.environ | {"SOURCE_DATE_EPOCH": "1795279000"})
            self.assertEqual((pathlib.Path(folder) / "Verdanth.chm").read_bytes(), (GUIDE / "Verdanth.chm").read_bytes())

    def test_every_property_has_its_row(self):
        page = (GUIDE / "properties.html").read_text(encoding="ascii")
        row = re.compile("<tr><td><code>(.*)</code></td><td>(.*)</td><td>(.*)</td><td>(.*)</td></tr>")
        tables = [row.findall(table) for table in re.split('<h2><a name="[a-z-]+"></a>', page)[1:]]
        self.assertEqual([len(rows) for rows in tables], [43, 33, 4, 38, 3])
        for rows in tables:
            names = [name for name, *_ in rows]
            self.assertEqual(names, sorted(names, key=str.lower))
        constants, temperature, pressure, single, pair = tables
        self.assertIn(("triplePointTemperature ", "each compound", "K", "K"), constants)
        self.assertIn(("SMILESformula", "each compound", "none", "none"), constants)
        self.assertIn(("molecularWeight", "each compound", "gr / mol", "gr / mol"), constants)
        self.assertIn(("liquidDensityAt25C", "each compound", "mol / m3", "kg / m3"), constants)
        self.assertIn(("idealGasEntropy", "each compound", "J / mol / K", "J / kg / K"), temperature)
        self.assertIn(("meltingTemperature", "each compound", "K", "K"), pressure)
        self.assertIn(("molecularWeight", "one value", "gr / mol", "gr / mol"), single)
        self.assertIn(("diffusionCoefficient", "pairs of compounds", "m2 / s", "m2 / s"), single)
        self.assertEqual(pair, [("kvalue", "each compound", "none", "none"), ("logKvalue", "each compound", "none", "none"),
                                ("surfaceTension", "one value", "N m", "N m")])


def version_of_project():
    return re.search(r"project\(Verdanth VERSION (\S+)", (SOURCE / "CMakeLists.txt").read_text(encoding="utf-8")).group(1)


if __name__ == "__main__":
    test = sys.argv[1]
    GUIDE, SOURCE = (pathlib.Path(argument) for argument in sys.argv[2:4])
    outcome = unittest.TextTestRunner().run(Guide("test_" + test))
    sys.exit(not outcome.wasSuccessful())
