"""The tutorial, done as its page says, and its program used by hand.

Each block of `sh` is run in its turn in one shell, and each block whose text before says 'Write
this into `file`:' or 'Add this to `file`:' goes into that file where the shell stands. Blocks of
`console` need root or build the library; they are not run: the folder `build/examples` in which
the page finds the library leads to the build under test.
"""

import argparse
import os
import re
import shutil
import sys
import tempfile
from pathlib import Path

from pages import blocks_of
from session import Form, Session

END = "end_of_the_block"


def script_of(page):
    """Makes a shell script of the page."""
    lines = ["set -eu"]
    for block in blocks_of(page):
        if block.language == "console":
            continue
        if block.language == "sh":
            lines.append(block.code)
            continue
        target = re.search(r"(Write this into|Add this to) `([\w.]+)`:$", block.before)
        if target is None:
            sys.exit(f"{block.place}: is neither run nor written into a file")
        sign = ">" if target[1] == "Write this into" else ">>"
        lines.append(f"cat {sign}{target[2]} <<'{END}'\n{block.code}{END}")
    return "\n".join(lines)


def write_compiler(path, options):
    """A cc with the flags of the build, so that a sanitized library meets a sanitized program."""
    path.parent.mkdir()
    compiler = shutil.which(options.compiler)
    path.write_text(f'#!/bin/sh\nexec {compiler} {options.flags} "$@"\n')
    path.chmod(0o755)


def use(session, form):
    session.step("The window is there, and the cursor is in its field.")
    session.expect("ready")
    session.step("A name is typed, and the button greets it.")
    session.type("Anna")
    session.click(*form.centre("greet"))
    session.expect("Welcome, Anna!")
    session.step("The name goes only when the question is answered with yes.")
    session.click(*form.centre("forget"))
    session.click(*form.centre("no"))
    session.expect("kept")
    session.click(*form.centre("greet"))
    session.expect("Welcome, Anna!")
    session.click(*form.centre("forget"))
    session.click(*form.centre("yes"))
    session.expect("forgotten")
    session.step("The field has the cursor again; the menu greets, too, and ends the program.")
    session.type("Bo")
    choose(session, form, "menu_greet")
    session.expect("Welcome, Bo!")
    choose(session, form, "menu_quit")
    session.expect_end()


def choose(session, form, entry):
    session.press(*form.centre("visitor"))
    session.release(*form.centre(entry))


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--page", required=True, type=Path)
    parser.add_argument("--build", required=True, help="the build folder of Velumo")
    parser.add_argument("--compiler", required=True, help="the C compiler of that build")
    parser.add_argument("--flags", default="", help="the C flags of that build")
    parser.add_argument("--pictures", help="folder for a picture of each step")
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        home = Path(folder)
        tree = home / "velumo"
        (tree / "build").mkdir(parents=True)
        (tree / "build/examples").symlink_to(os.path.abspath(options.build))
        write_compiler(home / "tools/cc", options)
        script = home / "page.sh"
        script.write_text(script_of(options.page), encoding="utf-8")
        os.environ.update(HOME=folder, PATH=f"{home}/tools:{os.environ['PATH']}")
        with Session(["bash", str(script)], tree, options.pictures) as session:
            session.expect("compiled")
            use(session, Form(home / "visitors", "visitors"))
    return 0


sys.exit(main())
