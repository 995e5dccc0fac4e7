// The exported functions of drawing: primitives, geometry, objects and scenes.
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

void write_limits(const Limits &limits, u32 *left, u32 *right, u32 *top, u32 *bottom) {
    *left = as_field(limits.x.begin - 1);
    *right = as_field(limits.x.end);
    *top = as_field(limits.y.begin - 1);
    *bottom = as_field(limits.y.end);
}

} // namespace

void vel_lock(SDL_Surface *surface) noexcept { lock(surface); }

void vel_unlock(SDL_Surface *surface) noexcept { unlock(surface); }

void vel_draw_pixel(vel_context *ctx, uint32_t x, uint32_t y, uint8_t red, uint8_t green,
                    uint8_t blue) noexcept {
    draw_pixel(*ctx, {x, y}, {red, green, blue});
}

void vel_draw_line(vel_context *ctx, uint32_t x1, uint32_t y1, uint32_t x2, uint32_t y2,
                   uint8_t red, uint8_t green, uint8_t blue) noexcept {
    draw_line(*ctx, {x1, y1}, {x2, y2}, {red, green, blue}, Locking::by_caller);
}

void vel_draw_box(vel_context *ctx, uint32_t x, uint32_t y, uint32_t width, uint32_t height,
                  uint8_t red, uint8_t green, uint8_t blue) noexcept {
    draw_box(*ctx, {x, y, width, height}, {red, green, blue});
}

void vel_draw_rectangle(vel_context *ctx, uint32_t x, uint32_t y, uint32_t width, uint32_t height,
                        uint8_t red, uint8_t green, uint8_t blue) noexcept {
    draw_outline(*ctx, {x, y, width, height}, {red, green, blue});
}

uint32_t vel_p_cutted_w_independent(const vel_context *ctx, uint32_t object) noexcept {
    return cut_size(*ctx, object_at(*ctx, object), horizontal);
}

uint32_t vel_p_cutted_h_independent(const vel_context *ctx, uint32_t object) noexcept {
    return cut_size(*ctx, object_at(*ctx, object), vertical);
}

uint32_t vel_p_cutted_w_dependent(const vel_context *ctx, uint32_t object) noexcept {
    return size_in_masters(*ctx, object, horizontal, Climb::master);
}

uint32_t vel_p_cutted_h_dependent(const vel_context *ctx, uint32_t object) noexcept {
    return size_in_masters(*ctx, object, vertical, Climb::grandmaster);
}

uint32_t vel_search_master(const vel_context *ctx, uint32_t object) noexcept {
    return root_of(*ctx, object);
}

void vel_get_borders_for_dep_object(const vel_context *ctx, uint32_t object, uint32_t *left,
                                    uint32_t *right, uint32_t *top, uint32_t *bottom) noexcept {
    write_limits(dependent_limits(*ctx, object), left, right, top, bottom);
}

void vel_get_borders_for_text(const vel_context *ctx, uint32_t object, uint32_t *left,
                              uint32_t *right, uint32_t *top, uint32_t *bottom) noexcept {
    write_limits(text_limits(*ctx, object), left, right, top, bottom);
}

void vel_evoke_object(vel_context *ctx, uint32_t object) noexcept { paint_object(*ctx, object); }

void vel_evoke_borders(vel_context *ctx, uint32_t object) noexcept { paint_border(*ctx, object); }

uint32_t vel_draw_all_objects(vel_context *ctx, uint32_t format_first, uint32_t refresh) noexcept {
    if (format_first == 1) format_all(*ctx);
    draw_all(*ctx);
    if (refresh == 1) update_display(*ctx, ctx->screen_rect);
    return 1;
}

void vel_draw_dep_objs(vel_context *ctx, uint32_t object) noexcept {
    draw_dependents(*ctx, object);
}

void vel_switch_dep_object(vel_context *ctx, uint32_t object) noexcept {
    place_dependents(*ctx, object);
}

void vel_draw_selected_window(vel_context *ctx) noexcept { draw_active_window(*ctx); }

void vel_draw_and_screenup_selected_window(vel_context *ctx) noexcept { show_active_window(*ctx); }

void vel_undraw_object(vel_context *ctx, uint32_t object) noexcept { erase_object(*ctx, object); }

void vel_draw_selected_lines(vel_context *ctx, uint32_t object) noexcept {
    draw_mark_outline(*ctx, object);
}

void vel_draw_selected_box(vel_context *ctx, uint32_t object) noexcept {
    draw_mark_square(*ctx, object);
}

void vel_undraw_selected_lines(vel_context *ctx, uint32_t object) noexcept {
    erase_mark_outline(*ctx, object);
}

void vel_undraw_selected_box(vel_context *ctx, uint32_t object) noexcept {
    erase_mark_square(*ctx, object);
}

void vel_draw_cursor(vel_context *ctx, uint32_t object) noexcept { draw_cursor(*ctx, object); }
