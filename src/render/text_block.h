// The lines of one object's text, as they are to be painted. For painting.
#pragma once

#include <functional>

#include "render/paint_op.h"
#include "render/selected_text.h"

namespace velumo {

// What may change while a picture is made is kept here, so that the lines may be looked at later: a
// text that is covered need not be measured at all.
struct TextBlock {
    TextBlock(const vel_context &ctx, u32 object, const Limits &limits, TTF_Font *font);

    u32 object;
    u32 left, top; // of the first line, not counting the object's scroll_x
    u32 pitch;
    u32 lines; // at most
    Limits limits;
    TTF_Font *font;
    vel_colour colour, selection_colour;
    SelectedText selected;
    bool shows_dots; // and no characters
};

// Nothing of the block is painted outside.
Area area_of(const TextBlock &block);

// False when painting a line moves the object's text.
bool may_be_painted_later(const vel_context &ctx, const TextBlock &block);

// Gives what the block paints, in its order: lines of text, boxes for what is selected and for
// dots.
// It takes no memory: what holds more than a pointer is given by reference.
using GiveOp = std::function<void(const PaintOp &)>;
void for_each_op(vel_context &ctx, const TextBlock &block, const GiveOp &give);

} // namespace velumo
