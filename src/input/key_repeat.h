// How the system repeats a key that is held down. For comfortable typing.
#pragma once

namespace velumo {

// In milliseconds: until the first repetition, where 0 means that there is none, and between two.
struct KeyRepeat {
    int delay, interval;
};

// That of the X server; SDL's own with other drivers, or if the server does not say.
KeyRepeat system_key_repeat();

} // namespace velumo
