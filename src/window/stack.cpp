#include "window/stack.h"

namespace velumo {
namespace {

// Entries beyond the stack are 0.
u32 entry_at(const vel_context &ctx, u32 entry) {
    return entry < VEL_MAX_WINDOWS ? ctx.window_stack[entry] : 0;
}

u32 counted(const vel_context &ctx) { return std::min<u32>(ctx.window_count, VEL_MAX_WINDOWS); }

} // namespace

std::optional<u32> find_window(const vel_context &ctx, u32 window) {
    const u32 *found = std::find(std::begin(ctx.window_stack), std::end(ctx.window_stack), window);
    if (found == std::end(ctx.window_stack)) return {};
    return static_cast<u32>(found - std::begin(ctx.window_stack));
}

void remove_entry(vel_context &ctx, u32 entry) {
    for (u32 k = entry; k < counted(ctx); ++k) ctx.window_stack[k] = entry_at(ctx, k + 1);
}

// An entry that is pushed beyond the stack is lost.
void push_window(vel_context &ctx, u32 window) {
    for (u32 k = std::min<u32>(counted(ctx), VEL_MAX_WINDOWS - 1); k > 0; --k) {
        ctx.window_stack[k] = ctx.window_stack[k - 1];
    }
    ctx.window_stack[0] = window;
}

} // namespace velumo
