// Words in the lines of a single object.
#include "text/words.h"

namespace velumo {
namespace {

constexpr u32 most_columns = last_column - 1; // characters of a word and the line before it

enum class Split : i32 { complete = 1, out_of_lines = -1 };

// Puts as many characters on each line as fit it, from the place on.
Split split_word(vel_context &ctx, const vel_object &object, Place &place, const char *word,
                 u32 length) {
    u32 copied = 0;
    while (place.line <= last_line) {
        while (place.column < last_column && copied < length) {
            if (try_character(ctx, object, place, word[copied])) {
                ++place.column;
                ++copied;
            } else if (place.line < last_line) {
                next_line(place);
            } else {
                return Split::out_of_lines;
            }
        }
        if (copied == length) return Split::complete;
        end_line(ctx, place);
        next_line(place);
    }
    return Split::out_of_lines;
}

} // namespace

bool try_character(vel_context &ctx, const vel_object &object, const Place &place, char character) {
    put(ctx, place.text, place.line, place.column, character);
    put(ctx, place.text, place.line, place.column + 1, '\0');
    const u32 width = text_width(font_of(ctx, object), line_of(ctx, place.text, place.line));
    if (width <= object.line_width) return true;
    end_line(ctx, place);
    return false;
}

void copy_characters(vel_context &ctx, Place &place, const char *word, u32 length) {
    for (u32 k = 0; k < length; ++k) {
        put(ctx, place.text, place.line, place.column, word[k]);
        ++place.column;
        end_line(ctx, place);
    }
}

Fit fit_of(const vel_context &ctx, u32 object, const char *word, u32 line, u32 column, u32 length) {
    const vel_object &o = object_at(ctx, object);
    TTF_Font *font = font_of(ctx, o);
    const u32 word_width = text_width(font, word);
    const u32 free_width = o.line_width - text_width(font, line_of(ctx, buffer_of(ctx, o), line));
    // On purpose: at column 99 this wraps and counts as room.
    const u32 free_columns = most_columns - column;
    if (length <= free_columns && as_signed(word_width) <= as_signed(free_width)) return Fit::here;
    return length <= most_columns && word_width <= o.line_width ? Fit::on_next_line
                                                                : Fit::only_split;
}

} // namespace velumo

using namespace velumo;

uint32_t vel_check_line_volume(const vel_context *ctx, uint32_t object, const char *word,
                               const uint32_t *line, const uint32_t *column,
                               const uint32_t *word_length) noexcept {
    return static_cast<u32>(fit_of(*ctx, object, word, *line, *column, *word_length));
}

int32_t vel_copy_word_into_line(vel_context *ctx, uint32_t object, const char *word, uint32_t *line,
                                uint32_t *column, uint32_t *word_length,
                                uint32_t break_after) noexcept {
    vel_object &o = object_at(*ctx, object);
    set_missing_line_width(o);
    Place place{buffer_of(*ctx, o), *line, *column};
    const Fit fit = fit_of(*ctx, object, word, *line, *column, *word_length);
    i32 result = 0;
    if (fit == Fit::only_split) {
        result = static_cast<i32>(split_word(*ctx, o, place, word, *word_length));
    } else {
        if (fit == Fit::on_next_line) {
            // On purpose: behind line 39 this is line slot 40, the first line of the next text.
            end_line(*ctx, place);
            next_line(place);
        }
        copy_characters(*ctx, place, word, *word_length);
        if (break_after == 1 || place.column == last_column) {
            end_line(*ctx, place);
            next_line(place);
            end_line(*ctx, place);
        }
    }
    *line = place.line;
    *column = place.column;
    return result;
}
