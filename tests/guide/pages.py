"""Reads a page of the guide: what it links to, and what can be linked to in it."""

import html.parser

VOID = ("meta", "link", "br", "img", "input", "hr", "col")


class Page(html.parser.HTMLParser):
    def __init__(self, path, encoding):
        super().__init__()
        self.links, self.anchors, self.open_tags, self.text, self.rows = [], set(), [], "", []
        self.feed(path.read_text(encoding=encoding))

    def handle_starttag(self, tag, attrs):
        attributes = dict(attrs)
        self.links += [attributes[name] for name in ("href", "src") if attributes.get(name)]
        if "id" in attributes:
            self.anchors.add(attributes["id"])
        if tag not in VOID:
            self.open_tags.append(tag)
        if tag == "tr":
            self.rows.append([])
        elif tag in ("td", "th"):
            self.rows[-1].append("")

    def handle_startendtag(self, tag, attrs):
        self.handle_starttag(tag, attrs)
        if tag not in VOID:
            self.handle_endtag(tag)

    def handle_endtag(self, tag):
        # Lists and tables may leave out end tags; ours do not.
        if tag not in VOID and (not self.open_tags or self.open_tags.pop() != tag):
            raise ValueError(f"</{tag}> at {self.getpos()} does not fit")

    def handle_data(self, data):
        if self.open_tags and self.open_tags[-1] in ("script", "style"):
            return
        self.text += data
        if "td" in self.open_tags or "th" in self.open_tags:
            self.rows[-1][-1] += data
