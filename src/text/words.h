// Places in the line buffers and the placing of single characters and words. For text layout.
#pragma once

#include "text/lines.h"
#include "text/measure.h"

namespace velumo {

// Where the next character of a text goes.
struct Place {
    u32 text, line, column;
};

inline void next_line(Place &place) {
    ++place.line;
    place.column = 0;
}

// Ends the line at the place.
inline void end_line(vel_context &ctx, const Place &place) {
    put(ctx, place.text, place.line, place.column, '\0');
}

// Writes a character and a NUL behind it, if the line then fits the object; else ends the line
// before it. The column stays.
bool try_character(vel_context &ctx, const vel_object &object, const Place &place, char character);

// Writes the characters of a word and a NUL behind each.
void copy_characters(vel_context &ctx, Place &place, const char *word, u32 length);

// What a line has room for.
enum class Fit : u32 { here = 1, on_next_line = 2, only_split = 3 };
Fit fit_of(const vel_context &ctx, u32 object, const char *word, u32 line, u32 column, u32 length);

// Without a width of its own an object gets that of its inner area.
inline void set_missing_line_width(vel_object &o) {
    if (o.line_width == 0) o.line_width = o.width - (o.margin_right + o.margin_left);
}

} // namespace velumo
