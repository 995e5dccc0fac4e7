// Which answer the pointer is on, and whether it is pressed, while a loop runs. For the loops.
#pragma once

#include "window/reach.h"

namespace velumo {

// Does nothing without VEL_COMFORT_STATES; at the end of the loop nothing is left of it.
class PointerStates {
public:
    PointerStates(vel_context &ctx, const Reach &reach);
    ~PointerStates();
    PointerStates(const PointerStates &) = delete;
    PointerStates &operator=(const PointerStates &) = delete;

    // Looks at the context's event, and draws the answers whose state it changes.
    void follow_event();
    // For a release that another loop has taken.
    void let_go();

private:
    u32 answer_under(int x, int y) const;
    void set(u32 hovered, u32 pressed);

    vel_context &ctx_;
    const Reach &reach_;
};

} // namespace velumo
