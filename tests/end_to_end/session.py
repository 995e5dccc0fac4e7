"""Drives a program on an X server of its own, with a real pointer and keyboard, step by step.

A test runs a session for what the program prints and shows; `./run demo` keeps a picture of each
step. However busy the machine is, a session waits for what it sees and never for a time.
"""

import argparse
import functools
import mmap
import os
import re
import signal
import struct
import subprocess
import tempfile
import threading
import time

WIDTH, HEIGHT, BAR = 800, 600, 30  # the bar at the top may show the time
PATIENCE = 60  # seconds until something that does not happen is a failure
RECORD_SIZE = 776
KEYS = {"\n": "Return"}
HIGHLIGHT = 20  # that the colour of a menu's entry is darker by when the pointer is on it
FILL, DEPENDENTS = 16, 288  # bytes of a record
FIRST_ROW = 3  # of a list's dependents
FRAME_BUTTONS = ["move", "height_less", "height_more", "mode", "width_less", "width_more", "close"]


class Display:
    """An X server without a screen, with a German keyboard; what it shows is mapped from a file."""

    def __init__(self):
        self._folder = tempfile.TemporaryDirectory()
        reader, writer = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-nocursor",
             "-nolisten", "tcp", "-noreset", "-fbdir", self._folder.name],
            pass_fds=[writer], stderr=subprocess.DEVNULL)  # fmt: skip
        os.close(writer)
        with os.fdopen(reader) as answer:
            number = answer.readline().strip()
        if not number:
            raise AssertionError("the X server does not start")
        with open(os.path.join(self._folder.name, "Xvfb_screen0"), "rb") as file:
            self._file = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        self.environment = dict(os.environ, DISPLAY=":" + number, SDL_VIDEODRIVER="x11")
        self.run("setxkbmap", "de")

    def run(self, *command):
        subprocess.run(command, env=self.environment, check=True, timeout=PATIENCE,
                       stdout=subprocess.DEVNULL)  # fmt: skip

    def shown(self, top=BAR):
        """What is below a line of the screen, as bytes: blue, green, red and 255."""
        pixels = bytearray(self._file[-4 * WIDTH * (HEIGHT - top):])
        pixels[3::4] = b"\xff" * (len(pixels) // 4)
        return pixels

    def pixel(self, x, y):
        return self.part(x, y, 1, 1)[:3]

    def part(self, x, y, width, height):
        screen = self.shown(top=0)
        return b"".join(screen[4 * (row * WIDTH + x):][:4 * width] for row in range(y, y + height))

    def close(self):
        self._server.terminate()
        self._server.wait()
        self._folder.cleanup()


class Session:
    """A program under test, as a context manager; its pictures go to a folder if there is one."""

    def __init__(self, program, pictures=None, command=None):
        self.folder, self._name = os.path.split(program)
        self._command, self._pictures = command or [program], pictures
        self._steps = self._expected = 0
        self.lines = []  # all that the program has printed

    def __enter__(self):
        self.display = Display()
        self.start()
        return self

    def __exit__(self, kind, fault, trace):
        try:
            self._keep_picture()
            if kind is not None:
                self.picture("failed.png")
                print("printed so far:", *self.lines, sep="\n  ")
        finally:
            self.kill()
            self.display.close()

    def start(self):
        self.program = subprocess.Popen(
            self._command, cwd=os.path.dirname(self._command[-1]), start_new_session=True,
            env=self.display.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            text=True)  # fmt: skip
        self._reader = threading.Thread(target=self._read)
        self._reader.start()

    def _read(self):
        for line in self.program.stdout:
            self.lines.append(line.rstrip("\n"))

    def kill(self):
        """Ends the program at once, as a power failure would."""
        if self.program.poll() is None:
            os.killpg(self.program.pid, signal.SIGKILL)
        self.program.wait()
        self._reader.join()

    # --- Steps

    def step(self, text):
        self._keep_picture()
        self._steps += 1
        print(f"{self._steps:02}  {text}", flush=True)

    def _keep_picture(self):
        if self._pictures and self._steps > 0:
            self.picture(os.path.join(self._pictures, f"{self._steps:02}.png"))

    def picture(self, path):
        """Takes a picture of the screen, as soon as it no longer changes."""
        shown = None
        while shown != (shown := self.display.shown(top=0)):
            time.sleep(0.1)
        command = ["convert", "-size", f"{WIDTH}x{HEIGHT}", "-depth", "8", "bgra:-", path]
        subprocess.run(command, input=shown, check=True)

    # --- Where the objects of the form are, by their names in its header

    @functools.cached_property
    def _records(self):
        with open(os.path.join(self.folder, self._name + ".form"), "rb") as file:
            return file.read()

    @functools.cached_property
    def _numbers(self):
        with open(os.path.join(self.folder, self._name + ".h"), encoding="utf-8") as file:
            constants = re.findall(rf"\b{self._name.upper()}_(\w+) = (\d+)", file.read())
        return {key.lower(): int(number) for key, number in constants}

    def _unpack(self, number, layout, byte=0):
        return struct.unpack_from(layout, self._records, (number - 1) * RECORD_SIZE + byte)

    def rect(self, name):
        """Left, top, width and height, as compiled."""
        return self._unpack(self._numbers[name], "<iiII")

    def row(self, name, row):
        """A point on a row of a list, counted from the first one in sight."""
        rows = self._unpack(self._numbers[name], "<100I", DEPENDENTS)
        x, y, _, height = self._unpack(rows[FIRST_ROW + row], "<iiII")
        return x + 20, y + height // 2

    def centre(self, name):
        x, y, width, height = self.rect(name)
        return x + width // 2, y + height // 2

    def frame_button(self, window, button):
        """Of a window with a full frame; a reduced frame has only 'close' in the same place."""
        x, y, width, _ = self.rect(window)
        width = min(width, WIDTH - x - 2)
        return x + width - 16 * (7 - FRAME_BUTTONS.index(button)) + 8, y - 16

    # --- Pointer and keyboard; what is wanted is expected then

    def point(self, x, y, *actions):
        left_button = [word for action in actions for word in (action, "1")]
        self.display.run("xdotool", "mousemove", str(x), str(y), *left_button)

    def click_at(self, x, y, *wanted):
        self.point(x, y, "mousedown", "mouseup")
        self.expect(*wanted)

    def click(self, name, *wanted):
        self.click_at(*self.centre(name), *wanted)

    def choose(self, title, entry, *wanted):
        """Pulls a menu down by its title and lets go on an entry."""
        x, y, _, _ = self.rect(entry)
        red, green, blue = self._unpack(self._numbers[entry], "<3I", FILL)
        marked = bytes(part - HIGHLIGHT for part in (blue, green, red))
        self.point(*self.centre(title), "mousedown")
        self.point(*self.centre(entry))
        self.wait(lambda: self.display.pixel(x + 2, y + 2) == marked, f"{entry} is not marked")
        self.point(*self.centre(entry), "mouseup")
        self.wait(lambda: self.display.pixel(x + 2, y + 2) != marked, "the menu stays")
        self.expect(*wanted)

    def press_key(self, name):
        """Presses and releases a key, named as X names it; 'shift+a' holds one for another."""
        self.display.run("xdotool", "key", "--delay", "0", name)

    def key(self, names, *wanted):
        """Presses keys, each when the program has shown the one before."""
        for name in names.split():
            self.see_change(lambda: self.press_key(name))
        self.expect(*wanted)

    def type(self, text, *wanted):
        for character in text:
            words = ["key", KEYS[character]] if character in KEYS else ["type", character]
            self.see_change(lambda: self.display.run("xdotool", *words))
        self.expect(*wanted)

    # --- What is expected

    def wait(self, condition, fault):
        end = time.monotonic() + PATIENCE
        while not condition():
            if time.monotonic() > end or not (self._reader.is_alive() or condition()):
                raise AssertionError(fault)
            time.sleep(0.005)

    def see_change(self, action, name=None):
        """Does something and waits until the screen, or an object, no longer looks as it did."""
        def looks():
            return self.display.part(*self.rect(name)) if name else self.display.shown()

        before = looks()
        action()
        self.wait(lambda: looks() != before, f"{name or 'the screen'} stays as it is")

    def expect(self, *wanted):
        """Waits for lines of the program, in this order; there may be others between them."""
        for line in wanted:
            fault = f"the program did not print '{line}'"
            self.wait(lambda: line in self.lines[self._expected:], fault)
            self._expected = self.lines.index(line, self._expected) + 1

    def expect_title(self, title):
        self.display.run("xdotool", "search", "--name", f"^{title}$")

    def expect_end(self):
        """Waits until the program has ended by itself and well."""
        if self.program.wait(PATIENCE) != 0:
            raise AssertionError(f"the program ended with the status {self.program.returncode}")

    def expect_picture(self, path):
        """Waits until the screen looks like a PNG file, but for the bar at the top."""
        command = ["convert", path, "-crop", f"+0+{BAR}", "-depth", "8", "bgra:-"]
        expected = subprocess.run(command, check=True, capture_output=True).stdout
        self.wait(lambda: self.display.shown() == expected, f"the screen is not as in {path}")


def arguments(description):
    """What all sessions take: the program, next to its form; the form tool; a folder."""
    parser = argparse.ArgumentParser(description=description)
    for option in ("--program", "--velform", "--pictures"):
        parser.add_argument(option, type=os.path.abspath, required=option == "--program")
    return parser.parse_args()
