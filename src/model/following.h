// How dependents follow a master that moves or scrolls. For frame actions and menus of titles.
#pragma once

#include "model/axis.h"

namespace velumo {

enum class Direction : u32 { back = 1, forward = 2 }; // any other: nothing moves

void step(u32 &coordinate, Direction direction, u32 distance);

struct Shift {
    u32 x, y; // wrap around for moves to the left and up
};
void shift_object(vel_object &object, Shift by);
void shift_cursor(vel_object &object, Shift by);

// On purpose: dependents move in two ways.
// With their window: all of them, and the cursors of the types that take one.
void follow_move(vel_context &ctx, u32 master, Shift by);
// When a program shifts them: those with an area, and every cursor.
void shift_for_program(vel_context &ctx, u32 master, Shift by);

struct ScrollStep {
    const Axis &axis;
    Direction direction;
    u32 distance;
};
void follow_scroll(vel_context &ctx, u32 master, const ScrollStep &by);
// Whether a dependent moves with the contents of its master.
bool scrolls_with_master(const vel_context &ctx, const vel_object &object);

} // namespace velumo
