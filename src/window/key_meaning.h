// What a key that was pressed means to a loop, apart from editing. For the loops.
#pragma once

#include "input/held_keys.h"
#include "window/reach.h"

namespace velumo {

struct KeyMeaning {
    enum class Kind {
        none,        // left to the editor
        done,        // the focus has moved, or a window was raised
        answer,      // the object is pressed
        changed,     // the part was changed by the key
        over,        // the program is closed, or the filter ends the loop
        menu,        // the menu of the title is to be opened
        frame_button // the button is pressed and released
    };
    Kind kind = Kind::none;
    u32 object = 0;
};

// Looks at the context's event, which must be the press of a key, and moves the focus where it says
// so. Without VEL_COMFORT_KEYBOARD only Tab means anything. A key that was held since before the
// loop gives no answer, opens no menu and closes nothing, and one that has closed a window no
// other.
KeyMeaning meaning_of_key(vel_context &ctx, const Reach &reach, HeldKeys &held);

// For keys that mean nothing else: hands them to the editor, unless the focus is on an answer.
void edit_by_key(vel_context &ctx);

} // namespace velumo
