"""Compiles the examples of the pages: examples_test.py VELFORM COMPILER FLAGS PAGE...

A block of TOML is a form source of its own, which gets its name from the text before it or from the
page. A block of C is whole functions, which include the header of the form before it on the page.
Nothing gives a warning.
"""

import os
import re
import subprocess
import sys
import tempfile
from pathlib import Path

from pages import blocks_of

FILES = re.compile(r'(?:picture|font_file) = "([^"]+)"')
WARNINGS = ["-std=c11", "-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Werror"]


def results_of(page, velform, compile_c):
    includes = "#include <velumo.h>\n"
    for block in blocks_of(page):
        if block.language == "toml":
            source = Path(block.file or page.stem.replace("-", "_") + ".toml")
            # Blank lines before it, so that messages name the line of the page.
            source.write_text("\n" * (block.line - 1) + block.code, encoding="utf-8")
            for name in FILES.findall(block.code):  # which the reader has
                Path(name).parent.mkdir(exist_ok=True)
                Path(name).touch()
            command = [velform, "compile", source.name]
            includes = f'#include <velumo.h>\n#include "{source.stem}.h"\n'
        elif block.language == "c":
            place = f'#line {block.line} "{page.name}"\n'
            Path("example.c").write_text(includes + place + block.code, encoding="utf-8")
            command = compile_c
        else:
            continue
        result = subprocess.run(command, capture_output=True, text=True, check=False)
        is_good = result.returncode == 0 and not result.stderr
        yield "" if is_good else f"{page.name}:{block.line}: {command[0]} says\n{result.stderr}"


def main():
    velform, compiler, flags, *pages = sys.argv[1:]
    command = [compiler, *WARNINGS, *flags.split(), "-c", "example.c", "-o", "example.o"]
    pages = [Path(page).resolve() for page in pages]
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        results = [result for page in pages for result in results_of(page, velform, command)]
    sys.exit("\n".join(filter(None, results)) or not results)


main()
