// The place of the caret on the screen: what of a text is in sight around it, which character is
// under the pointer, and its flash when something is refused. For comfortable typing.
#pragma once

#include "render/geometry.h"
#include "text/rows.h"

namespace velumo {

// The caret of an object, from its line and column.
void place_caret(vel_context &ctx, u32 object);
// The same, after its text was shifted so that the caret is in sight.
void show_caret(vel_context &ctx, u32 object);

// The place of a text that is nearest to a point of the screen, within the rows of one object.
RowPlace place_under(const vel_context &ctx, const TextRows &rows, u32 object, i64 x, i64 y);

// Lines of an object that are in sight at once, at least 1.
u32 lines_in_sight(const vel_context &ctx, u32 object);

// Where an object shows text, cut by its masters; where these leave nothing, what its margins do.
Limits sight_of(const vel_context &ctx, u32 object);

// Keeps what was refused and why, and lets the caret flash. Without memory nothing happens.
void refuse(vel_context &ctx, vel_refusal reason, u32 character);
// The end of the flash; false while there is none.
bool end_flash(vel_context &ctx);

} // namespace velumo
