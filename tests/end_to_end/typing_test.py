"""Typing with the layouts of several countries, by the keys of a real keyboard; then a window is
dragged by a real pointer, and the display resized by the X server."""

import ctypes
import itertools
import os
import sys

from session import Session

# The numbers of keys, by what is on them in America.
ROWS = {10: "1234567890-=", 24: "qwertyuiop[]", 38: "asdfghjkl;'`", 51: "\\zxcvbnm,./"}
KEYS = {key: first + k for first, row in ROWS.items() for k, key in enumerate(row)}
KEYS |= {"Escape": 9, "Enter": 36, "Ctrl": 37, "Shift": 50, "Alt": 64, "Space": 65, "Caps": 66,
         "F1": 67, "Num": 77, "Pad7": 79, "Pad4": 83, "Pad1": 87, "Pad0": 90, "Pad.": 91, "<": 94,
         "F11": 95, "F12": 96, "PadEnter": 104, "AltGr": 108, "Home": 110}  # fmt: skip


def in_haste(text):
    """Keys for a text, each pressed before the one before it is released."""
    keys = ["Space" if character == " " else character for character in text]
    pairs = " ".join(f"↓{key} ↑{before}" for before, key in itertools.pairwise(keys))
    return f"↓{keys[0]} {pairs} ↑{keys[-1]}"


HASTY = "the quick brown fox jumps over the lazy dog, " * 4 + "pack my box with us;"
assert len(HASTY) == 200

# What stands in for SDL 1.2 on newer systems takes the second of three bytes for the third, too, so
# E2 82 AC becomes U+2082.
SDL = ctypes.CDLL("libSDL-1.2.so.0")
SDL.SDL_Linked_Version.restype = ctypes.POINTER(ctypes.c_uint8)
EURO = "€" if SDL.SDL_Linked_Version()[2] < 50 else "₂"

# By layout: keys ('↓a' only presses one, '↑a' only releases it), what is in the text then, and the
# character that was refused last. Where a dead key or one for sequences is in use, a comment says.
CASES = {
    ("us",): [
        ("Shift+2 1 2 3 4 5 6 7 8 9 0", "@1234567890", ""),
        ("[ ] Shift+[ Shift+] \\ Shift+\\ < Shift+< ; ' Space /", "[]{}\\|<>;' /", ""),
        ("AltGr+k Alt+k Alt+Shift+k Ctrl+k Ctrl+Shift+k Ctrl+m Ctrl+h Ctrl+1", "", ""),
        ("Escape F1 F11 Shift Ctrl Alt AltGr Num Num Caps Caps", "", ""),
        ("↓t ↓h ↑t ↓e ↑h ↓m ↑e ↑m", "them", ""),
        ("↓Shift ↓a ↑Shift ↓b ↑a ↑b", "Ab", ""),
        ("a b b a Enter PadEnter c", "abba¶¶c", ""),
        ("Caps a Shift+b 1 Shift+1 Caps c", "Ab1!c", ""),
        ("a b Pad7 c Pad1 d Pad4 Pad. e Pad0", "cabe", ""),
        ("Pad0 Num Pad7 Pad4 Pad0 Pad. a Shift+b Home Shift+2 Num", "@740.aB", ""),
        ("a Ctrl+z b", "b", ""),
        (in_haste(HASTY), HASTY, ""),
    ],
    ("de",): [
        ("AltGr+q 1 2 3 4 5 6 7 8 9 0", "@1234567890", ""),
        ("; ' [ Shift+; Shift+' Shift+[ - Shift+- z y", "öäüÖÄÜß?yz", ""),
        ("AltGr+7 AltGr+8 AltGr+9 AltGr+0 AltGr+- AltGr+< AltGr+]", "{[]}\\|~", ""),
        ("a AltGr+e b AltGr+m AltGr+2", "abµ²", EURO),
        ("= e ` a Shift+= Shift+a = Space", "éâÀ'", EURO),  # acute, circumflex, grave
        ("= s = u", "ú", "ś"),
        ("Caps ; Shift+; Caps", "Öö", "ś"),
        ("Num Pad. AltGr+q Num", ",@", "ś"),
        ("a Ctrl+y", "", "ś"),
    ],
    ("fr",): [
        ("AltGr+0 " + " ".join(f"Shift+{digit}" for digit in "1234567890"), "@1234567890", "ś"),
        ("2 7 9 0 ' q a ; AltGr+4 AltGr+= AltGr+8 1", "éèçàùaqm{}\\&", "ś"),
        ("AltGr+e", "", EURO),
        ("[ e Shift+[ i", "êï", EURO),  # circumflex, diaeresis
        ("q q Ctrl+q x", "x", EURO),
    ],
    ("us", "intl"): [
        ("' e ` a Shift+6 o Shift+` n Shift+' y AltGr+s", "éàôñÿß", EURO),  # all of them dead
        ("' Space Shift+' Space ` Space", "'\"`", EURO),
        ("' Shift+e ' ↓e ↓f ↑e ↑f", "Ééf", EURO),
    ],
    ("us", "-option", "compose:ralt"): [
        ("AltGr ' e AltGr o c AltGr Shift+a Shift+e AltGr s s", "é©Æß", EURO),
        ("AltGr o e a", "a", "œ"),
    ],
}


