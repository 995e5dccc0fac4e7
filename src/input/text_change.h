// Changes of a field's or a text's characters, within what it can hold and show. For comfortable
// typing.
#pragma once

#include <string>

#include "text/rows.h"

namespace velumo {

// Characters from one index on that give way to others.
struct Replacement {
    u32 at, count;
    std::string inserted;
};

// Whether the characters of an object can be changed: chains and disabled objects cannot.
bool can_change(const vel_context &ctx, u32 owner);

// Makes the change and formats the text. What the object does not take, or could not show, is left
// out of the replacement and refused; when nothing is left to insert, nothing changes. Returns
// whether anything did. Throws std::bad_alloc.
bool change_characters(vel_context &ctx, u32 owner, Replacement &replacement);

// The same for characters that were there before.
void restore_characters(vel_context &ctx, u32 owner, const Replacement &replacement);

} // namespace velumo
