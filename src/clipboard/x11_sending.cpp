#include "clipboard/x11_sending.h"

#include <algorithm>
#include <cstring>

#include "text/encoding.h"

namespace velumo {
namespace {

constexpr std::size_t most_transfers = 16;
constexpr std::size_t piece_size = 0x10000;
// Of a message that changes a property, before the bytes.
constexpr std::size_t head_size = 64;

// As many bytes as a message may have, and not so many that the server is busy with them for long.
std::size_t longest_piece(xcb_connection_t *x) {
    return std::min(piece_size, 4 * std::size_t{xcb_get_maximum_request_length(x)} - head_size);
}

// What ISO 8859-1 does not have is left out.
std::string as_latin1(std::string_view utf8) {
    std::string latin1;
    while (!utf8.empty()) {
        if (const std::optional<char> character = take_character(utf8)) latin1 += *character;
    }
    return latin1;
}

} // namespace

void X11Sending::answer(const xcb_selection_request_event_t &request, const XSelection *selection) {
    // Old programs name no property.
    const xcb_atom_t property = request.property == XCB_NONE ? request.target : request.property;
    const bool is_done = selection != nullptr && selection->is_ours &&
                         put(*selection, request.target, request.requestor, property);
    xcb_selection_notify_event_t answer{};
    answer.response_type = XCB_SELECTION_NOTIFY;
    answer.time = request.time;
    answer.requestor = request.requestor;
    answer.selection = request.selection;
    answer.target = request.target;
    answer.property = is_done ? property : xcb_atom_t{XCB_NONE};
    char message[32]{}; // the size of every event
    std::memcpy(message, &answer, sizeof answer);
    xcb_send_event(x_.raw(), 0, request.requestor, 0, message);
}

bool X11Sending::put(const XSelection &selection, xcb_atom_t target, xcb_window_t window,
                     xcb_atom_t property) {
    const Atoms &atoms = x_.atoms();
    if (target == atoms.targets) {
        const xcb_atom_t targets[] = {atoms.targets, atoms.timestamp, atoms.utf8_string, atoms.text,
                                      XCB_ATOM_STRING};
        xcb_change_property(x_.raw(), XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_ATOM, 32,
                            std::size(targets), targets);
    } else if (target == atoms.timestamp) {
        xcb_change_property(x_.raw(), XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_INTEGER, 32,
                            1, &selection.since);
    } else if (target == XCB_ATOM_STRING) {
        put_text({window, property, XCB_ATOM_STRING, as_latin1(*selection.text), 0});
    } else if (target == atoms.utf8_string || target == atoms.text) {
        put_text({window, property, atoms.utf8_string, *selection.text, 0});
    } else {
        return false;
    }
    return true;
}

void X11Sending::put_text(Transfer transfer) {
    if (transfer.text.size() <= longest_piece(x_.raw())) {
        xcb_change_property(x_.raw(), XCB_PROP_MODE_REPLACE, transfer.window, transfer.property,
                            transfer.type, 8, static_cast<std::uint32_t>(transfer.text.size()),
                            transfer.text.data());
        return;
    }
    // Whoever asks again has given up what was under way.
    std::erase_if(transfers_, [&transfer](const Transfer &t) {
        return t.window == transfer.window && t.property == transfer.property;
    });
    // Whoever asks and does not take what was asked for gives way to others.
    if (transfers_.size() == most_transfers) end(0);
    transfers_.push_back(std::move(transfer));
    const Transfer &added = transfers_.back();
    const std::uint32_t size = static_cast<std::uint32_t>(added.text.size());
    report_changes_of(added.window,
                      XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    xcb_change_property(x_.raw(), XCB_PROP_MODE_REPLACE, added.window, added.property,
                        x_.atoms().incremental, 32, 1, &size);
}

void X11Sending::go_on(const xcb_property_notify_event_t &taken) {
    const auto found = std::ranges::find_if(transfers_, [&taken](const Transfer &transfer) {
        return transfer.window == taken.window && transfer.property == taken.atom;
    });
    if (taken.state != XCB_PROPERTY_DELETE || found == transfers_.end()) return;
    // An empty piece is the end.
    const std::size_t size = std::min(found->text.size() - found->sent, longest_piece(x_.raw()));
    xcb_change_property(x_.raw(), XCB_PROP_MODE_REPLACE, found->window, found->property,
                        found->type, 8, static_cast<std::uint32_t>(size),
                        found->text.data() + found->sent);
    found->sent += size;
    if (size == 0) end(static_cast<std::size_t>(found - transfers_.begin()));
}

void X11Sending::forget(xcb_window_t window) {
    std::erase_if(transfers_, [window](const Transfer &t) { return t.window == window; });
}

void X11Sending::end(std::size_t number) {
    const xcb_window_t window = transfers_[number].window;
    transfers_.erase(transfers_.begin() + static_cast<std::ptrdiff_t>(number));
    const bool has_another =
        std::ranges::find(transfers_, window, &Transfer::window) != transfers_.end();
    if (!has_another) report_changes_of(window, XCB_EVENT_MASK_NO_EVENT);
}

void X11Sending::report_changes_of(xcb_window_t window, std::uint32_t kinds) {
    xcb_change_window_attributes(x_.raw(), window, XCB_CW_EVENT_MASK, &kinds);
}

} // namespace velumo
