// The two rules for the line width of an object that has none of its own. For text layout.
#pragma once

#include "render/limits.h"

namespace velumo {

// Where formatting begins: what the object's text area holds, which the screen and the masters may
// cut.
inline void set_line_width_from_area(vel_context &ctx, u32 number) {
    vel_object &o = object_at(ctx, number);
    if (o.line_width != 0) return;
    const Span area = text_limits(ctx, number).x;
    // On purpose: the width then stays, whatever becomes of the object's size.
    o.line_width = as_field(area.end - area.begin);
}

// On purpose: an object that a word meets first, such as a later member of a chain, gets the room
// between its margins, whatever cuts it.
inline void set_line_width_from_margins(vel_object &o) {
    if (o.line_width == 0) o.line_width = o.width - (o.margin_right + o.margin_left);
}

} // namespace velumo
