"""Follows a page word by word and uses its program by hand:
follow_test.py PAGE PROGRAM BUILD-FOLDER COMPILER FLAGS [PICTURES]

One shell runs the blocks of `sh`; a block after 'Write this into `file`:' or 'Add this to `file`:'
goes into that file. Blocks of `console`, which need root or build the library, are not run: the
build under test is what the page finds in `build/examples`.
"""

import os
import shutil
import sys
import tempfile
from pathlib import Path

import starts_test
from pages import blocks_of
from session import Session


def script_of(page):
    yield "set -eu"
    for block in blocks_of(page):
        if block.language == "sh":
            yield block.code
        elif block.language != "console":
            if block.verb is None:
                sys.exit(f"{page.name}:{block.line}: is neither run nor written into a file")
            sign = ">>" if block.verb.startswith("Add") else ">"
            yield f"cat {sign}{block.file} <<'END_OF_BLOCK'\n{block.code}END_OF_BLOCK"


def use_hello(session):
    session.step("The form is there, and the window has its title.")
    session.wait(lambda: len(set(session.display.shown())) > 2, "nothing is shown")
    session.expect_title("Hello")
    for button in ("well", "badly"):
        session.step(f"The button '{button}' is answered.")
        session.see_change(lambda: session.click(button))
    session.step("The window is closed, and the program ends.")
    session.click_at(*session.frame_button("greeting", "close"))
    session.expect_end()


def use_visitors(session):
    session.step("The window is there, and the cursor is in its field.")
    session.expect("compiled", "ready")
    session.expect_title("Visitors")
    session.step("A name is typed, and the button greets it.")
    session.type("Anna")
    session.click("greet", "Welcome, Anna.")
    session.step("Keys choose another greeting, and check the box.")
    session.key("Tab Down Tab space")
    session.click("greet", "Good morning, Anna!")
    session.step("The first visitor goes only when the question is answered with yes.")
    session.see_change(lambda: session.click_at(*session.row("people", 0)))
    for answer, done in (("no", "kept"), ("yes", "forgotten")):
        session.see_change(lambda: session.click("forget"))
        session.click(answer, done)
    session.step("Nobody is selected now; the menu greets, too, and ends the program.")
    session.choose("visitor", "menu_greet", "Good morning, Anna!")
    session.choose("visitor", "menu_quit")
    session.expect_end()


def main():
    page, name, build, compiler, flags, *pictures = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        home = Path(folder)
        tree, program = home / "velumo", home / name / name
        (tree / "build").mkdir(parents=True)
        (tree / "build/examples").symlink_to(build)
        # A cc with the flags of the build: a sanitized library needs a sanitized program.
        cc = home / "cc"
        cc.write_text(f'#!/bin/sh\nexec {shutil.which(compiler)} {flags} "$@"\n')
        cc.chmod(0o755)
        script = tree / "page.sh"
        script.write_text("\n".join(script_of(Path(page))), encoding="utf-8")
        os.environ.update(HOME=folder, PATH=f"{home}:{os.environ['PATH']}")
        with Session(program, pictures and pictures[0], ["bash", str(script)]) as session:
            {"hello": use_hello, "visitors": use_visitors}[name](session)
        os.environ["LD_LIBRARY_PATH"] = f"{home}/.local/lib"
        starts_test.check(compiler, [str(program)])


main()
