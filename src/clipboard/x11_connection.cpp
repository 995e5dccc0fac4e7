#include "clipboard/x11_connection.h"

#include <SDL.h>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <string_view>

namespace velumo {
namespace {

struct AtomName {
    xcb_atom_t Atoms::*atom;
    const char *name;
};

constexpr AtomName atom_names[] = {
    {&Atoms::clipboard, "CLIPBOARD"}, {&Atoms::targets, "TARGETS"},
    {&Atoms::timestamp, "TIMESTAMP"}, {&Atoms::utf8_string, "UTF8_STRING"},
    {&Atoms::text, "TEXT"},           {&Atoms::incremental, "INCR"},
    {&Atoms::content, "VELUMO_TEXT"},
};
constexpr std::size_t atom_count = std::size(atom_names);

// Asks for all of them before it waits for the first.
Atoms read_atoms(xcb_connection_t *connection) {
    Atoms atoms{};
    xcb_intern_atom_cookie_t asked[atom_count];
    for (std::size_t k = 0; k < atom_count; ++k) {
        const char *const name = atom_names[k].name;
        asked[k] =
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    }
    for (std::size_t k = 0; k < atom_count; ++k) {
        const Received<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, asked[k], nullptr));
        if (reply != nullptr) atoms.*atom_names[k].atom = reply->atom;
    }
    return atoms;
}

} // namespace

bool runs_on_x11() {
    char driver[8] = "";
    return SDL_VideoDriverName(driver, sizeof driver) != nullptr &&
           std::string_view(driver) == "x11";
}

X11Connection::X11Connection() : connection_(xcb_connect(nullptr, &screen_)) {
    if (is_alive()) atoms_ = read_atoms(connection_);
}

xcb_window_t X11Connection::make_window() {
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
    for (int k = 0; k < screen_ && screens.rem > 1; ++k) xcb_screen_next(&screens);
    const xcb_window_t window = xcb_generate_id(connection_);
    const std::uint32_t reported = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_, 0, window, screens.data->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &reported);
    return window;
}

XEvent X11Connection::next_event(Moment until) {
    using std::chrono::milliseconds;
    xcb_flush(connection_);
    for (;;) {
        XEvent event(xcb_poll_for_event(connection_));
        if (event != nullptr || !is_alive()) return event;
        const auto left = std::chrono::ceil<milliseconds>(until - std::chrono::steady_clock::now());
        if (left <= milliseconds{0}) return nullptr;
        pollfd connection{xcb_get_file_descriptor(connection_), POLLIN, 0};
        if (::poll(&connection, 1, static_cast<int>(left.count())) < 0 && errno != EINTR) {
            return nullptr;
        }
    }
}

} // namespace velumo
