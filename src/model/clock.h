// The time that repeats, rests and short signals are counted in. For every subsystem.
#pragma once

#include <chrono>

namespace velumo {

inline std::chrono::milliseconds now() {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

} // namespace velumo
