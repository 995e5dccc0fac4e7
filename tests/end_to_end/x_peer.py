"""A client of the X server that may break every rule of selections."""

import ctypes

STRING, ATOM = 31, 4
NEW_VALUE, DELETED = 0, 1
_PROPERTY_NOTIFY, _SELECTION_REQUEST, _SELECTION_NOTIFY = 28, 30, 31
_x11 = ctypes.CDLL("libX11.so.6")
_x11.XOpenDisplay.restype = ctypes.c_void_p
_Event = ctypes.c_long * 24  # each field of an event takes one, the type and three others first


class Peer:
    def __init__(self, display):
        name = display.environment["DISPLAY"].encode()
        self._connection = ctypes.c_void_p(_x11.XOpenDisplay(name))
        self.window = self.new_window()

    def call(self, function, *arguments):
        words = [ctypes.c_ulong(a) if isinstance(a, int) else a for a in arguments]
        return getattr(_x11, function)(self._connection, *words)

    def done(self, function, *arguments):
        self.call(function, *arguments)
        self.call("XSync", 0)

    def atoms(self, *names):
        return [self.call("XInternAtom", name.encode(), 0) for name in names]

    def new_window(self):
        window = self.call("XCreateSimpleWindow", self.call("XDefaultRootWindow"), *[1] * 7)
        self.watch(window)
        return window

    def watch(self, window):
        self.call("XSelectInput", window, 1 << 22)

    def _event(self, kind):
        event = _Event()
        while event[0] & 0xFF != kind:
            self.call("XNextEvent", event)
        return event[4:10]

    def request(self):
        """Returns the requestor, selection, target, property and time."""
        return self._event(_SELECTION_REQUEST)[1:]

    def answer(self, request, name):
        """Says that what was asked for is in a property, or with 0 that it is not to be had."""
        *what, _, time = request
        event = _Event(_SELECTION_NOTIFY, 0, 0, 0, *what, name, time)
        self.done("XSendEvent", what[0], 0, 0, event)

    def ask(self, window, selection, target, name):
        self.done("XConvertSelection", selection, target, name, window, 0)

    def answered(self):
        """Returns the requestor, selection, target and property."""
        return self._event(_SELECTION_NOTIFY)[:4]

    def wait_for_change(self, *window_and_name, state):
        while (event := self._event(_PROPERTY_NOTIFY))[:2] != list(window_and_name) or (
            event[3] & 1 != state
        ):
            pass

    def change(self, window, name, kind, unit, data):
        """Sets a property; numbers of 32 bits are eight bytes each here."""
        count = len(data) if unit == 8 else len(data) // 8
        self.done("XChangeProperty", window, name, kind, unit, 0, data, count)

    def take(self, window, name):
        """Returns the type and the bytes of a property, and deletes it."""
        kind, unit, count, rest, data = (ctypes.c_ulong() for _ in range(5))
        found = map(ctypes.byref, (kind, unit, count, rest, data))
        self.call("XGetWindowProperty", window, name, 0, 1 << 22, 1, 0, *found)
        return kind.value, ctypes.string_at(data.value, count.value * (unit.value == 8))
