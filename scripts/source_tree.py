"""What the checks share: the files of the tree, their text without comments, and the report."""

import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
HEADER = ROOT / "include/velumo.h"
SUFFIXES = {".c", ".cpp", ".h"}
DECLARED = re.compile(r"^VEL_API\s[^;(]*?(vel_\w+)\(", re.M)


def sources(*folders):
    """Yields the C and C++ files below the folders, sorted."""
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
    """Returns text with comments and literals turned to blanks; lines stay where they are."""
    return TOKEN.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)


def declared_functions():
    """Returns the functions that the public header declares, each with its line."""
    text = HEADER.read_text(encoding="utf-8")
    return {m[1]: text.count("\n", 0, m.start(1)) + 1 for m in DECLARED.finditer(text)}


def exported_names(library):
    """Returns the names that a shared library offers to programs."""
    listing = subprocess.run(
        ["nm", "-D", "--defined-only", library], check=True, capture_output=True, text=True
    )
    return {line.split()[-1] for line in listing.stdout.splitlines()}


def finish(name, faults, summary):
    """Prints the faults, or the summary when there are none, and ends the process."""
    for fault in faults:
        print(fault, file=sys.stderr)
    if faults:
        sys.exit(f"{name}: {len(faults)} fault(s)")
    print(f"{name}: {summary}")
