#include "text/words.h"

#include "text/line_width.h"

namespace velumo {
namespace {

constexpr u32 max_columns = last_column - 1; // characters of a word and the line before it

// Puts as many characters on each line as fit it, from the place on.
Placed split_word(vel_context &ctx, const vel_object &object, Word word, Place &place) {
    u32 copied = 0;
    while (place.line <= last_line) {
        while (place.column < last_column && copied < word.length) {
            if (try_character(ctx, object, place, word.characters[copied])) {
                ++place.column;
                ++copied;
            } else if (place.line < last_line) {
                next_line(place);
            } else {
                return Placed::out_of_lines;
            }
        }
        if (copied == word.length) return Placed::split;
        end_line(ctx, place);
        next_line(place);
    }
    return Placed::out_of_lines;
}

} // namespace

bool try_character(vel_context &ctx, const vel_object &object, const Place &place, char character) {
    put_all(ctx, place.text, place.line, place.column, {&character, 1});
    const u32 width =
        growing_width(ctx, font_of(ctx, object), line_of(ctx, place.text, place.line));
    if (width <= object.line_width) return true;
    end_line(ctx, place);
    return false;
}

void copy_characters(vel_context &ctx, Place &place, Word word) {
    if (word.length == 0) return;
    put_all(ctx, place.text, place.line, place.column, {word.characters, word.length});
    place.column += word.length;
}

Fit fit_of(const vel_context &ctx, const vel_object &object, Word word, const Place &place) {
    TTF_Font *font = font_of(ctx, object);
    const u32 word_width = text_width(ctx, font, word.characters);
    const u32 line_width =
        growing_width(ctx, font, line_of(ctx, buffer_of(ctx, object), place.line));
    const u32 free_width = object.line_width - line_width;
    // On purpose: at column 99 this wraps and counts as room.
    const u32 free_columns = max_columns - place.column;
    if (word.length <= free_columns && as_signed(word_width) <= as_signed(free_width)) {
        return Fit::here;
    }
    return word.length <= max_columns && word_width <= object.line_width ? Fit::on_next_line
                                                                         : Fit::only_split;
}

Placed place_word(vel_context &ctx, vel_object &object, Word word, Place &place, bool break_after) {
    set_line_width_from_margins(object);
    const Fit fit = fit_of(ctx, object, word, place);
    if (fit == Fit::only_split) return split_word(ctx, object, word, place);
    if (fit == Fit::on_next_line) {
        if (place.line >= last_line && shows_each_character_once(ctx)) return Placed::out_of_lines;
        // On purpose: after line 39 this is line slot 40, the first line of the next text.
        end_line(ctx, place);
        next_line(place);
    }
    copy_characters(ctx, place, word);
    if (break_after || place.column == last_column) {
        end_line(ctx, place);
        next_line(place);
        end_line(ctx, place);
    }
    return Placed::whole;
}

} // namespace velumo
