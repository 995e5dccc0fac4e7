// The exported functions of drawing: primitives, geometry, objects and scenes.
#include "api/calls.h"
#include "render/borders.h"
#include "render/cursor.h"
#include "render/display.h"
#include "render/geometry.h"
#include "render/limits.h"
#include "render/marks.h"
#include "render/paint.h"
#include "render/pixels.h"
#include "render/scene.h"
#include "render/surface.h"

using namespace velumo;

namespace {

// Limits as programs get them: the first columns and rows outside.
struct Corners {
    u32 left = 0, right = 0, top = 0, bottom = 0;

    Corners() = default;
    explicit Corners(const Limits &limits)
        : left(as_field(limits.x.begin - 1)), right(as_field(limits.x.end)),
          top(as_field(limits.y.begin - 1)), bottom(as_field(limits.y.end)) {}

    void write_to(u32 *to_left, u32 *to_right, u32 *to_top, u32 *to_bottom) const {
        write(to_left, left);
        write(to_right, right);
        write(to_top, top);
        write(to_bottom, bottom);
    }
};

u32 size_on_screen(const vel_context *ctx, u32 object, const Axis &axis) {
    return in_form(ctx,
                   [&](const vel_context &c) { return cut_size(c, object_at(c, object), axis); });
}

u32 size_inside(const vel_context *ctx, u32 object, const Axis &axis, Climb climb) {
    return in_form(ctx,
                   [&](const vel_context &c) { return size_in_masters(c, object, axis, climb); });
}

} // namespace

void vel_lock(SDL_Surface *surface) noexcept { lock(surface); }

void vel_unlock(SDL_Surface *surface) noexcept { unlock(surface); }

void vel_draw_pixel(vel_context *ctx, uint32_t x, uint32_t y, uint8_t red, uint8_t green,
                    uint8_t blue) noexcept {
    if (has_screen(ctx)) draw_pixel(*ctx, {x, y}, {red, green, blue});
}

void vel_draw_line(vel_context *ctx, uint32_t x1, uint32_t y1, uint32_t x2, uint32_t y2,
                   uint8_t red, uint8_t green, uint8_t blue) noexcept {
    if (has_screen(ctx))
        draw_line(*ctx, {x1, y1}, {x2, y2}, {red, green, blue}, Locking::by_caller);
}

void vel_draw_box(vel_context *ctx, uint32_t x, uint32_t y, uint32_t width, uint32_t height,
                  uint8_t red, uint8_t green, uint8_t blue) noexcept {
    if (has_screen(ctx)) draw_box(*ctx, {x, y, width, height}, {red, green, blue});
}

void vel_draw_rectangle(vel_context *ctx, uint32_t x, uint32_t y, uint32_t width, uint32_t height,
                        uint8_t red, uint8_t green, uint8_t blue) noexcept {
    if (has_screen(ctx)) draw_outline(*ctx, {x, y, width, height}, {red, green, blue});
}

uint32_t vel_p_cutted_w_independent(const vel_context *ctx, uint32_t object) noexcept {
    return size_on_screen(ctx, object, horizontal);
}

uint32_t vel_p_cutted_h_independent(const vel_context *ctx, uint32_t object) noexcept {
    return size_on_screen(ctx, object, vertical);
}

uint32_t vel_p_cutted_w_dependent(const vel_context *ctx, uint32_t object) noexcept {
    return size_inside(ctx, object, horizontal, Climb::master);
}

uint32_t vel_p_cutted_h_dependent(const vel_context *ctx, uint32_t object) noexcept {
    return size_inside(ctx, object, vertical, Climb::grandmaster);
}

uint32_t vel_search_master(const vel_context *ctx, uint32_t object) noexcept {
    return in_form(ctx, root_of, object);
}

void vel_get_borders_for_dep_object(const vel_context *ctx, uint32_t object, uint32_t *left,
                                    uint32_t *right, uint32_t *top, uint32_t *bottom) noexcept {
    const auto limits = [=](const vel_context &c) { return Corners(dependent_limits(c, object)); };
    in_form(ctx, limits).write_to(left, right, top, bottom);
}

void vel_get_borders_for_text(const vel_context *ctx, uint32_t object, uint32_t *left,
                              uint32_t *right, uint32_t *top, uint32_t *bottom) noexcept {
    const auto limits = [=](const vel_context &c) { return Corners(text_limits(c, object)); };
    in_form(ctx, limits).write_to(left, right, top, bottom);
}

void vel_evoke_object(vel_context *ctx, uint32_t object) noexcept {
    in_form(ctx, paint_object, object);
}

void vel_evoke_borders(vel_context *ctx, uint32_t object) noexcept {
    in_form(ctx, paint_border, object);
}

uint32_t vel_draw_all_objects(vel_context *ctx, uint32_t format_first, uint32_t refresh) noexcept {
    const auto draw = [=](vel_context &c) {
        if (format_first == 1) format_all(c);
        draw_all(c);
        if (refresh == 1) update_display(c, c.screen_rect);
        return 1U;
    };
    return in_form(ctx, draw);
}

void vel_draw_dep_objs(vel_context *ctx, uint32_t object) noexcept {
    in_form(ctx, draw_dependents, object);
}

void vel_switch_dep_object(vel_context *ctx, uint32_t object) noexcept {
    in_form(ctx, place_dependents, object);
}

void vel_draw_selected_window(vel_context *ctx) noexcept { in_form(ctx, draw_active_window); }

void vel_draw_and_screenup_selected_window(vel_context *ctx) noexcept {
    in_form(ctx, show_active_window);
}

void vel_undraw_object(vel_context *ctx, uint32_t object) noexcept {
    in_form(ctx, erase_object, object);
}

void vel_draw_selected_lines(vel_context *ctx, uint32_t object) noexcept {
    in_form(ctx, draw_mark_outline, object);
}

void vel_draw_selected_box(vel_context *ctx, uint32_t object) noexcept {
    in_form(ctx, draw_mark_square, object);
}

void vel_undraw_selected_lines(vel_context *ctx, uint32_t object) noexcept {
    in_form(ctx, erase_mark_outline, object);
}

void vel_undraw_selected_box(vel_context *ctx, uint32_t object) noexcept {
    in_form(ctx, erase_mark_square, object);
}

void vel_draw_cursor(vel_context *ctx, uint32_t object) noexcept {
    in_form(ctx, draw_cursor, object);
}
