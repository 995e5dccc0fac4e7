#include "window/whole.h"

#include "model/traits.h"
#include "window/cursor_start.h"
#include "window/focus.h"

namespace velumo {
namespace {

Change covering(const vel_context &ctx, const vel_object &o, const Axis &axis) {
    return {-i64{as_signed(o.*axis.position)}, i64{ctx.*axis.screen_size} - o.*axis.size};
}

// The first object that can be edited, or else an answer.
void start_focus_in(vel_context &ctx, u32 number) {
    start_cursors_of_dependents(ctx, number);
    ctx.cursor_object = first_cursor_stop(ctx, number);
    const bool has_keys = has_comfort(ctx, VEL_COMFORT_KEYBOARD);
    if (ctx.cursor_object == 0 && has_keys) focus_answer(ctx, {});
}

} // namespace

bool is_whole_window(const vel_context &ctx, u32 number) {
    return number > VEL_FRAME_BUTTONS && traits_of(ctx, number).part == whole_part &&
           object_at(ctx, number).master == 0;
}

void cover_screen(const vel_context &ctx, u32 number, Stretching &stretching) {
    const vel_object &o = object_at(ctx, number);
    stretching.stretch(number, {covering(ctx, o, horizontal), covering(ctx, o, vertical)});
}

void start_whole_windows(vel_context &ctx) {
    Stretching stretching(ctx);
    u32 first = 0;
    for (u32 number = ctx.object_count; number > VEL_FRAME_BUTTONS; --number) {
        if (!is_whole_window(ctx, number)) continue;
        if (ctx.screen_width != 0 && ctx.screen_height != 0) cover_screen(ctx, number, stretching);
        first = number;
    }
    stretching.finish();
    if (first != 0 && ctx.active_window == 0) start_focus_in(ctx, first);
}

} // namespace velumo
