"""Programs start with the driver `dummy`, and say why they do not without a display or a font. They
never draw with letters in the terminal. usage: starts_test.py COMPILER PROGRAM..."""

import os
import re
import signal
import subprocess
import sys
import tempfile
from pathlib import Path

# Preloaded, this lets every program find no font.
NO_FONT = """void *TTF_OpenFontIndex(const char *, int, long);
void *TTF_OpenFont(const char *f, int s) { return TTF_OpenFontIndex("/missing.ttf", f ? s : 0, 0); }
"""


def expect(program, home, changes, reason):
    """The program ends with a reason for it or, if there is none, when it is closed."""
    environment = dict(os.environ, TERM="xterm", HOME=home, XDG_DATA_HOME=home, DISPLAY="nowhere",
                       ASAN_OPTIONS="verify_asan_link_order=0", **changes)  # fmt: skip
    pipes = dict.fromkeys(("stdin", "stdout", "stderr"), subprocess.PIPE)
    process = subprocess.Popen([program], cwd=os.path.dirname(program), env=environment, text=True,
                               **pipes)  # fmt: skip
    for _ in range(60):
        try:
            printed, complaint = process.communicate(timeout=1)
            break
        except subprocess.TimeoutExpired:
            if not reason and handles(process, signal.SIGTERM):
                process.terminate()  # which SDL turns into what closing the window sends
    else:
        process.kill()
        sys.exit(f"{program} with {changes} does not end")
    begin = f"{os.path.basename(program)}: cannot start: " if reason else ""
    is_right = complaint.startswith(begin) and reason in complaint and not (reason and printed)
    if not is_right or process.returncode != bool(reason):
        sys.exit(f"{program} with {changes}: {process.returncode} {printed} {complaint}")


def handles(process, number):
    status = Path(f"/proc/{process.pid}/status").read_text(encoding="ascii")
    return int(re.search(r"SigCgt:\s*(\w+)", status)[1], 16) >> number - 1 & 1


def check(compiler, programs):
    os.environ.pop("SDL_VIDEODRIVER", None)
    with tempfile.TemporaryDirectory() as home:
        no_font = os.path.join(home, "no_font.so")
        subprocess.run([compiler, "-shared", "-fPIC", "-x", "c", "-", "-o", no_font],
                       input=NO_FONT, text=True, check=True)  # fmt: skip
        for program in programs:
            expect(program, home, {}, "available")
            expect(program, home, {"SDL_VIDEODRIVER": "caca"}, "available")
            expect(program, home, {"SDL_VIDEODRIVER": "dummy", "LD_PRELOAD": no_font}, "missing")
            expect(program, home, {"SDL_VIDEODRIVER": "dummy"}, "")


if __name__ == "__main__":
    check(sys.argv[1], sys.argv[2:])
