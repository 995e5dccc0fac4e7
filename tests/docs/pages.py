"""The code blocks of a Markdown page."""

import re
from dataclasses import dataclass
from pathlib import Path

BLOCK = re.compile(r"^```(\w*)\n(.*?)^```$", re.M | re.S)
FILE = re.compile(r"`([\w.]+)`:$")


@dataclass
class Block:
    """A block with its language and what stands around it."""

    page: Path
    line: int  # of its first line of code
    language: str
    code: str
    before: str  # the last paragraph of text before it

    @property
    def place(self):
        return f"{self.page.name}:{self.line}"

    @property
    def file(self):
        """The file that the text before names, as in 'Write this into `hello.c`:'; else None."""
        named = FILE.search(self.before)
        return named and named[1]


def blocks_of(page):
    """Yields the blocks of a page in their order."""
    text = page.read_text(encoding="utf-8")
    for match in BLOCK.finditer(text):
        paragraph = text[: match.start()].rstrip().rsplit("\n\n", 1)[-1]
        line = text.count("\n", 0, match.start()) + 2
        yield Block(page, line, match[1], match[2], " ".join(paragraph.split()))
