#include "model/following.h"

#include "model/types.h"
#include "model/walk.h"

namespace velumo {

// On purpose: a dependent that shows on its master's whole frame stays where it is in a top-level
// master.
bool scrolls_with_master(const vel_context &ctx, const vel_object &o) {
    return o.clip_mode == VEL_CLIP_MARGINS ||
           (o.clip_mode == VEL_CLIP_FRAME && object_at(ctx, o.master).master != 0);
}

void step(u32 &coordinate, Direction direction, u32 distance) {
    if (direction == Direction::forward) coordinate += distance;
    if (direction == Direction::back) coordinate -= distance;
}

void shift_object(vel_object &o, Shift by) {
    o.x += by.x;
    o.y += by.y;
}

void shift_cursor(vel_object &o, Shift by) {
    o.cursor_x += by.x;
    o.cursor_y += by.y;
}

void follow_move(vel_context &ctx, u32 master, Shift by) {
    walk_dependents(ctx, master, [&ctx, by](u32 number) {
        vel_object &o = object_at(ctx, number);
        shift_object(o, by);
        if (is_editable(o)) shift_cursor(o, by);
        return Walk::descend;
    });
}

void shift_for_program(vel_context &ctx, u32 master, Shift by) {
    walk_dependents(ctx, master, [&ctx, by](u32 number) {
        vel_object &o = object_at(ctx, number);
        if (!has_area(o)) return Walk::skip;
        shift_object(o, by);
        if (o.editable == 1) shift_cursor(o, by);
        return Walk::descend;
    });
}

void follow_scroll(vel_context &ctx, u32 master, const ScrollStep &by) {
    walk_dependents(ctx, master, [&ctx, &by](u32 number) {
        vel_object &o = object_at(ctx, number);
        if (!scrolls_with_master(ctx, o)) return Walk::skip;
        step(o.*by.axis.position, by.direction, by.distance);
        if (o.editable == 1) step(o.*by.axis.cursor, by.direction, by.distance);
        return Walk::descend;
    });
}

} // namespace velumo
