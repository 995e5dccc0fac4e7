// How objects keep their distance from the edges of a master that moves and grows. For resizing.
#pragma once

#include "model/axis.h"

namespace velumo {

// Pixels on one axis.
struct Change {
    i64 shift = 0;  // of the near edge
    i64 growth = 0; // of the size
};
struct Stretch {
    Change x, y;
};

// What the anchors of an object make of a change of its master, or of the screen.
Stretch obey_anchors(const vel_context &ctx, u32 number, Stretch of_master);

// Moves and resizes an object, and those that depend on it as their anchors want. Texts that became
// wider or narrower are broken into lines again, with the caret where it was. False when there was
// not the memory for all of it.
bool stretch(vel_context &ctx, u32 number, Stretch by);
// The same for the dependents alone.
bool stretch_dependents(vel_context &ctx, u32 master, Stretch of_master);

} // namespace velumo
