"""The code blocks of a Markdown page."""

import re
from types import SimpleNamespace

BLOCK = re.compile(r"^```(\w*)\n(.*?)^```$", re.M | re.S)
FILE = re.compile(r"(Write this into |Add this to )?`([\w.]+)`:$")


def blocks_of(page):
    """Yields the blocks in their order; the text before one may name its file, after a verb."""
    text = page.read_text(encoding="utf-8")
    for match in BLOCK.finditer(text):
        named = FILE.search(" ".join(text[: match.start()].split()))
        verb, file = named.groups() if named else (None, None)
        line = text.count("\n", 0, match.start()) + 2
        yield SimpleNamespace(line=line, language=match[1], code=match[2], verb=verb, file=file)
