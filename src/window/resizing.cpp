#include "window/resizing.h"

#include "render/opening.h"
#include "render/scene.h"
#include "window/frame_actions.h"
#include "window/frame_buttons.h"
#include "window/whole.h"

namespace velumo {
namespace {

// A window that would be out of sight comes back.
Change back_in_sight(const vel_context &ctx, const vel_object &o, Change by, const Axis &axis) {
    if (!is_top_level_window(o)) return by;
    const i64 at = as_signed(o.*axis.position) + by.shift;
    return {by.shift + place_in_sight(ctx, at, axis) - at, by.growth};
}

// False when there was not the memory for all of it.
bool follow_screen(vel_context &ctx, Stretch of_screen) {
    Stretching stretching(ctx);
    for (u32 number = VEL_FRAME_BUTTONS + 1; number <= ctx.object_count; ++number) {
        const vel_object &o = object_at(ctx, number);
        if (o.master != 0) continue;
        if (is_whole_window(ctx, number)) {
            cover_screen(ctx, number, stretching);
            continue;
        }
        const Stretch by = obey_anchors(ctx, number, of_screen);
        stretching.stretch(number, {back_in_sight(ctx, o, by.x, horizontal),
                                    back_in_sight(ctx, o, by.y, vertical)});
    }
    return stretching.finish();
}

// In a loop. What SDL or the memory refuses leaves the form as large as it was.
void follow_event(vel_context &ctx, int width, int height) {
    if (width > 0 && height > 0) {
        resize_display(ctx, static_cast<u32>(width), static_cast<u32>(height));
    }
}

} // namespace

i32 resize_display(vel_context &ctx, u32 width, u32 height) {
    if (!is_display_size(width, height)) return VEL_ERROR_ARGUMENT;
    if (!set_display_size(ctx, width, height)) return VEL_ERROR_DISPLAY;
    const Stretch of_screen{{0, i64{width} - ctx.screen_width},
                            {0, i64{height} - ctx.screen_height}};
    ctx.screen_width = width;
    ctx.screen_height = height;
    ctx.screen_rect = {0, 0, static_cast<Uint16>(width), static_cast<Uint16>(height)};
    const bool is_done = follow_screen(ctx, of_screen);
    place_frame_buttons(ctx);
    clear_screen(ctx);
    show_all(ctx);
    return is_done ? VEL_OK : VEL_ERROR_MEMORY;
}

void follow_display(vel_context &ctx) { state_of(ctx).follow_display = follow_event; }

} // namespace velumo
