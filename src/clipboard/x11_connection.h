// A connection of our own to the X server, for the clipboard with a window that is never shown.
//
// It goes through libxcb: there, errors and the loss of the server belong to the connection. libX11
// reports them to handlers of the whole process, which SDL and the program have for themselves, and
// which end the program.
#pragma once

#include <chrono>
#include <cstdlib>
#include <memory>

#include <xcb/xcb.h>

namespace velumo {

struct FreedByC {
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T> using Received = std::unique_ptr<T, FreedByC>;
using XEvent = Received<xcb_generic_event_t>;

using Moment = std::chrono::steady_clock::time_point;

struct Atoms {
    xcb_atom_t clipboard, targets, timestamp, utf8_string, text, incremental, content;
};

// Whether SDL draws through X; there may be a server otherwise, too.
bool runs_on_x11();

class X11Connection {
public:
    X11Connection();
    ~X11Connection() { xcb_disconnect(connection_); }
    X11Connection(const X11Connection &) = delete;
    X11Connection &operator=(const X11Connection &) = delete;

    bool is_alive() const { return xcb_connection_has_error(connection_) == 0; }
    xcb_connection_t *raw() const { return connection_; }
    const Atoms &atoms() const { return atoms_; }

    // Changes of its properties are reported.
    xcb_window_t make_window();

    // Nothing when none comes until then, or the connection is lost.
    XEvent next_event(Moment until);

private:
    xcb_connection_t *connection_;
    int screen_ = 0;
    Atoms atoms_{};
};

inline std::uint8_t type_of(const xcb_generic_event_t &event) { return event.response_type & 0x7F; }

template <typename T> const T &as(const xcb_generic_event_t &event) {
    return reinterpret_cast<const T &>(event);
}

} // namespace velumo
