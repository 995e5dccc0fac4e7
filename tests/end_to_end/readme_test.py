"""The README's program: it answers to its buttons and ends when its window is closed."""

import os
import sys

from session import Form, Session, arguments, frame_button


def main():
    options = arguments(__doc__)
    program = os.path.abspath(options.program)
    folder, name = os.path.split(program)
    form = Form(folder, name)
    with Session([program], folder, options.pictures) as session:
        session.step("The form is there.")
        shown = [session.look()]
        for button in ("well", "badly"):
            session.step(f"The button '{button}' is answered.")
            session.click(*form.centre(button))
            shown.append(session.look_until_it_differs_from(shown[-1]))
        session.step("The window is closed, and the program ends.")
        session.click(*frame_button(form.rect("greeting"), "close"))
        session.expect_end()
    return 0


sys.exit(main())
