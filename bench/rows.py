"""The rows of the table of compare.py: what is measured, against what, and what is required.

README.md says what they mean.
"""

from dataclasses import dataclass

IMGUI = "Dear ImGui, which paints nothing"  # it stops at lists of vertices


@dataclass(frozen=True)
class Figure:
    """What a program prints under a name when it does a work."""

    program: str
    work: str
    name: str


@dataclass(frozen=True)
class Row:
    """A figure of the library: a time as a ratio to another one, or, without a base, as it is."""

    group: str
    work: str
    against: str
    own: Figure
    base: Figure
    required: float = None
    wanted: float = None
    unit: str = ""  # of a figure as it is


REDRAW = Figure("bench_library", "redraw", "redraw")
KEY = Figure("bench_library", "key", "key")
PARTIAL_KEY = Figure("bench_library", "partial-key", "key")


def peer(name, work):
    return Figure(f"bench_{name}", work, work)


def load_row(memory, *limits):
    return Row("load", f"10,000 objects, {memory}", "reading and one copy",
               Figure("bench_load", memory.split()[0], "load"),
               Figure("bench_load", memory.split()[0], "floor"), *limits)  # fmt: skip


def deep_row(name, work):
    return Row("deep", f"{work}, 4,000 masters deep", "500 deep; 8 is linear",
               Figure("bench_deep", "4000", name), Figure("bench_deep", "500", name),
               10, 8.5)  # fmt: skip


def velform_row(titles, work):
    return Row("velform", f"velform compile, 30,000 objects, {work}", "10,000; 3 is linear",
               Figure("velform", f"{titles}-30000", "compile"),
               Figure("velform", f"{titles}-10000", "compile"), 3.3)  # fmt: skip


def allocations_row(name, work):
    own = Figure("bench_library", "allocations", name)
    return Row("allocations", f"own allocations in {work}", "", own, None, 0)


def whole_row(command, work, required):
    return Row("start", f"velform {command}, 1,000 objects", "", Figure("velform", work, "whole"),
               None, required, unit="ms")  # fmt: skip


ROWS = [
    Row("redraw", "full redraw", "floor, bare SDL", REDRAW, peer("floor", "redraw"), 0.55, 0.35),
    Row("redraw", "full redraw", "FLTK", REDRAW, peer("fltk", "redraw"), 0.35, 0.2),
    Row("redraw", "full redraw", "Qt 5", REDRAW, peer("qt5", "redraw")),
    Row("redraw", "full redraw", IMGUI, REDRAW, peer("imgui", "redraw")),
    Row("key", "key in 998 characters", "FLTK", KEY, peer("fltk", "key"), 1.3, 1.0),
    Row("key", "key, partial_redraw = 1", "FLTK", PARTIAL_KEY, peer("fltk", "key"), 0.4, 0.2),
    Row("key", "key in 998 characters", "Qt 5", KEY, peer("qt5", "key")),
    Row("key", "key in 998 characters", IMGUI, KEY, peer("imgui", "key")),
    Row("break", "breaking 999 characters into lines", "floor, incremental",
        Figure("bench_library", "break", "break"), Figure("bench_library", "break", "floor"),
        7, 4),  # fmt: skip
    load_row("fresh memory", 1.2, 1.1),
    load_row("warm heap", 1.8, 1.4),
    deep_row("redraw", "redraw"),
    deep_row("hit-test", "hit test"),
    allocations_row("redraw", "a repeated redraw"),
    allocations_row("key", "a key"),
    allocations_row("partial-key", "a key, partial_redraw = 1"),
    Row("size", "code and data of the shared library", "", Figure("size", "library", "size"), None,
        200, 120, "KiB"),  # fmt: skip
    Row("memory", "memory beyond the tables, form on screen", "",
        Figure("bench_library", "memory", "memory"), None, 5, 2, "MiB"),  # fmt: skip
    velform_row("menus", "half of them titles"),
    velform_row("missing", "of menus that do not exist"),
    whole_row("compile", "whole-compile", 150),
    whole_row("compile with a lock file", "whole-lock", 150),
    whole_row("render", "whole-render", 300),
    whole_row("render of the source", "whole-draw", 300),
    whole_row("check", "whole-check", 500),
]
