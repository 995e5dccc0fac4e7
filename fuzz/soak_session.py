"""Types and clicks on an X server without a screen, a tenth of it at the rate of a human (10 a
second) and the rest ten times as fast, and counts what got lost.

usage: soak_session.py PROGRAM COUNT
"""

import ctypes
import ctypes.util
import os
import random
import sys
import time

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "../tests/end_to_end"))
from session import Session  # noqa: E402

ROUND = 500  # keys and clicks between two looks at what arrived
EDITED, BUTTON = (400, 250), (400, 530)
F12 = 0xFFC9
LETTERS = "abcdefghijklmnopqrstuvwx "


class User:
    """Keys and the left button of the X server, without a program in between."""

    def __init__(self, name):
        self._x = ctypes.CDLL(ctypes.util.find_library("X11"))
        self._test = ctypes.CDLL(ctypes.util.find_library("Xtst"))
        self._x.XOpenDisplay.restype = ctypes.c_void_p
        self._display = ctypes.c_void_p(self._x.XOpenDisplay(name.encode()))

    def _send(self, send, detail):
        for is_press in (1, 0):
            send(self._display, detail, is_press, 0)
        self._x.XFlush(self._display)

    def key(self, symbol):
        self._send(self._test.XTestFakeKeyEvent, self._x.XKeysymToKeycode(self._display, symbol))

    def click(self, place):
        self._test.XTestFakeMotionEvent(self._display, -1, *place, 0)
        self._send(self._test.XTestFakeButtonEvent, 1)


def play_round(session, user, rate, chance):
    """Returns how many keys and clicks were lost."""
    typed, clicks = "", 0
    user.click(EDITED)
    for _ in range(ROUND):
        # Without catching up on a busy machine, because SDL drops what comes when 128 events wait.
        time.sleep(1 / rate)
        if chance.random() < 0.2:
            user.click(BUTTON)
            clicks += 1
        else:
            # Never the same key twice: SDL takes it for a repeated one where a busy X server gives
            # both presses nearly the same time.
            typed += chance.choice(LETTERS.replace(typed[-1:] or " ", ""))
            user.key(ord(typed[-1]))
    seen = len(session.lines)
    user.key(F12)
    while len(session.lines) == seen:
        time.sleep(0.01)
    counted, _, text = session.lines[-1].partition(" clicks ")
    lost = abs(clicks - int(counted)) + (0 if text == typed.rstrip() or text == typed else 1)
    if lost:
        print(f"{rate} a second: {clicks} clicks, {counted} arrived\n  {typed}\n  {text}")
    return lost


def main():
    program, count = sys.argv[1], int(sys.argv[2])
    chance = random.Random(1)
    with Session(os.path.abspath(program)) as session:
        while "ready" not in session.lines:
            time.sleep(0.1)
        user = User(session.display.environment["DISPLAY"])
        rounds = max(count // ROUND, 2)
        slow = max(rounds // 10, 1)
        lost = sum(play_round(session, user, 10 if k < slow else 100, chance)
                   for k in range(rounds))  # fmt: skip
    print(f"{rounds * ROUND} keys and clicks under X: {lost} lost")
    sys.exit(lost != 0)


main()
