#include "window/cursor_start.h"

#include "model/traits.h"
#include "model/walk.h"

namespace velumo {
namespace {

void start_cursor(vel_object &o) {
    if (o.cursor_x != 0 || o.cursor_y != 0) return;
    o.cursor_x = o.x + o.margin_left;
    o.cursor_y = o.y + o.margin_top;
    o.cursor_line = 0;
    o.cursor_column = 0;
}

} // namespace

void start_cursors(vel_context &ctx, u32 window) {
    vel_object &o = object_at(ctx, window);
    if (o.editable == 1) start_cursor(o);
    start_cursors_of_dependents(ctx, window);
}

void start_cursors_of_dependents(vel_context &ctx, u32 master) {
    walk_dependents(ctx, master, [&ctx](u32 number) {
        vel_object &o = object_at(ctx, number);
        if (!has_area(o)) return Walk::skip;
        if (o.editable == 1 && o.type != VEL_TYPE_EMPTY) start_cursor(o);
        return Walk::descend;
    });
}

u32 first_cursor_stop(const vel_context &ctx, u32 master) {
    u32 found = 0;
    walk_dependents(ctx, master, [&ctx, &found](u32 number) {
        const vel_object &o = object_at(ctx, number);
        if (!has_area(o) || !is_enabled(ctx, number)) return Walk::skip;
        if (o.editable == 1) {
            found = number;
            return Walk::stop;
        }
        return o.editable == 0 ? Walk::descend : Walk::skip;
    });
    return found;
}

} // namespace velumo
