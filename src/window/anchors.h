// How objects keep their distance from the edges of a master that moves and grows. For resizing.
#pragma once

#include <map>
#include <set>

#include "model/axis.h"
#include "model/walk.h"

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

// Moves and resizes objects, and at the end those that depend on them as their anchors want. Texts
// that became wider or narrower are broken into lines again, with the caret where it was. Without
// memory, some objects stay as they were.
class Stretching {
public:
    explicit Stretching(vel_context &ctx) : ctx_(ctx), steps_(ctx) {}

    void stretch(u32 number, Stretch by);
    void stretch_dependents(u32 master, Stretch of_master);
    // False when there was not the memory for all of it.
    bool finish();

private:
    void change(u32 number, Stretch by);
    void note_text(u32 number);
    void place_caret_at(u32 number, u32 index);

    vel_context &ctx_;
    Steps steps_;                               // one object may be listed in many places
    std::vector<std::pair<u32, Stretch>> open_; // whose dependents are still to follow
    std::set<u32> to_format_;
    std::map<u32, u32> carets_; // indexes in texts, by the number of the object
    bool has_memory_ = true;
};

bool stretch(vel_context &ctx, u32 number, Stretch by);
bool stretch_dependents(vel_context &ctx, u32 master, Stretch of_master);

} // namespace velumo
