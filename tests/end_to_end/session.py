"""Drives a program on an X server of its own, with a real pointer and keyboard.

A session is a list of steps, each named by a line of text. A test runs it for what the program
prints and shows; `./run demo` runs the same one without a display and keeps a picture of each step.
"""

import argparse
import os
import queue
import re
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import threading
import time

SCREEN_WIDTH, SCREEN_HEIGHT = 800, 600
PATIENCE = 20  # seconds until something that does not happen is a failure


class Failure(Exception):
    """What the session expected did not happen."""


class Form:
    """Where the objects of a compiled form stand, by their names in its header."""

    RECORD_SIZE = 776

    def __init__(self, folder, name):
        with open(os.path.join(folder, name + ".form"), "rb") as file:
            self._records = file.read()
        with open(os.path.join(folder, name + ".h"), encoding="utf-8") as file:
            constants = re.findall(rf"\b{name.upper()}_(\w+) = (\d+)", file.read())
        self._numbers = {key.lower(): int(number) for key, number in constants}

    def rect(self, name):
        """Left, top, width and height, as compiled."""
        offset = (self._numbers[name] - 1) * self.RECORD_SIZE
        return struct.unpack_from("<iiII", self._records, offset)

    def centre(self, name):
        x, y, width, height = self.rect(name)
        return x + width // 2, y + height // 2


KEY_NAMES = {
    " ": "space", "ä": "adiaeresis", "ö": "odiaeresis", "ü": "udiaeresis", "ß": "ssharp",
    ".": "period", ",": "comma", "-": "minus", "+": "plus", "#": "numbersign", "<": "less",
    "\n": "Return",
}  # fmt: skip
SHIFTED = dict(zip('!"$%&/()=?*\';:_', '12456789' + '0ß+#,.-'))
ALTERED = dict(zip("@{[]}\\~|", "q7890ß+<"))


def key_for(character):
    """What to press for a character, as xdotool takes it."""
    if character in SHIFTED:
        return "shift+" + key_for(SHIFTED[character])
    if character in ALTERED:
        return "alt+" + key_for(ALTERED[character])
    if character.isupper():
        return "shift+" + key_for(character.lower())
    return KEY_NAMES.get(character, character)


FRAME_BUTTONS = ["move", "height_less", "height_more", "mode", "width_less", "width_more", "close"]


def frame_button(rect, name):
    """Middle of a frame button of a window with a full frame; of a reduced one, only 'close'."""
    x, y, width, _ = rect
    width = min(width, SCREEN_WIDTH - x - 2)
    return x + width - 16 * (7 - FRAME_BUTTONS.index(name)) + 8, y - 16


class Display:
    """An X server without a screen, with a German keyboard."""

    def __init__(self):
        reader, writer = os.pipe()
        self._server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(writer), "-screen", "0",
             f"{SCREEN_WIDTH}x{SCREEN_HEIGHT}x24", "-nolisten", "tcp", "-noreset"],
            pass_fds=[writer], stderr=subprocess.DEVNULL)  # fmt: skip
        os.close(writer)
        with os.fdopen(reader) as answer:
            number = answer.readline().strip()
        if not number:
            raise Failure("the X server does not start")
        self.environment = dict(os.environ, DISPLAY=":" + number, SDL_VIDEODRIVER="x11")
        self.run("setxkbmap", "de")

    def run(self, *command):
        subprocess.run(command, env=self.environment, check=True, timeout=PATIENCE)

    def close(self):
        self._server.terminate()
        self._server.wait()


