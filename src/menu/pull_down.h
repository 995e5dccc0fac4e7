// Pull-down menus: shown, followed by the pointer or by keys, and gone within one call. For titles,
// which must tell a click from a drag.
#pragma once

#include "model/objects.h"

namespace velumo {

struct Point {
    i32 x, y;
};

struct MenuEnd {
    enum class Cause { released, left, filter, previous_title, next_title };
    Cause cause;
    u32 entry; // the chosen one; 0 for none
    Point at;  // where the button was released
};

// Below a title the pointer may stay above the menu until it has been over an entry.
enum class Hanging { below_title, free };
// A menu opened by a key begins on its first entry and does not mind where the pointer rests.
enum class Opened { by_pointer, by_key };
struct MenuStart {
    Hanging hanging;
    Opened opened = Opened::by_pointer;
    bool has_neighbours = false; // menus that the Left and Right key end this one for
};
MenuEnd run_menu(vel_context &ctx, u32 menu, const MenuStart &start);

} // namespace velumo
