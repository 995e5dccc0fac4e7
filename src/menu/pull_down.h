// How a pull-down menu ended. For titles, which must tell a click from a drag.
#pragma once

#include "model/objects.h"

namespace velumo {

struct Point {
    i32 x, y;
};

struct MenuEnd {
    enum class Cause { released, left, filter };
    Cause cause;
    u32 entry; // the chosen one; 0 for none
    Point at;  // where the button was released
};

// What vel_move_out_menu does.
MenuEnd run_menu(vel_context &ctx, u32 menu, u32 mode);

} // namespace velumo
