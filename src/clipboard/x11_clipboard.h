// The clipboard and the primary selection of the X server. For the clipboard.
#pragma once

#include <array>

#include "clipboard/x11_sending.h"
#include "model/shared_clipboard.h"

namespace velumo {

class X11Clipboard final : public SharedClipboard {
public:
    // The texts of the two boards outlive it.
    X11Clipboard(std::string &clipboard, std::string &primary);

    bool is_connected() const { return x_.is_alive(); }

    void own(Board board, std::string text) override;
    bool owns(Board board) const override { return selection(board).is_ours; }
    std::string fetch(Board board) override;
    bool serve() override;
    int descriptor() const override { return xcb_get_file_descriptor(x_.raw()); }

private:
    // What another program has put into the property.
    struct Piece {
        enum Kind { neither, content, announcement } kind = neither;
        std::string text; // UTF-8
    };

    XSelection &selection(Board board) { return selections_[board == Board::primary]; }
    const XSelection &selection(Board board) const { return selections_[board == Board::primary]; }
    XSelection *selection_named(xcb_atom_t name);

    template <typename Wanted> XEvent wait_for(Moment until, Wanted is_wanted);
    xcb_timestamp_t server_time(Moment end);
    void handle(const xcb_generic_event_t &event);
    void lose(const xcb_selection_clear_event_t &cleared);

    XEvent ask(xcb_atom_t selection, xcb_atom_t target, Moment end);
    std::string receive(Moment end);
    std::string receive_pieces(Moment end);
    Piece take_piece();

    X11Connection x_;
    X11Sending sending_{x_};
    xcb_window_t window_ = XCB_NONE;
    // A window for each question, so that late answers to one before get lost with theirs.
    xcb_window_t receiver_ = XCB_NONE;
    std::array<XSelection, 2> selections_{};
};

// Null when there is no server. Throws std::bad_alloc.
std::unique_ptr<SharedClipboard> connect_to_x11(std::string &clipboard, std::string &primary);

} // namespace velumo
