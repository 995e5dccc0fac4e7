// The mouse in a text: placing the caret, selecting, pasting with the middle button. For the loops.
#pragma once

#include "model/objects.h"

namespace velumo {

enum class TextPress {
    elsewhere, // there is no text that could be selected
    clicked,   // the release is the context's event, for the loop to handle
    selected,  // the release was that of a selection, and is used up
    quit,      // the program is closed; the event is waiting again
    end_of_loop
};

// A press of the left button over an object: the caret goes to the character there, and what the
// pointer passes until the button is released is selected; a second and a third press select a
// word and a line.
TextPress press_in_text(vel_context &ctx, u32 object);

// A press of the middle button; false where nothing can be typed.
bool paste_in_text(vel_context &ctx, u32 object);

} // namespace velumo
