// Texts and their formatted lines by number, never outside their memory. For drawing, text layout
// and editing.
#pragma once

#include <string_view>

#include "model/objects.h"

namespace velumo {

inline constexpr u32 last_line = VEL_TEXT_LINES - 1;
inline constexpr u32 last_column = VEL_LINE_SIZE - 1;

// Number of an object's text and of its line buffer; 0 when it has none or the table has no such
// record. A program that fills the tables by hand may have the one table without the other: chains
// have lines and no texts.
u32 text_of(const vel_context &ctx, const vel_object &object);
u32 buffer_of(const vel_context &ctx, const vel_object &object);

// Line n of a text, ended by a NUL; empty where the line would lie outside the line buffers.
// On purpose: line 40 of a text is line 0 of the next.
const char *line_of(const vel_context &ctx, u32 text, u32 line);

// One byte of a line, whether the line has ended before it or not; NUL outside the line buffers.
char byte_of(const vel_context &ctx, u32 text, u32 line, u32 column);

// Writes one byte of a line; what would leave the block of line buffers is dropped.
void put(vel_context &ctx, u32 text, u32 line, u32 column, char character);
// The same for several, and a NUL after them.
void put_all(vel_context &ctx, u32 text, u32 line, u32 column, std::string_view characters);

// Ends the lines from one on, so that they are empty.
void clear_lines(vel_context &ctx, u32 text, u32 from, u32 to);

} // namespace velumo
