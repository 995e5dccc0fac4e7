"""What the checks share: the files of the tree, their text without comments, and the report."""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
SUFFIXES = {".c", ".cpp", ".h"}


def sources(*folders):
    """Yields the C and C++ files in the folders and their subfolders, sorted."""
    for folder in folders:
        yield from sorted(p for p in (ROOT / folder).rglob("*") if p.suffix in SUFFIXES)


def shown(path):
    """Returns the path as messages name it."""
    return path.relative_to(ROOT).as_posix()


TOKEN = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9a-zA-Z_])'(?:\\.|[^'\\\n])*'",
    re.DOTALL,
)


def blank(text):
    """Returns the text with comments and literals replaced by spaces; line numbers are kept."""
    return TOKEN.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)


def finish(name, faults, summary):
    """Prints the faults, or the summary if there are none, and exits."""
    for fault in faults:
        print(fault, file=sys.stderr)
    if faults:
        sys.exit(f"{name}: {len(faults)} fault(s)")
    print(f"{name}: {summary}")
