"""Compiles the examples of the pages.

Each block of TOML is a form source that stands for itself, and velform compiles it without a
warning. Each block of C is one or more whole functions, compiled as it stands behind
`#include <velumo.h>` and the header of the form before it on the page. The text before a form may
name its file; else it is named after the page. The tutorial has a test of its own.
"""

import argparse
import subprocess
import sys
import tempfile
from pathlib import Path

from pages import blocks_of

WARNINGS = ["-std=c11", "-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Werror"]


class Examples:
    def __init__(self, options, folder):
        self._options, self._folder = options, folder
        self.compiled, self.faults = 0, []

    def take_page(self, page):
        header = None
        for block in blocks_of(page):
            if block.language == "toml":
                header = self._compile_form(block)
            elif block.language == "c":
                self._compile_functions(block, header)

    def _compile_form(self, block):
        source = self._folder / (block.file or block.page.stem.replace("-", "_") + ".toml")
        # Blank lines before it, so that messages tell the line of the page.
        source.write_text("\n" * (block.line - 1) + block.code, encoding="utf-8")
        self._run(block, [self._options.velform, "compile", source.name], is_quiet=True)
        return source.with_suffix(".h").name

    def _compile_functions(self, block, header):
        includes = "#include <velumo.h>\n" + (f'#include "{header}"\n' if header else "")
        source = self._folder / "example.c"
        source.write_text(
            f'{includes}#line {block.line} "{block.page.name}"\n{block.code}', encoding="utf-8"
        )
        flags = [*WARNINGS, *self._options.flags.split()]
        self._run(block, [self._options.compiler, *flags, "-c", "example.c", "-o", "example.o"])

    def _run(self, block, command, is_quiet=False):
        self.compiled += 1
        result = subprocess.run(command, cwd=self._folder, capture_output=True, text=True)
        if result.returncode != 0 or (is_quiet and result.stderr):
            self.faults.append(f"{block.place}: {command[0]} says\n{result.stderr}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--velform", required=True, help="the form tool")
    parser.add_argument("--compiler", required=True, help="the C compiler")
    parser.add_argument("--flags", default="", help="where it finds the headers")
    parser.add_argument("pages", nargs="+", type=Path)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        examples = Examples(options, Path(folder))
        for page in options.pages:
            examples.take_page(page)
    print(*examples.faults, sep="\n", file=sys.stderr)
    print(f"{examples.compiled} examples, {len(examples.faults)} faults")
    return 1 if examples.faults or examples.compiled == 0 else 0


sys.exit(main())
