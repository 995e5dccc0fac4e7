#include "render/scene.h"

#include <array>

#include "model/types.h"
#include "model/walk.h"
#include "render/changes.h"
#include "render/cursor.h"
#include "render/display.h"
#include "render/limits.h"
#include "render/marks.h"
#include "render/paint.h"
#include "render/surface.h"
#include "text/layout.h"

namespace velumo {
namespace {

bool shows_cursor(const vel_context &ctx, u32 number) {
    return number == ctx.cursor_object && type_of(object_at(ctx, number)).takes_cursor;
}

void paint_with_cursor(vel_context &ctx, u32 number) {
    paint_object(ctx, number);
    if (shows_cursor(ctx, number)) draw_cursor(ctx, number);
}

// On purpose: top-level windows and top-level texts are not painted with the desktop.
bool is_on_desktop(const vel_object &o) {
    return is_drawable(o) && o.master == 0 && type_of(o).is_on_desktop;
}

void draw_desktop(vel_context &ctx) {
    for (u32 number = VEL_FRAME_BUTTONS + 1; number <= ctx.object_count; ++number) {
        if (!is_on_desktop(object_at(ctx, number))) continue;
        paint_with_cursor(ctx, number);
        draw_dependents(ctx, number);
    }
}

// The windows under the top of the stack, from the bottom up.
void draw_background_windows(vel_context &ctx) {
    for (u32 entry = std::min<u32>(ctx.window_count, VEL_MAX_WINDOWS); entry > 1; --entry) {
        const u32 number = ctx.window_stack[entry - 1];
        if (number == 0 || number == ctx.active_window) continue;
        const vel_object &o = object_at(ctx, number);
        if (o.type != VEL_TYPE_WINDOW || !is_drawable(o)) continue;
        paint_object(ctx, number);
        draw_dependents(ctx, number);
    }
}

void draw_marked_window(vel_context &ctx) {
    const u32 window = ctx.active_window;
    // On purpose: an empty top of the stack hides the active window.
    if (window == 0 || ctx.window_stack[0] == 0 || object_at(ctx, window).hidden != 0) return;
    paint_object(ctx, window);
    draw_mark_square(ctx, window);
    draw_mark_outline(ctx, window);
    if (shows_cursor(ctx, window)) draw_cursor(ctx, window);
    draw_dependents(ctx, window);
}

void draw_frame_buttons(vel_context &ctx) {
    for (u32 button = 1; button <= frame_button_count(ctx); ++button) {
        if (object_at(ctx, button).hidden == 0) paint_object(ctx, button);
    }
}

// Makes an object cover its master's inner area and the master's border inset around it.
// True when it did not already.
bool fit(vel_object &o, const vel_object &master, const Axis &axis) {
    const u32 inset = master.border_inset;
    const u32 position = master.*axis.position + master.*axis.margin_before - inset;
    const u32 size =
        master.*axis.size - master.*axis.margin_before - master.*axis.margin_after + 2 * inset;
    const bool moves = o.*axis.position != position || o.*axis.size != size;
    o.*axis.position = position;
    o.*axis.size = size;
    return moves;
}

bool shows_inside_masters(const vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    const Limits limits = dependent_limits(ctx, number);
    return overlap_of(limits.x, extent_of(o, horizontal)).any() &&
           overlap_of(limits.y, extent_of(o, vertical)).any();
}

SDL_Rect rect_of_active_window(const vel_context &ctx) {
    return sdl_rect(cut_rect(ctx, object_at(ctx, ctx.active_window)));
}

} // namespace

void settle_parts(vel_context &ctx) {
    if (ctx.state != nullptr && ctx.state->settle_parts != nullptr) ctx.state->settle_parts(ctx);
}

void draw_all(vel_context &ctx) {
    settle_parts(ctx);
    const Painting painting(ctx);
    draw_desktop(ctx);
    draw_background_windows(ctx);
    begin_window(ctx);
    draw_marked_window(ctx);
    draw_frame_buttons(ctx);
}

void format_all(vel_context &ctx) {
    const FontsStay fonts_stay(ctx);
    const KnownMasters masters(ctx);
    for (u32 number = 1; number <= ctx.object_count; ++number) format_object(ctx, number);
}

void show_all(vel_context &ctx) {
    draw_all(ctx);
    update_display(ctx, ctx.screen_rect);
}

void draw_dependents(vel_context &ctx, u32 master) {
    if (!has_dependents(object_at(ctx, master))) return;
    Painting painting(ctx);
    const KnownMasters masters(ctx);
    place_dependents(ctx, master);
    walk_dependents(ctx, master, painting.steps(), [&ctx](u32 number) {
        const vel_object &o = object_at(ctx, number);
        if (!is_drawable(o)) return Walk::skip;
        paint_with_cursor(ctx, number);
        if (!has_dependents(o)) return Walk::skip;
        place_dependents(ctx, number);
        return Walk::descend;
    });
}

void place_dependents(vel_context &ctx, u32 number) {
    const vel_object &master = object_at(ctx, number);
    for (const u32 dependent : dependents_of(master)) {
        vel_object &o = object_at(ctx, dependent);
        if (border_of(o).is_fitted && number != 0) {
            const bool moves_across = fit(o, master, horizontal);
            const bool moves_down = fit(o, master, vertical);
            if (moves_across || moves_down) forget_master(ctx, dependent);
        }
        if (has_area(o) && o.type != VEL_TYPE_MENU) {
            o.hidden = shows_inside_masters(ctx, dependent) ? 0 : 1;
        }
    }
}

void draw_active_window(vel_context &ctx) {
    settle_parts(ctx);
    const Painting painting(ctx, Painting::Of::window);
    const u32 window = ctx.active_window;
    if (window != 0) {
        paint_object(ctx, window);
        // On purpose: here the cursor is drawn whatever the window's type.
        if (window == ctx.cursor_object) draw_cursor(ctx, window);
        draw_dependents(ctx, window);
    }
    draw_frame_buttons(ctx);
}

void show_active_window(vel_context &ctx) {
    draw_active_window(ctx);
    if (ctx.active_window != 0) update_display(ctx, rect_of_active_window(ctx));
}

void show_edited_window(vel_context &ctx) {
    if (ctx.partial_redraw != 1) return show_active_window(ctx);
    Painting painting(ctx, Painting::Of::changes_of_window);
    draw_active_window(ctx);
    const auto changes = painting.finish();
    if (ctx.active_window == 0) return;
    const SDL_Rect window = rect_of_active_window(ctx);
    if (!changes) return update_display(ctx, window);
    std::array<SDL_Rect, max_changes> rects;
    const auto end = std::transform(
        changes->begin(), changes->end(), rects.begin(),
        [&window](const Area &area) { return sdl_rect(common(area, area_of(window))); });
    update_display(ctx, std::span(rects.begin(), end));
}

void erase_object(vel_context &ctx, u32 number) {
    vel_object &o = object_at(ctx, number);
    leave_room_for_frame(o);
    // On purpose: the whole size of the record, also what the screen cuts, but nothing outside it,
    // so that a shadow stays.
    draw_box(ctx, {o.x, o.y, o.width, o.height}, ctx.background_colour);
}

} // namespace velumo
