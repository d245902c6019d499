"""The project of the help viewer, with the whole contents, and with names of files as chmcmd reads them."""

import html
import pathlib

from sphinxcontrib.htmlhelp import HTMLHelpBuilder

from contents import pages_in_order


class HelpViewerBuilder(HTMLHelpBuilder):
    """The contents that Sphinx writes leave out what a page does not show, as our first page does with its parts."""

    def build_toc_file(self):
        lines = ['<!DOCTYPE HTML PUBLIC "-//IETF//DTD HTML//EN">', "<HTML><HEAD></HEAD><BODY>"]
        reached = 0
        for depth, page in pages_in_order(self.env, self.config.root_doc):
            level = max(depth, 1)  # the first page stands beside those below it
            lines += ["<UL>"] * (level - reached) + ["</UL>"] * (reached - level) + self._item(page)
            reached = level
        self._write(".hhc", "\n".join([*lines, *["</UL>"] * reached, "</BODY></HTML>", ""]))

    def build_project_file(self):
        super().build_project_file()
        project = pathlib.Path(self.outdir) / (self.config.htmlhelp_basename + ".hhp")
        self._write(".hhp", project.read_text(encoding="ascii").replace("\\", "/"))

    def _item(self, page):
        title = html.escape(self.env.titles[page].astext())
        return [f'<LI><OBJECT type="text/sitemap"><param name="Name" value="{title}">'
                f'<param name="Local" value="{self.get_target_uri(page)}"></OBJECT>']

    def _write(self, suffix, text):
        path = pathlib.Path(self.outdir) / (self.config.htmlhelp_basename + suffix)
        path.write_bytes(text.encode("ascii", "xmlcharrefreplace"))


def setup(app):
    app.add_builder(HelpViewerBuilder, override=True)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
