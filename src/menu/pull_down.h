// Pull-down menus: shown, followed by the pointer and gone within one call. For titles, which must
// tell a click from a drag.
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

// Below a title the pointer may stay above the menu until it has been over an entry.
enum class Hanging { below_title, free };
MenuEnd run_menu(vel_context &ctx, u32 menu, Hanging hanging);

} // namespace velumo
