#!/usr/bin/env python3
"""Compares the library with its floor and with other toolkits, and prints a table of ratios.

Each round runs every program once, in turn, and a ratio is that of two figures of one round,
because other work on the machine slows down all of a round alike. Shown are the median of the
rounds and the middle half of them. Times are processor times, but for those of a whole process.

usage: compare.py BUILD [--rounds N] [--only GROUP]... [--json FILE] [--markdown FILE]
"""

import argparse
import json
import os
import platform
import re
import resource
import statistics
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from rows import ROWS

ROOT = Path(__file__).resolve().parent.parent
TABLE = re.compile(r"(<!-- table -->\n).*?(<!-- /table -->)", re.DOTALL)
ROUNDS = 9
RUNS = 5  # of a whole process in a round
TOOLKITS = {"bench_fltk": "FLTK", "bench_qt5": "Qt 5", "bench_imgui": "Dear ImGui"}


# --- Running a work

def form_source(titles, count):
    """Returns a form source in which every second object is the title of a menu.

    The object after it is that menu, or with titles 'missing' a label of another name.
    """
    other = "menu" if titles == "menus" else "label"
    return 'theme = "none"\n' + "".join(
        f'[[object]]\nid = "title_{k}"\ntype = "label"\nrect = [0, 0, 60, 30]\nmenu = "menu_{k}"\n'
        f'[[object]]\nid = "{other}_{k}"\ntype = "{other}"\nrect = [0, 0, 80, 90]\n'
        for k in range(count // 2)
    )


def thousand_objects():
    """Returns a form source of 20 windows with 49 objects each."""
    source = '[styles.button]\ntype = "label"\nborder = "shadow"\n'
    for w in range(20):
        source += (f'[[window]]\nid = "window_{w}"\nrect = [{20 + 4 * w}, {40 + 4 * w}, 640, 420]\n'
                   f'text = "Window {w}"\n')  # fmt: skip
        for k in range(49):
            x, y = 16 + k % 4 * 154, 40 + k // 4 * 28
            source += f'[[window.object]]\nid = "object_{w}_{k}"\nrect = [{x}, {y}, 140, 26]\n'
            source += (f'type = "label"\nlabel = "Caption {k}"\n', 'type = "entry"\n',
                       f'style = "button"\nlabel = "Press {k}"\n',
                       f'type = "text"\ntext = "Some words {k}"\n')[k % 4]  # fmt: skip
    return source


class Works:
    """Runs works of the programs in a build folder; each returns a dict of figures."""

    def __init__(self, build, scratch):
        self._build, self._scratch = Path(build), Path(scratch)

    def missing(self, program):
        """Returns why the program cannot be run, or an empty string."""
        if program not in TOOLKITS:
            return ""
        if not (self._build / "bench" / program).exists():
            return "./run bench peers installs it"
        if program == "bench_fltk" and "X_SERVER_PID" not in os.environ:
            return "there is no X server; ./run bench starts one"
        return ""

    def run(self, program, work):
        if program == "velform" and work.startswith("whole-"):
            return self._whole(work.removeprefix("whole-"))
        if program == "velform":
            return self._compile(*work.split("-"))
        if program == "size":
            return self._size()
        return self._measure(program, work)

    def _measure(self, program, work):
        bench, environment = self._build / "bench", dict(os.environ)
        if work == "allocations":
            environment["LD_PRELOAD"] = str(bench / "libcount_allocations.so")
        done = subprocess.run([bench / program, work], env=environment, capture_output=True,
                              text=True, check=False)  # fmt: skip
        if done.returncode != 0:
            sys.exit(f"compare: {program} {work}: {done.stderr.strip() or done.returncode}")
        lines = (line.split() for line in done.stdout.splitlines())
        return {name: float(value) for name, value in lines}

    def _compile(self, titles, count):
        source = self._scratch / f"{titles}{count}.toml"
        if not source.exists():
            source.write_text(form_source(titles, int(count)), encoding="utf-8")
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        done = subprocess.run([self._build / "tools/velform/velform", "compile", source],
                              capture_output=True, check=False)  # fmt: skip
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        if done.returncode != (0 if titles == "menus" else 1):
            sys.exit(f"compare: velform returns {done.returncode} for {source.name}")
        seconds = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        return {"compile": seconds * 1e6}

    def _whole(self, work):
        """Milliseconds from the start of the program to its end, the best of a few."""
        source, locked = self._scratch / "thousand.toml", self._scratch / "locked.toml"
        velform, form = self._build / "tools/velform/velform", source.with_suffix(".form")
        if not source.exists():
            source.write_text(thousand_objects(), encoding="utf-8")
            locked.write_text(thousand_objects(), encoding="utf-8")
            subprocess.run([velform, "compile", source], check=True)
            subprocess.run([velform, "compile", "--lock", locked], check=True)
        picture = ["-o", self._scratch / "picture.png", "--activate", "window_19"]
        command = {"compile": ["compile", source], "lock": ["compile", locked],
                   "render": ["render", form, *picture, "-C", self._scratch],
                   "draw": ["render", source, *picture], "check": ["check", source]}  # fmt: skip
        times = []
        for _ in range(RUNS):
            start = time.perf_counter()
            subprocess.run([velform, *command[work]], check=True)
            times.append(time.perf_counter() - start)
        return {"whole": min(times) * 1e3}

    def _size(self):
        """What is loaded of the library, so symbols and debug information do not count."""
        library = self._build / "src/libvelumo.so"
        lines = subprocess.run(["size", library], capture_output=True, text=True, check=True).stdout
        text, data, bss = (int(word) for word in lines.splitlines()[1].split()[:3])
        return {"size": (text + data + bss) / 1024}


def measure(works, rows, rounds):
    """Returns a dict from figure to its values, one for each round."""
    figures = [f for row in rows for f in (row.own, row.base) if f is not None]
    todo = list(dict.fromkeys((f.program, f.work) for f in figures))
    values = {figure: [] for figure in figures}
    for number in range(rounds):
        start = number % len(todo)
        told = {pair: works.run(*pair) for pair in todo[start:] + todo[:start]}
        for figure in values:
            values[figure].append(told[figure.program, figure.work][figure.name])
        load = os.getloadavg()[0]
        print(f"round {number + 1} of {rounds}, load {load:.1f}", file=sys.stderr, flush=True)
    return values


# --- The report

def middle(values):
    """Returns the median and the ends of the middle half."""
    ordered, quarter = sorted(values), len(values) // 4
    return statistics.median(ordered), ordered[quarter], ordered[-1 - quarter]


def result_of(row, values):
    result = {"work": row.work, "against": row.against, "unit": row.unit}
    measured = own = values[row.own]
    if row.base is not None:
        base = values[row.base]
        measured = [a / b for a, b in zip(own, base)]
        result["microseconds"] = statistics.median(own)
        result["base_microseconds"] = statistics.median(base)
    median, low, high = middle(measured)
    reached = row.required is None or median <= row.required
    return result | {"median": median, "low": low, "high": high, "required": row.required,
                     "wanted": row.wanted, "reached": reached}  # fmt: skip


def number(value):
    """Returns three significant digits, or all before the point; nothing for None."""
    if value is None:
        return ""
    return f"{value:.0f}" if value >= 100 or value == 0 else f"{value:.3g}"


def duration(microseconds):
    if microseconds is None:
        return ""
    if microseconds < 1000:
        return f"{number(microseconds)} us"
    return f"{number(microseconds / 1000)} ms"


def cells(result):
    half = f"{number(result['low'])} to {number(result['high'])}"
    measured = f"{number(result['median'])} {result['unit']}".strip()
    short = "" if result["reached"] else " (short)"
    return [result["work"], result["against"], measured, half, number(result["required"]) + short,
            number(result["wanted"]), duration(result.get("microseconds"))]  # fmt: skip


HEADS = ["work", "against", "measured", "middle half", "required", "wanted", "time"]


def plain_table(results):
    lines = [HEADS] + [cells(result) for result in results]
    widths = [max(len(line[k]) for line in lines) for k in range(len(HEADS))]
    return "".join("  ".join(c.ljust(w) for c, w in zip(line, widths)).rstrip() + "\n"
                   for line in lines)  # fmt: skip


def markdown_table(results):
    lines = [HEADS, ["---"] * len(HEADS)] + [cells(result) for result in results]
    return "".join("| " + " | ".join(line) + " |\n" for line in lines)


def commit():
    done = subprocess.run(["git", "-C", ROOT, "describe", "--always", "--dirty"],
                          capture_output=True, text=True, check=False)  # fmt: skip
    return done.stdout.strip() or "unknown"


def machine():
    processor = platform.machine()
    for line in Path("/proc/cpuinfo").read_text(encoding="utf-8").splitlines():
        if line.startswith("model name"):
            processor = line.split(":")[1].strip()
            break
    return f"{processor}, {os.cpu_count()} cores"


def put_into(path, text):
    """Replaces what stands between the marks in a page."""
    page = Path(path).read_text(encoding="utf-8")
    if not TABLE.search(page):
        sys.exit(f"compare: {path} has no place for the table")
    page = TABLE.sub(lambda match: match[1] + text + match[2], page)
    Path(path).write_text(page, encoding="utf-8")


def report(options, results, left_out):
    title = f"Commit {commit()}, {machine()}, medians of {options.rounds} rounds."
    print(f"{title}\n\n{plain_table(results)}")
    for line in left_out:
        print(line)
    short = [result for result in results if not result["reached"]]
    limits = sum(result["required"] is not None for result in results)
    print(f"{limits - len(short)} of {limits} required figures are reached.")
    if options.markdown:
        put_into(options.markdown, f"{title}\n\n{markdown_table(results)}")
    if options.json:
        whole = {"commit": commit(), "machine": machine(), "rounds": options.rounds,
                 "left_out": left_out, "rows": results}  # fmt: skip
        Path(options.json).write_text(json.dumps(whole, indent=1) + "\n", encoding="utf-8")


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("build", help="folder of the built preset bench")
    parser.add_argument("--rounds", type=int, default=ROUNDS, help=f"{ROUNDS} by default")
    parser.add_argument("--only", action="append", metavar="GROUP",
                        choices=sorted({row.group for row in ROWS}),
                        help="rows to measure, all by default: %(choices)s")  # fmt: skip
    parser.add_argument("--json", metavar="FILE", help="write all figures there")
    parser.add_argument("--markdown", metavar="FILE", help="put the table between the marks there")
    options = parser.parse_args()
    if options.rounds < 1:
        parser.error("--rounds must be at least 1")
    return options


def main():
    options = arguments()
    with tempfile.TemporaryDirectory() as scratch:
        works = Works(options.build, scratch)
        reasons = {program: works.missing(program) for program in TOOLKITS}
        rows = [row for row in ROWS if not options.only or row.group in options.only]
        rows = [row for row in rows if row.base is None or not reasons.get(row.base.program)]
        values = measure(works, rows, options.rounds)
    left_out = [f"{TOOLKITS[p]} is left out: {why}." for p, why in reasons.items() if why]
    report(options, [result_of(row, values) for row in rows], left_out)


if __name__ == "__main__":
    main()
