// Hands texts to other programs that asked for a selection of ours. For the clipboard of X.
#pragma once

#include <string>
#include <vector>

#include "clipboard/x11_connection.h"

namespace velumo {

struct XSelection {
    xcb_atom_t name;
    std::string *text; // UTF-8
    bool is_ours = false;
    xcb_timestamp_t since = 0; // when it became ours
};

class X11Sending {
public:
    explicit X11Sending(X11Connection &x) : x_(x) {}

    // Refuses when the selection is null or not ours. Throws std::bad_alloc.
    void answer(const xcb_selection_request_event_t &request, const XSelection *selection);
    // The other program has taken a piece.
    void go_on(const xcb_property_notify_event_t &taken);
    // Its window is gone.
    void forget(xcb_window_t window);

private:
    // A text that is too long for one message, and how far it has gone.
    struct Transfer {
        xcb_window_t window;
        xcb_atom_t property, type;
        std::string text;
        std::size_t sent;
    };

    bool put(const XSelection &selection, xcb_atom_t target, xcb_window_t window,
             xcb_atom_t property);
    void put_text(Transfer transfer);
    void end(std::size_t number);
    void report_changes_of(xcb_window_t window, std::uint32_t kinds);

    X11Connection &x_;
    std::vector<Transfer> transfers_;
};

} // namespace velumo
