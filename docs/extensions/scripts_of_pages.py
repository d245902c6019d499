"""Leaves out what Sphinx puts into every page for the scripts of older themes."""

import pathlib

UNUSED = ("jquery.js", "underscore.js", "_sphinx_javascript_frameworks_compat.js", "scripts/gumshoe-patched.js", "debug.css")


def leave_out(_app, _page, _template, context, _doctree):
    context["script_files"] = [script for script in context["script_files"] if not str(script).endswith(UNUSED)]


def remove(app, _problem):
    for name in UNUSED:
        (pathlib.Path(app.outdir) / "_static" / name).unlink(missing_ok=True)


def setup(app):
    app.connect("html-page-context", leave_out)
    app.connect("build-finished", remove)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
