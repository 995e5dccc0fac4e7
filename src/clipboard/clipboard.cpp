#include "clipboard/clipboard.h"

#include <new>

#include "model/traits.h"

#if defined(VELUMO_X11)
#include "clipboard/x11_clipboard.h"
#include "clipboard/x11_connection.h"
#endif

namespace velumo {
namespace {

std::unique_ptr<SharedClipboard> connect([[maybe_unused]] vel_state &state) {
#if defined(VELUMO_X11)
    if (runs_on_x11()) return connect_to_x11(state.clipboard, state.primary);
#endif
    return nullptr;
}

// Null when it works within the program only. The connection is made on first use: a program that
// has offered nothing has nothing to answer.
SharedClipboard *shared(vel_context &ctx) {
    if (!has_comfort(ctx, VEL_COMFORT_CLIPBOARD)) return nullptr;
    vel_state &state = state_of(ctx);
    if (state.shared_clipboard == nullptr) state.shared_clipboard = connect(state);
    return state.shared_clipboard.get();
}

} // namespace

void offer(vel_context &ctx, Board board, std::string text) {
    if (SharedClipboard *const others = shared(ctx)) return others->own(board, std::move(text));
    (board == Board::primary ? state_of(ctx).primary : state_of(ctx).clipboard) = std::move(text);
}

std::string offered(vel_context &ctx, Board board) {
    SharedClipboard *const others = shared(ctx);
    if (others != nullptr && !others->owns(board)) {
        std::string text = others->fetch(board);
        if (!text.empty()) return text;
    }
    // Nobody else has one, or the connection is lost.
    return board == Board::primary ? state_of(ctx).primary : state_of(ctx).clipboard;
}

void serve_clipboard(vel_context &ctx) try {
    if (ctx.state == nullptr || ctx.state->shared_clipboard == nullptr) return;
    if (!ctx.state->shared_clipboard->serve()) ctx.state->shared_clipboard.reset();
} catch (const std::bad_alloc &) {
    // Whoever asked gets no answer.
}

int clipboard_connection(const vel_context &ctx) {
    const bool is_shared = ctx.state != nullptr && ctx.state->shared_clipboard != nullptr;
    return is_shared ? ctx.state->shared_clipboard->descriptor() : -1;
}

} // namespace velumo
