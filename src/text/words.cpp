#include "text/words.h"

#include <optional>

#include "text/line_width.h"

namespace velumo {
namespace {

constexpr u32 max_columns = last_column - 1; // characters of a word and the line before it

// What is left of a character that was tried behind the line: its NUL.
void take_back_character(vel_context &ctx, const Place &place) {
    put_all(ctx, place.text, place.line, place.column, {"", 1});
}

// The line at the place; none when it is not what was placed on it so far.
std::optional<std::string_view> placed_line(const vel_context &ctx, const Place &place) {
    const std::string_view line = line_of(ctx, place.text, place.line);
    return line.size() == place.column ? std::optional(line) : std::nullopt;
}

// Those that surely fit, without a look at each. The column is before the last one.
Fitting copy_fitting_characters(vel_context &ctx, const vel_object &object, Place &place,
                                Word word) {
    const auto line = placed_line(ctx, place);
    if (!line) return {};
    const u32 most = std::min(word.length, last_column - place.column);
    const Fitting fitting = fitting_characters(ctx, font_of(ctx, object), *line,
                                               {word.characters, most}, object.line_width);
    copy_characters(ctx, place, {word.characters, fitting.characters});
    if (fitting.next_is_too_wide) take_back_character(ctx, place);
    return fitting;
}

// Puts as many characters on each line as fit it, from the place on.
Placed split_word(vel_context &ctx, const vel_object &object, Word word, Place &place) {
    u32 copied = 0;
    while (place.line <= last_line) {
        while (place.column < last_column && copied < word.length) {
            const Word rest{word.characters + copied, word.length - copied};
            const Fitting fitting = copy_fitting_characters(ctx, object, place, rest);
            copied += fitting.characters;
            if (place.column == last_column || copied == word.length) break;
            if (!fitting.next_is_too_wide &&
                try_character(ctx, object, place, word.characters[copied])) {
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

// None where the object has no line width yet, or the line is not what was placed on it so far.
Fitting words_for_line(const vel_context &ctx, const vel_object &object, const Place &place,
                       std::string_view text) {
    const auto line = placed_line(ctx, place);
    if (!line || object.line_width == 0 || place.column >= max_columns) return {};
    return fitting_words(ctx, font_of(ctx, object), *line,
                         text.substr(0, max_columns - place.column), object.line_width);
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

u32 copy_whole_words(vel_context &ctx, const vel_object &object, Place &place,
                     std::string_view text) {
    u32 copied = 0;
    for (Place at = place;;) {
        const Fitting words = words_for_line(ctx, object, at, text.substr(copied));
        // A word that is too wide for a line of its own is not one for the next.
        if (words.characters == 0 && at.line != place.line) return copied;
        copy_characters(ctx, at, {text.data() + copied, words.characters});
        copied += words.characters;
        place = at;
        if (!words.next_is_too_wide || place.line >= last_line) return copied;
        next_line(at);
        if (text[copied] == ' ') {
            take_back_character(ctx, place);
            copy_characters(ctx, at, {" ", 1});
            ++copied;
            place = at;
        }
    }
}

Fit fit_of(const vel_context &ctx, const vel_object &object, Word word, const Place &place) {
    TTF_Font *font = font_of(ctx, object);
    const u32 word_width = text_width(ctx, font, word.characters);
    // On purpose: at column 99 this wraps and counts as room.
    const u32 free_columns = max_columns - place.column;
    // A line without the columns is not measured: full texts are mostly such lines.
    const auto has_width = [&] {
        const char *line = line_of(ctx, buffer_of(ctx, object), place.line);
        return fits_behind(growing_width(ctx, font, line), word_width, object.line_width);
    };
    if (word.length <= free_columns && has_width()) return Fit::here;
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
