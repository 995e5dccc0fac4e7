"""The examples end at a storm of signals, politely, whatever is open: signals_test.py PROGRAM..."""

import os
import signal
import sys
import tempfile

from session import Session

SIGNALS = signal.SIGTERM, signal.SIGINT, signal.SIGHUP
STORM = 1000


def hold(session, name):
    session.see_change(lambda: session.point(*session.centre(name), "mousedown"))


def click(*names):
    return lambda session: [session.see_change(lambda n=n: session.click(n)) for n in names]


STATES = {
    "tour": {
        "nothing": lambda s: None,
        "a menu": lambda s: hold(s, "file_title"),
        "a question": click("save"),
        "a notice": click("save", "yes"),
        "a window that moves": lambda s: s.click_at(*s.frame_button("order", "move")),
        "a press in a text": lambda s: hold(s, "remark"),
    },
    "addressbook": {
        "nothing": lambda s: s.expect("found 0 "),
        "a menu": lambda s: hold(s, "file_title"),
        "a notice": click("delete"),
        "the choice of a file": lambda s: s.choose("file_title", "import"),
        "the guide": lambda s: s.choose("help_title", "help"),
        "a card that is not saved": lambda s: (s.click("name"), s.type("x")),
        "the question about it": lambda s: (s.click("name"), s.type("x"), click("new")(s)),
    },
}


def check(program, state, open_it, number):
    with Session(program) as session:
        session.step(f"{os.path.basename(program)} has {state} open and gets {number.name}.")
        session.wait(lambda: len(set(session.display.shown())) > 2, "nothing is shown")
        open_it(session)
        for _ in range(STORM):
            if session.program.poll() is None:
                session.program.send_signal(number)
        session.expect_end()


def main():
    with tempfile.TemporaryDirectory() as home:
        os.environ.update(HOME=home, XDG_DATA_HOME=os.path.join(home, "data"))
        for program in sys.argv[1:]:
            states = STATES[os.path.basename(program)].items()
            for k, (state, open_it) in enumerate(states):
                check(program, state, open_it, SIGNALS[k % len(SIGNALS)])


main()
