// String helpers with edge behaviour of their own. For programs, and for the core where it counts.
#pragma once

#include "model/objects.h"

namespace velumo {

enum class Verdict : u32 { nothing_compared = 0, equal = 1, different = 2 };
Verdict compare(const char *a, const char *b, u32 n);

u32 length_of(const char *string);

// Characters up to index n, or the whole string when it is shorter, and a NUL.
void copy_up_to(u32 n, const char *source, char *destination);

// A string of at least one character; returns how many.
u32 copy_nonempty(const char *source, char *destination);

} // namespace velumo