class Keyboard:
    """Presses keys by their numbers, so that nothing but the layout says what they mean."""

    def __init__(self, display):
        self._x11, self._test = (ctypes.CDLL(name) for name in ("libX11.so.6", "libXtst.so.6"))
        self._x11.XOpenDisplay.restype = ctypes.c_void_p
        name = display.environment["DISPLAY"].encode()
        self._connection = ctypes.c_void_p(self._x11.XOpenDisplay(name))

    def repeat(self, delay, interval):
        """Sets how keys are to be repeated, in milliseconds; without a delay they are not."""
        self._call(self._x11.XAutoRepeatOn if delay else self._x11.XAutoRepeatOff)
        if delay:
            self._call(self._x11.XkbSetAutoRepeatRate, 0x100, delay, interval)

    def press(self, keys):
        for word in keys.split():
            names = word.lstrip("↓↑").split("+")
            for key in names if word[0] != "↑" else []:
                self._send(KEYS[key], 1)
            for key in names[::-1] if word[0] != "↓" else []:
                self._send(KEYS[key], 0)

    def _send(self, number, is_press):
        # The server waits some milliseconds before: to SDL, keys within two are repetitions.
        self._call(self._test.XTestFakeKeyEvent, number, is_press, ctypes.c_ulong(5))

    def _call(self, function, *arguments):
        function(self._connection, *arguments)
        self._x11.XSync(self._connection, 0)


class Typing(Session):
    def start(self):
        """With keys that are not repeated unless they are held for longer than any test waits."""
        self.keyboard = Keyboard(self.display)
        self.keyboard.repeat(60000, 100)
        super().start()

    def restart(self, delay, interval):
        self.kill()
        self.keyboard.repeat(delay, interval)
        super().start()
        self.expect(f"ready {delay} {interval}")

    def typed(self, keys):
        """Presses keys; returns the text then, and the character refused last."""
        known = len(self.lines)
        self.keyboard.press(keys + " F12")
        answer = lambda: [line for line in self.lines[known:] if line.startswith("typed ")]
        self.wait(answer, f"no answer to {keys}")
        text, refused = answer()[0][6:].rsplit(" ", 1)
        return text, chr(int(refused)).strip("\0")


def drag_and_resize(session):
    """The text is in the window, 30 pixels below its top, and keeps to all of its edges."""
    session.expect("800x600 30,30 300x300 30,60 300x270")
    session.point(100, 40, "mousedown")
    session.point(160, 90)
    session.expect("800x600 90,80 300x300 90,110 300x270")
    session.point(150, 90, "mouseup")
    session.expect("800x600 80,80 300x300 80,110 300x270")
    session.point(375, 375, "mousedown")
    session.point(415, 365)
    session.expect("800x600 80,80 340x290 80,110 340x260")
    session.press_key("Escape")
    session.expect("800x600 80,80 300x300 80,110 300x270")
    session.point(415, 365, "mouseup")
    for width, height, x, y in ((640, 480, 80, 80), (60, 90, 40, 70), (700, 500, 40, 70)):
        session.display.run("xdotool", "search", "--name", "^Typing$", "windowsize", "%1",
                            str(width), str(height))  # fmt: skip
        session.expect(f"{width}x{height} {x},{y} 300x300 {x},{y + 30} 300x270")


def main():
    os.environ["LC_ALL"] = "C.UTF-8"  # composing has characters beyond ISO 8859-1 only then
    faults = []
    with Typing(sys.argv[1]) as session:
        session.expect("ready 60000 100")
        for layout, cases in CASES.items():
            session.display.run("setxkbmap", "-option", "", *layout)
            for keys, *wanted in cases:
                found = list(session.typed(keys))
                if found != wanted:
                    faults.append(f"{' '.join(layout)}: {keys} types {found}, not {wanted}")
        assert not faults, "\n".join(faults)
        drag_and_resize(session)
        session.restart(0, 0)
        session.restart(100, 20)
        session.keyboard.press("↓a")
        session.expect("held 100 20")
        session.keyboard.press("↑a")
        text, _ = session.typed("")
        assert set(text) == {"a"}, f"a key that is held types {text}"


main()
