"""The order of the pages, which the help viewer and MATLAB are given."""


def pages_in_order(env, page, depth=0):
    """Pairs of how deep a page lies below the first and its name, each before those below it."""
    yield depth, page
    for below in env.toctree_includes.get(page, ()):
        yield from pages_in_order(env, below, depth + 1)
