// Places in the line buffers and the placing of single characters and words. For text layout.
#pragma once

#include "model/traits.h"
#include "text/lines.h"
#include "text/measure.h"

namespace velumo {

// Where the next character of a text goes.
struct Place {
    u32 text, line, column;
};

struct Word {
    const char *characters; // ended by a NUL
    u32 length;
};

// A text that can be typed in comfortably has to show what it holds, each character at one place.
inline bool shows_each_character_once(const vel_context &ctx) {
    return has_comfort(ctx, VEL_COMFORT_TYPING);
}

inline void next_line(Place &place) {
    ++place.line;
    place.column = 0;
}

// Ends the line at the place.
inline void end_line(vel_context &ctx, const Place &place) {
    put(ctx, place.text, place.line, place.column, '\0');
}

// Writes a character and a NUL after it, if the line then fits the object; else ends the line
// before it. The column stays.
bool try_character(vel_context &ctx, const vel_object &object, const Place &place, char character);

// Writes the characters of a word and a NUL after each.
void copy_characters(vel_context &ctx, Place &place, Word word);

// Writes the words at the front of a text that have a blank behind them and go whole into a line of
// the object, from the place on, and the blanks. Returns how many characters of the text that were.
// It stops at the end of the last line and at a word to split.
u32 copy_whole_words(vel_context &ctx, const vel_object &object, Place &place,
                     std::string_view text);

// What a line of the object has room for, from the column on. The line is one of the object's own
// text; the text of the place is not looked at.
enum class Fit : u32 { here = 1, on_next_line = 2, only_split = 3 };
Fit fit_of(const vel_context &ctx, const vel_object &object, Word word, const Place &place);

// Puts a word into the lines of one object, over as many of them as it needs.
enum class Placed : i32 { whole = 0, split = 1, out_of_lines = -1 };
Placed place_word(vel_context &ctx, vel_object &object, Word word, Place &place, bool break_after);

} // namespace velumo
