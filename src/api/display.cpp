// The exported functions of the display: opening and resizing it.
#include "api/calls.h"
#include "render/opening.h"
#include "window/resizing.h"

using namespace velumo;

int32_t vel_open_display(vel_context *ctx, uint32_t width, uint32_t height,
                         const char *title) noexcept try {
    if (ctx == nullptr) return VEL_ERROR_ARGUMENT;
    std::unique_ptr<vel_state> state(ctx->state == nullptr ? new vel_state : nullptr);
    const i32 result = open_display(*ctx, width, height, or_empty(title));
    if (result != VEL_OK) return result;
    if (state != nullptr) ctx->state = state.release();
    if ((ctx->open_flags & VEL_OPEN_RESIZABLE) != 0) follow_display(*ctx);
    return VEL_OK;
} catch (const std::bad_alloc &) {
    return VEL_ERROR_MEMORY;
}

int32_t vel_resize(vel_context *ctx, uint32_t width, uint32_t height) noexcept {
    return in_form_or<i32>(VEL_ERROR_ARGUMENT, ctx, resize_display, width, height);
}
