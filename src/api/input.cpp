// The exported functions of input: selection loops, hit tests, keys and the editor.
#include "api/calls.h"
#include "input/editor.h"
#include "input/hit_test.h"
#include "input/keys.h"
#include "input/text_cursor.h"
#include "input/text_position.h"
#include "window/selection.h"

using namespace velumo;

namespace {

u32 select_one_of(vel_context *ctx, i32 stop_a, i32 stop_b) {
    return in_form(ctx, select_either,
                   reach_of_selection(as_field(stop_a), as_field(stop_b), false));
}

} // namespace

uint32_t vel_get_mouse_selection(vel_context *ctx, int32_t stop_a, int32_t stop_b) noexcept {
    return select_one_of(ctx, stop_a, stop_b);
}

uint32_t vel_get_mono_mouse_selection(vel_context *ctx, int32_t stop) noexcept {
    return select_one_of(ctx, stop, stop);
}

uint32_t vel_test_all_objects(const vel_context *ctx, uint32_t x, uint32_t y) noexcept {
    return in_form(ctx, object_under, as_signed(x), as_signed(y));
}

uint32_t vel_test_dep_objs(const vel_context *ctx, uint32_t object, uint32_t x,
                           uint32_t y) noexcept {
    return in_form(ctx, dependent_under, object, as_signed(x), as_signed(y));
}

uint32_t vel_in_object(const vel_context *ctx, uint32_t object, int32_t x, int32_t y) noexcept {
    return in_form(ctx, is_hit, object, x, y) ? 1 : 0;
}

void vel_getfirstkeyinformation(vel_context *ctx) noexcept { in_form(ctx, translate_key_press); }

void vel_getfinalkeyinformation(vel_context *ctx) noexcept { in_form(ctx, deliver_key); }

void vel_get_text(vel_context *ctx) noexcept { in_form(ctx, edit_text); }

void vel_get_position_in_stream(vel_context *ctx) noexcept { in_form(ctx, find_cursor_index); }

void vel_get_column_row(vel_context *ctx) noexcept { in_form(ctx, find_cursor_line); }

uint32_t vel_get_selection(const vel_context *ctx, uint32_t object, uint32_t *anchor,
                           uint32_t *caret) noexcept {
    const Selection found = in_form(ctx, selection_in, object);
    if (found.owner == 0) return 0;
    write(anchor, found.anchor);
    write(caret, found.caret);
    return found.owner;
}

int32_t vel_set_selection(vel_context *ctx, uint32_t object, uint32_t anchor,
                          uint32_t caret) noexcept {
    return !has_form(ctx) ? i32{VEL_ERROR_ARGUMENT} : select_text(*ctx, object, anchor, caret);
}

uint32_t vel_last_refusal(const vel_context *ctx, uint32_t *character) noexcept {
    const bool has_state = ctx != nullptr && ctx->state != nullptr;
    const Refusal last = has_state ? ctx->state->refusal : Refusal{};
    write(character, last.character);
    return last.reason;
}
