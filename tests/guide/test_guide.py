"""Tests of the user guide as it was made:  test_guide.py TEST GUIDE SOURCE

GUIDE is the folder with the pages in html/ and in chm/, where Verdanth.chm is, too; SOURCE is the root of the project.
"""

import filecmp
import functools
import itertools
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest
import xml.etree.ElementTree

from pages import Page

SECTIONS = ("See", "Arguments:", "Properties:", "Methods:", "Results:", "Errors:", "Warnings:", "Example:")
WITHOUT_A_SOURCE = {"genindex.html", "search.html"}  # which Sphinx makes by itself
ADDED = r"\.\.\.|^CAPE-OPEN: |^PPM? |, at | Pa, | K: "  # what the library puts around the texts in its sources


def files_below(folder):
    return {path.relative_to(folder) for path in folder.rglob("*") if path.is_file()}


class Guide(unittest.TestCase):
    def setUp(self):
        toolbox = SOURCE / "toolbox"
        self.functions = {path.stem: path for path in toolbox.glob("capeOpen*.m")}
        self.functions["capeopen.Package"] = toolbox / "+capeopen/Package.m"
        self.assertEqual(len(self.functions), 33 + 7)

    @functools.cached_property
    def pages(self):
        return {path.name: Page(path, "utf-8") for path in (GUIDE / "html").glob("*.html")}

    @functools.cached_property
    def viewer(self):
        return {path.name: Page(path, "cp1252") for path in (GUIDE / "chm").glob("*.html")}

    @functools.cached_property
    def written(self):
        return set(self.pages) - WITHOUT_A_SOURCE

    def test_every_link_leads_somewhere(self):
        for folder, pages in (("html", self.pages), ("chm", self.viewer)):
            for name, page in pages.items():
                self.assertTrue(page.links, name)
                for link in page.links:
                    file, _, anchor = link.partition("#")
                    file = file.partition("?")[0]
                    if file.startswith("https:"):
                        continue
                    self.assertTrue((GUIDE / folder / (file or name)).is_file(), f"{name}: {link}")
                    if anchor:
                        self.assertIn(anchor, pages[file or name].anchors, f"{name}: {link}")

    def test_every_image_is_shown(self):
        shown = {link for page in self.pages.values() for link in page.links if link.startswith("_images/")}
        self.assertEqual(shown, {"_images/" + path.name for path in (SOURCE / "docs/images").glob("*.png")})

    def test_every_element_is_closed(self):
        for name, page in [*self.pages.items(), *self.viewer.items()]:
            self.assertEqual(page.open_tags, [], name)

    def test_nothing_is_left_of_the_sources(self):
        for name, page in [*self.pages.items(), *self.viewer.items()]:
            self.assertNotRegex(page.text, r"\{\{\s*\w|\w\s*\}\}|\{[a-z-]+\}`|```|&[a-z]+;|</?su[bp]>", name)

    def test_every_source_is_a_page_for_browser_and_viewer(self):
        sources = {path.stem for path in (SOURCE / "docs/pages").glob("*.md")} | set(self.functions)
        self.assertEqual(self.written, {name + ".html" for name in sources})
        self.assertEqual(set(self.viewer), self.written | {"genindex.html"})

    def test_every_function_has_its_page_with_the_words_of_its_help(self):
        for name, path in self.functions.items():
            for pages in (self.pages, self.viewer):
                shown = re.sub(r"\s+", " ", pages[name + ".html"].text)
                help_text = path.read_text(encoding="utf-8")
                for line in help_text.splitlines()[2:]:
                    if not line.startswith("%"):
                        break
                    for word in re.findall(r"[\w/.:-]+", line):
                        if word not in SECTIONS:
                            self.assertIn(word.rstrip(".:"), shown, name)

    def test_every_page_is_reached_from_the_first(self):
        for pages in (self.pages, self.viewer):
            reached, waiting = set(), ["index.html"]
            while waiting:
                name = waiting.pop()
                if name not in reached:
                    reached.add(name)
                    waiting += [link for link in pages[name].links if link in pages]
            self.assertEqual(reached | WITHOUT_A_SOURCE, set(pages) | WITHOUT_A_SOURCE)

    def test_contents_and_index_of_the_viewer_name_every_page(self):
        contents, index = ((GUIDE / "chm" / file).read_text(encoding="ascii") for file in ("Verdanth.hhc", "Verdanth.hhk"))
        named = re.findall(r'name="Local" value="([^"]+)"', contents)
        self.assertEqual(sorted(named), sorted(self.written))
        self.assertLess(contents.index('"functions.html"'), contents.index('"capeOpenCreate.html"'))
        named = set(re.findall(r'name="Local" value="([^"#]+)', index))
        self.assertEqual(named, self.written)
        for keyword in ("bubble point", "fugacityCoefficient", "capeOpenCreate"):
            self.assertIn(f'value="{keyword}"', index)

    def test_the_contents_for_matlab_name_every_page_below_the_first(self):
        root = xml.etree.ElementTree.parse(GUIDE / "html/helptoc.xml").getroot()
        self.assertEqual((root.tag, root.get("version"), len(root)), ("toc", "2.0", 1))
        self.assertEqual(root[0].get("target"), "index.html")
        self.assertEqual(sorted(item.get("target") for item in root.iter("tocitem")), sorted(self.written))
        functions = next(item for item in root[0] if item.get("target") == "functions.html")
        self.assertEqual({item.get("target") for item in functions}, {name + ".html" for name in self.functions})
        info = xml.etree.ElementTree.parse(SOURCE / "toolbox/info.xml").getroot()
        self.assertEqual((info.tag, info.findtext("name"), info.findtext("help_location")), ("productinfo", "Verdanth", "html"))

    def test_the_help_file_holds_every_page_as_it_is(self):
        used = {link for page in self.viewer.values() for link in page.links if link.startswith("_")}
        self.assertIn("_static/chm.css", used)
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run(["extract_chmLib", GUIDE / "chm/Verdanth.chm", folder], check=True, stdout=subprocess.DEVNULL)
            for name in [*self.viewer, *used, "Verdanth.hhc", "Verdanth.hhk"]:
                self.assertEqual((pathlib.Path(folder) / name).read_bytes(), (GUIDE / "chm" / name).read_bytes(), name)
            # The viewer takes the first topic from here.
            self.assertIn(b"index.html\0", (pathlib.Path(folder) / "#SYSTEM").read_bytes())

    def test_making_it_again_gives_the_same_bytes(self):
        with tempfile.TemporaryDirectory() as folder:
            # Whatever time others are told to write down: a file that is there already is not made anew for it.
            subprocess.run([SOURCE / "docs/make_guide.sh", version_of_project(), folder], check=True,
                           env=os.environ | {"SOURCE_DATE_EPOCH": "1795279000"})
            for part in ("html", "chm"):
                made, again = GUIDE / part, pathlib.Path(folder) / part
                names = files_below(made)
                self.assertEqual(names, files_below(again))
                for name in names - {pathlib.Path("chmcmd.log")}:
                    self.assertTrue(filecmp.cmp(made / name, again / name, shallow=False), name)

    def test_every_message_in_the_guide_is_in_the_sources(self):
        said = texts_in_the_sources()
        page = (SOURCE / "docs/pages/errors.md").read_text(encoding="ascii")
        terms = [line for line, below in itertools.pairwise(page.splitlines()) if below.startswith(": ")]
        messages = [message for term in terms for message in re.findall("`([^`]+)`", term)]
        self.assertGreater(len(messages), 50)
        unsaid = [message for message in messages for part in re.split(ADDED, message) if part.strip(" :,") not in said]
        self.assertEqual(unsaid, [])

    def test_every_property_has_its_row(self):
        tables, rows = [], None
        for row in self.pages["properties.html"].rows:
            if row == ["name", "values", "unit, mole basis", "unit, mass basis"]:
                rows = []
                tables.append(rows)
            elif rows is not None:
                rows.append(tuple(row))
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


def texts_in_the_sources():
    """What the library says, and what connects programs with it: the texts in the sources, joined where one follows another."""
    folders = ("gateway", "commands", "packages", "properties", "material", "cape", "relay", "platform", "client",
               "toolbox/octave")
    code = "".join(path.read_text(encoding="utf-8") for folder in folders for path in sorted((SOURCE / folder).rglob("*.cpp")))
    return "\n".join(re.findall(r'"((?:[^"\\\n]|\\.)*)"', re.sub(r'"\s+"', "", code))).replace('\\"', '"')


def version_of_project():
    return re.search(r"project\(Verdanth VERSION (\S+)", (SOURCE / "CMakeLists.txt").read_text(encoding="utf-8")).group(1)


if __name__ == "__main__":
    test = sys.argv[1]
    GUIDE, SOURCE = (pathlib.Path(argument) for argument in sys.argv[2:4])
    outcome = unittest.TextTestRunner().run(Guide("test_" + test))
    sys.exit(not outcome.wasSuccessful())
