// How an object shows that it is focused, under the pointer, pressed or disabled, and which key
// reaches it, in colours that follow from its own. For painting.
#pragma once

#include "model/objects.h"

namespace velumo {

// The colours of body and text that an object is painted in, put into its record for as long as it
// is painted.
class StateColours {
public:
    StateColours(vel_context &ctx, u32 number);
    ~StateColours();
    StateColours(const StateColours &) = delete;
    StateColours &operator=(const StateColours &) = delete;

private:
    vel_object &o_;
    const u32 fill_[3], text_[3];
    const bool are_changed_;
};

// What comes on top of body, text and border: the line below the access key, the veil of a picture,
// the ring of the focus.
void paint_state(vel_context &ctx, u32 number);

} // namespace velumo
