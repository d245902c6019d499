"""{{version}} stands for the version everywhere, also within code."""


def put_version(app, _page, source):
    source[0] = source[0].replace("{{version}}", app.config.version)


def setup(app):
    app.connect("source-read", put_version)
    return {"parallel_read_safe": True, "parallel_write_safe": True}
