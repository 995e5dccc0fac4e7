#include "clipboard/x11_clipboard.h"

#include <algorithm>

#include "model/objects.h"
#include "text/encoding.h"

namespace velumo {
namespace {

using namespace std::chrono_literals;

// How long others may take in all until a text is there: the user waits.
constexpr auto patience = 1s;
constexpr std::size_t most_bytes = 16U << 20;
constexpr int most_events = 1000; // in one go, however many come

Moment from_now(std::chrono::seconds time) { return std::chrono::steady_clock::now() + time; }

bool is_change(const xcb_generic_event_t &event, xcb_window_t window) {
    if (type_of(event) != XCB_PROPERTY_NOTIFY) return false;
    const auto &change = as<xcb_property_notify_event_t>(event);
    return change.window == window && change.state == XCB_PROPERTY_NEW_VALUE;
}

} // namespace

X11Clipboard::X11Clipboard(std::string &clipboard, std::string &primary) {
    if (!x_.is_alive()) return;
    window_ = x_.make_window();
    selections_ = {XSelection{x_.atoms().clipboard, &clipboard},
                   XSelection{XCB_ATOM_PRIMARY, &primary}};
}

void X11Clipboard::own(Board board, std::string text) {
    XSelection &own = selection(board);
    // What happened to the selection before is handled while this waits, and so does not touch the
    // new text.
    own.since = server_time(from_now(patience));
    *own.text = std::move(text);
    xcb_set_selection_owner(x_.raw(), window_, own.name, own.since);
    const Received<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        x_.raw(), xcb_get_selection_owner(x_.raw(), own.name), nullptr));
    own.is_ours = reply != nullptr && reply->owner == window_;
    serve();
}

std::string X11Clipboard::fetch(Board board) {
    std::string text;
    const Moment end = from_now(patience);
    for (const xcb_atom_t target : {x_.atoms().utf8_string, xcb_atom_t{XCB_ATOM_STRING}}) {
        const XEvent answer = ask(selection(board).name, target, end);
        const bool is_refused =
            answer != nullptr && as<xcb_selection_notify_event_t>(*answer).property == XCB_NONE;
        if (is_refused) continue;
        if (answer != nullptr) text = receive(end);
        break;
    }
    serve();
    return text;
}

bool X11Clipboard::serve() {
    for (int k = 0; k < most_events; ++k) {
        const XEvent event(xcb_poll_for_event(x_.raw()));
        if (event == nullptr) break;
        handle(*event);
    }
    xcb_flush(x_.raw());
    return x_.is_alive();
}

XSelection *X11Clipboard::selection_named(xcb_atom_t name) {
    const auto found = std::ranges::find(selections_, name, &XSelection::name);
    return found == selections_.end() ? nullptr : &*found;
}

void X11Clipboard::handle(const xcb_generic_event_t &event) {
    switch (type_of(event)) {
    case 0: // an error; the only one that matters is that a receiver is gone
        sending_.forget(as<xcb_generic_error_t>(event).resource_id);
        break;
    case XCB_DESTROY_NOTIFY:
        sending_.forget(as<xcb_destroy_notify_event_t>(event).window);
        break;
    case XCB_PROPERTY_NOTIFY:
        sending_.go_on(as<xcb_property_notify_event_t>(event));
        break;
    case XCB_SELECTION_REQUEST: {
        const auto &request = as<xcb_selection_request_event_t>(event);
        // Nobody asks for our own windows but to upset them.
        if (request.requestor == window_ || request.requestor == receiver_) break;
        sending_.answer(request, selection_named(request.selection));
        break;
    }
    case XCB_SELECTION_CLEAR:
        lose(as<xcb_selection_clear_event_t>(event));
        break;
    default:
        break;
    }
}

void X11Clipboard::lose(const xcb_selection_clear_event_t &cleared) {
    XSelection *const lost = selection_named(cleared.selection);
    // Times wrap. An earlier one is from before it was ours again.
    if (lost == nullptr || static_cast<i32>(cleared.time - lost->since) < 0) return;
    lost->is_ours = false;
    lost->text->clear();
}

template <typename Wanted> XEvent X11Clipboard::wait_for(Moment until, Wanted is_wanted) {
    while (XEvent event = x_.next_event(until)) {
        if (is_wanted(*event)) return event;
        handle(*event);
    }
    return nullptr;
}

// The server reports when a property has changed, even if nothing is added to it.
xcb_timestamp_t X11Clipboard::server_time(Moment end) {
    xcb_change_property(x_.raw(), XCB_PROP_MODE_APPEND, window_, x_.atoms().content,
                        XCB_ATOM_STRING, 8, 0, "");
    const XEvent change =
        wait_for(end, [this](const auto &event) { return is_change(event, window_); });
    return change == nullptr ? xcb_timestamp_t{XCB_CURRENT_TIME}
                             : as<xcb_property_notify_event_t>(*change).time;
}

// Returns the answer; nothing when there is none in time.
XEvent X11Clipboard::ask(xcb_atom_t selection, xcb_atom_t target, Moment end) {
    const xcb_timestamp_t time = server_time(end);
    if (receiver_ != XCB_NONE) xcb_destroy_window(x_.raw(), receiver_);
    receiver_ = x_.make_window();
    xcb_convert_selection(x_.raw(), receiver_, selection, target, x_.atoms().content, time);
    return wait_for(end, [this](const auto &event) {
        return type_of(event) == XCB_SELECTION_NOTIFY &&
               as<xcb_selection_notify_event_t>(event).requestor == receiver_;
    });
}

std::string X11Clipboard::receive(Moment end) {
    Piece whole = take_piece();
    return whole.kind == Piece::announcement ? receive_pieces(end) : std::move(whole.text);
}

// Each piece is there when the one before has been taken; an empty one is the end. A text whose end
// does not come is none.
std::string X11Clipboard::receive_pieces(Moment end) {
    const auto is_piece = [this](const auto &event) { return is_change(event, receiver_); };
    std::string text;
    while (text.size() < most_bytes) {
        if (wait_for(end, is_piece) == nullptr) return {};
        const Piece piece = take_piece();
        if (piece.kind != Piece::content) return {};
        if (piece.text.empty()) return text;
        text.append(piece.text, 0, most_bytes - text.size());
    }
    return text;
}

X11Clipboard::Piece X11Clipboard::take_piece() {
    const xcb_get_property_cookie_t asked =
        xcb_get_property(x_.raw(), 1, receiver_, x_.atoms().content, XCB_GET_PROPERTY_TYPE_ANY, 0,
                         most_bytes / sizeof(std::uint32_t));
    const Received<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(x_.raw(), asked, nullptr));
    if (reply == nullptr) return {};
    if (reply->type == x_.atoms().incremental) return {Piece::announcement, {}};
    const bool is_latin1 = reply->type == XCB_ATOM_STRING;
    if (reply->format != 8 || !(is_latin1 || reply->type == x_.atoms().utf8_string)) return {};
    const std::string_view bytes(static_cast<const char *>(xcb_get_property_value(reply.get())),
                                 reply->value_len);
    return {Piece::content, is_latin1 ? utf8_of(bytes) : std::string(bytes)};
}

std::unique_ptr<SharedClipboard> connect_to_x11(std::string &clipboard, std::string &primary) {
    auto connected = std::make_unique<X11Clipboard>(clipboard, primary);
    if (!connected->is_connected()) return nullptr;
    return connected;
}

} // namespace velumo