class Session:
    """A program under test, as a context manager; its pictures go to a folder if there is one."""

    def __init__(self, command, folder, pictures=None):
        self._command, self._folder, self._pictures = command, folder, pictures
        self._steps = 0
        self.lines = []  # all that the program printed and the session has looked at

    def __enter__(self):
        self.display = Display()
        self.start()
        return self

    def __exit__(self, kind, fault, trace):
        if kind is not None:
            print("printed so far:", *self.lines, *self._drain(), sep="\n  ", file=sys.stderr)
        elif self._steps > 0:
            self._keep_picture()
        self.program.kill()
        self.program.wait()
        self.display.close()

    def start(self, *arguments):
        """Starts the program, again if it has ended."""
        self.program = subprocess.Popen(
            [*self._command, *arguments], cwd=self._folder, env=self.display.environment,
            stdout=subprocess.PIPE)  # fmt: skip
        self._waiting = queue.Queue()
        threading.Thread(target=self._read, args=(self.program.stdout,), daemon=True).start()

    def _read(self, pipe):
        for line in pipe:
            self._waiting.put(line.decode("utf-8", "replace").rstrip("\n"))
        self._waiting.put(None)

    def _drain(self):
        while not self._waiting.empty():
            yield str(self._waiting.get())

    # --- Steps

    def step(self, text):
        """Ends the step before with a picture and begins the next one."""
        if self._steps > 0:
            self._keep_picture()
        self._steps += 1
        print(f"{self._steps:02}  {text}", flush=True)

    def _keep_picture(self):
        if self._pictures is not None:
            self.picture(os.path.join(self._pictures, f"{self._steps:02}.png"))

    def picture(self, path):
        """Takes a picture of the screen, as soon as it no longer changes."""
        before = None
        for _ in range(20):
            self.display.run("import", "-silent", "-window", "root", "-depth", "8", path)
            with open(path, "rb") as file:
                now = file.read()
            if now == before:
                return
            before = now
            time.sleep(0.05)

    def look(self):
        """The bytes of a picture of the screen, once the program has begun to draw."""
        return self.look_until_it_differs_from(None)

    def look_until_it_differs_from(self, before):
        end = time.monotonic() + PATIENCE
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "shown.ppm")
            while time.monotonic() < end:
                self.picture(path)
                with open(path, "rb") as file:
                    shown = file.read()
                is_blank = len(set(shown[-3 * SCREEN_WIDTH * SCREEN_HEIGHT:])) == 1
                if not is_blank and shown != before:
                    return shown
        raise Failure("the screen stays as it is")

    # --- Pointer and keyboard

    def move(self, x, y):
        self.display.run("xdotool", "mousemove", str(x), str(y))

    def press(self, x, y):
        self.move(x, y)
        self.display.run("xdotool", "mousedown", "1")

    def release(self, x, y):
        self.move(x, y)
        self.display.run("xdotool", "mouseup", "1")

    def click(self, x, y, button=1):
        self.move(x, y)
        self.display.run("xdotool", "click", str(button))

    def key(self, *names):
        """Presses and releases keys, named as X names them; 'shift+a' holds one for another."""
        self.display.run("xdotool", "key", "--delay", "8", *names)

    def type(self, text):
        """Types a text as a hand does on a German keyboard."""
        self.key(*[key_for(character) for character in text])

    # --- What is expected

    def expect(self, *wanted):
        """Waits for lines of the program, in this order; others may stand between them."""
        for line in wanted:
            end = time.monotonic() + PATIENCE
            while self._next_line(line, end) != line:
                pass

    def _next_line(self, wanted, end):
        try:
            line = self._waiting.get(timeout=max(0, end - time.monotonic()))
        except queue.Empty:
            line = None
        if line is None:
            raise Failure(f"the program did not print '{wanted}'")
        self.lines.append(line)
        return line

    def expect_end(self):
        """Waits until the program has ended by itself and well."""
        status = self.program.wait(PATIENCE)
        if status != 0:
            raise Failure(f"the program ended with the status {status}")

    def expect_picture(self, expected, area, spots=0):
        """Compares an area (left, top, width, height) of the screen with that of a PNG file."""
        x, y, width, height = area
        crop = ["-crop", f"{width}x{height}+{x}+{y}", "+repage"]
        end = time.monotonic() + PATIENCE
        with tempfile.TemporaryDirectory() as folder:
            shown = os.path.join(folder, "shown.png")
            while True:
                self.picture(shown)
                result = subprocess.run(
                    ["compare", "-metric", "AE", "(", shown, *crop, ")", "(", expected, *crop, ")",
                     "null:"], capture_output=True, text=True, check=False)  # fmt: skip
                if result.returncode in (0, 1) and float(result.stderr) <= spots:
                    return
                if time.monotonic() > end:
                    kept = os.path.abspath("shown.png")
                    shutil.copy(shown, kept)
                    raise Failure(f"{result.stderr} pixels of {kept} differ from {expected}")

    def kill(self):
        """Ends the program at once, as a power failure would."""
        self.program.send_signal(signal.SIGKILL)
        self.program.wait()
        self.lines.extend(line for line in self._drain() if line != "None")


def arguments(description):
    """The command line that all sessions have."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--program", required=True, help="the program, beside its compiled form")
    parser.add_argument("--velform", required=True, help="the form tool")
    parser.add_argument("--pictures", help="folder for a picture of each step")
    parser.add_argument("--under", default="", help="command to run the program with")
    return parser.parse_args()
