// Objects as they look while somebody uses them.
#pragma once

#include <span>

#include "draw/stage.h"

namespace velform {

enum class State : std::uint8_t { focus, hover, pressed, disabled };

struct ObjectState {
    State state;
    std::uint32_t object;
};

// Draws all, on a stage that takes events; of several objects under the pointer the last one
// counts.
Surface drawn_with_states(vel_context &ctx, std::span<const ObjectState> states);

} // namespace velform
