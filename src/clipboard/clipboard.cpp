#include "clipboard/clipboard.h"

namespace velumo {

void offer(vel_context &ctx, Board board, std::string text) {
    (board == Board::primary ? state_of(ctx).primary : state_of(ctx).clipboard) = std::move(text);
}

std::string offered(vel_context &ctx, Board board) {
    return board == Board::primary ? state_of(ctx).primary : state_of(ctx).clipboard;
}

void serve_clipboard(vel_context &) {}

int clipboard_connection(const vel_context &) { return -1; }

} // namespace velumo
