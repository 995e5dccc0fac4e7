// The exported functions of input: selection loops, hit tests, keys and the editor.
#include "input/editor.h"
#include "input/hit_test.h"
#include "input/keys.h"
#include "input/text_cursor.h"
#include "input/text_position.h"
#include "window/selection.h"

using namespace velumo;

uint32_t vel_get_mouse_selection(vel_context *ctx, int32_t stop_a, int32_t stop_b) noexcept {
    return select_either(*ctx, reach_of_selection(as_field(stop_a), as_field(stop_b), false));
}

uint32_t vel_get_mono_mouse_selection(vel_context *ctx, int32_t stop) noexcept {
    return select_either(*ctx, reach_of_selection(as_field(stop), as_field(stop), false));
}

uint32_t vel_test_all_objects(const vel_context *ctx, uint32_t x, uint32_t y) noexcept {
    return object_under(*ctx, as_signed(x), as_signed(y));
}

uint32_t vel_test_dep_objs(const vel_context *ctx, uint32_t object, uint32_t x,
                           uint32_t y) noexcept {
    return dependent_under(*ctx, object, as_signed(x), as_signed(y));
}

uint32_t vel_in_object(const vel_context *ctx, uint32_t object, int32_t x, int32_t y) noexcept {
    return is_hit(*ctx, object, x, y) ? 1 : 0;
}

void vel_getfirstkeyinformation(vel_context *ctx) noexcept { translate_key_press(*ctx); }

void vel_getfinalkeyinformation(vel_context *ctx) noexcept { deliver_key(*ctx); }

void vel_get_text(vel_context *ctx) noexcept { edit_text(*ctx); }

void vel_get_position_in_stream(vel_context *ctx) noexcept { find_cursor_index(*ctx); }

void vel_get_column_row(vel_context *ctx) noexcept { find_cursor_line(*ctx); }

uint32_t vel_get_selection(const vel_context *ctx, uint32_t object, uint32_t *anchor,
                           uint32_t *caret) noexcept {
    if (ctx == nullptr) return 0;
    const Selection found = selection_in(*ctx, object);
    if (found.owner == 0) return 0;
    if (anchor != nullptr) *anchor = found.anchor;
    if (caret != nullptr) *caret = found.caret;
    return found.owner;
}

int32_t vel_set_selection(vel_context *ctx, uint32_t object, uint32_t anchor,
                          uint32_t caret) noexcept {
    return ctx == nullptr ? i32{VEL_ERROR_ARGUMENT} : select_text(*ctx, object, anchor, caret);
}

uint32_t vel_last_refusal(const vel_context *ctx, uint32_t *character) noexcept {
    const bool has_state = ctx != nullptr && ctx->state != nullptr;
    const Refusal last = has_state ? ctx->state->refusal : Refusal{};
    if (character != nullptr) *character = last.character;
    return last.reason;
}
