// The two axes of the screen as data, so that a rule for both is written once. For every subsystem.
#pragma once

#include "model/objects.h"

namespace velumo {

struct Axis {
    u32 vel_object::*position;
    u32 vel_object::*size;
    u32 vel_object::*margin_before; // left or top
    u32 vel_object::*margin_after;  // right or bottom
    u32 vel_object::*cursor;
    u32 vel_object::*scroll;
    u32 vel_object::*scroll_max;
    u32 vel_context::*screen_size;
    u32 screen_gap;   // pixels that a cut object keeps free at the screen's far edge
    u32 window_start; // least position of a top-level window, which leaves room for its marks
};

// On purpose: a cut object keeps 2 pixels free at the right edge of the screen but 5 at the bottom.
inline constexpr Axis horizontal{&vel_object::x,
                                 &vel_object::width,
                                 &vel_object::margin_left,
                                 &vel_object::margin_right,
                                 &vel_object::cursor_x,
                                 &vel_object::scroll_x,
                                 &vel_object::scroll_max_x,
                                 &vel_context::screen_width,
                                 2,
                                 11};
inline constexpr Axis vertical{&vel_object::y,
                               &vel_object::height,
                               &vel_object::margin_top,
                               &vel_object::margin_bottom,
                               &vel_object::cursor_y,
                               &vel_object::scroll_y,
                               &vel_object::scroll_max_y,
                               &vel_context::screen_height,
                               5,
                               25};

// What has one direction lies along its longer side.
inline const Axis &longer_axis(const vel_object &o) {
    return o.height > o.width ? vertical : horizontal;
}

} // namespace velumo
