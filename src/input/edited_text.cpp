#include "input/edited_text.h"

#include "input/text_position.h"
#include "model/types.h"
#include "text/format.h"

namespace velumo {

EditedText::EditedText(vel_context &ctx, Characters characters)
    : ctx_(ctx), o_(object_at(ctx, ctx.cursor_object)), characters_(characters) {
    o_.text_length = characters_.length();
}

bool EditedText::erase_before_cursor() {
    if (place() == 0 || place() > o_.text_length) return false;
    close_gap(place());
    --place();
    follow_change();
    return true;
}

bool EditedText::erase_at_cursor() {
    if (place() > o_.text_length || characters_.at(place()) == '\0') return false;
    close_gap(place() + 1);
    follow_change();
    return true;
}

void EditedText::close_gap(u32 first) {
    characters_.shift_left(first, o_.text_length);
    --o_.text_length;
}

// --- One line

FieldText::FieldText(vel_context &ctx)
    : EditedText(ctx, {object_at(ctx, ctx.cursor_object).label, VEL_STRING_SIZE}) {}

// On purpose: the column limit wraps, so a max_chars of 0 sets none when overwriting.
bool FieldText::has_room() const {
    const bool fits = o_.cursor_column < max_field_characters && o_.cursor_column <= column_limit();
    if (!inserts()) return fits;
    return fits && o_.max_chars != 0 && o_.text_length < max_field_characters &&
           o_.text_length <= column_limit();
}

bool FieldText::type(char character) {
    if (o_.cursor_column < o_.text_length) {
        if (inserts()) {
            characters_.shift_right(o_.cursor_column, o_.text_length - 1);
            characters_.set(++o_.text_length, '\0');
        }
        characters_.set(o_.cursor_column++, character);
    }
    // On purpose: overwriting the last character appends the new one once more.
    if (o_.cursor_column == o_.text_length) {
        characters_.set(o_.cursor_column++, character);
        characters_.set(++o_.text_length, '\0');
    }
    return false;
}

EditedText::Right FieldText::right() const {
    return o_.cursor_column < o_.text_length ? Right::step : Right::stay;
}

// --- Many lines

LinesText::LinesText(vel_context &ctx)
    : EditedText(ctx, {ctx.text_recs[text_of(ctx, object_at(ctx, ctx.cursor_object))].text,
                       VEL_TEXT_SIZE}),
      text_(text_of(ctx, o_)) {}

void LinesText::follow_change() {
    format_text(ctx_, ctx_.cursor_object);
    find_cursor_line(ctx_);
}

void LinesText::step(u32 distance) {
    o_.cursor_column += distance;
    index() += distance;
}

bool LinesText::break_line() {
    if (o_.number_of_lines >= last_line || o_.cursor_line >= last_line ||
        o_.text_length >= max_text_characters) {
        return false;
    }
    characters_.shift_right(index(), o_.text_length);
    characters_.set(index(), '\n');
    ++o_.text_length;
    ++index();
    if (index() == o_.text_length) characters_.set(o_.text_length, '\0');
    format_text(ctx_, ctx_.cursor_object);
    ++o_.cursor_line;
    o_.cursor_column = 0;
    find_cursor_index(ctx_);
    return true;
}

// On purpose: as with fields, a max_chars of 0 sets no limit when overwriting.
bool LinesText::has_room() const {
    if (o_.cursor_line > last_line) return false;
    return inserts() ? o_.cursor_column < last_column && o_.text_length < max_text_characters
                     : o_.cursor_column <= last_column && o_.cursor_column <= column_limit();
}

bool LinesText::type(char character) {
    if (inserts()) {
        characters_.shift_right(index(), o_.text_length);
        characters_.set(++o_.text_length, '\0');
    }
    characters_.set(index(), character);
    ++index();
    const u32 line_before = o_.cursor_line;
    follow_change();
    if (o_.cursor_line != line_before) return true;
    if (o_.cursor_column != last_column) return false;
    leave_full_line();
    return true;
}

// On purpose: overwriting at the end ends the text at the column, not at the index.
void LinesText::end_overwriting() {
    if (index() <= o_.text_length) return;
    characters_.set(o_.cursor_column, '\0');
    ++o_.text_length;
}

void LinesText::leave_full_line() {
    const u32 full = o_.cursor_line;
    if (full == last_line || full == o_.number_of_lines) put(ctx_, text_, full, last_column, '\0');
    if (full == last_line) return;
    if (full == o_.number_of_lines) put(ctx_, text_, full + 1, 0, '\0');
    ++o_.cursor_line;
    o_.cursor_column = 0;
}

bool LinesText::go_to_line_above() {
    if (o_.cursor_line == 0) return false;
    --o_.cursor_line;
    land_on_line();
    return true;
}

bool LinesText::go_to_line_below() {
    if (!has_line_below()) return false;
    ++o_.cursor_line;
    land_on_line();
    return true;
}

bool LinesText::has_line_below() const {
    return o_.cursor_line < last_line && o_.cursor_line < o_.number_of_lines;
}

// On purpose: the last character is as far right as a vertical move goes, not the place after it.
void LinesText::land_on_line() {
    const auto length = static_cast<u32>(std::strlen(line()));
    o_.cursor_column = std::min(o_.cursor_column, length == 0 ? 0 : length - 1);
    find_cursor_index(ctx_);
}

EditedText::Right LinesText::right() const {
    const bool on_character = byte_at(o_.cursor_column) != '\0';
    const bool on_last = on_character && byte_at(o_.cursor_column + 1) == '\0';
    if (on_last) {
        const bool has_place = o_.cursor_column < last_column && index() < max_text_characters;
        return has_place ? Right::step : Right::stay;
    }
    if (on_character) return Right::step;
    // On purpose: on an empty line the key does nothing.
    return o_.cursor_column != 0 && has_line_below() ? Right::next_line : Right::stay;
}

void LinesText::go_to_next_line() {
    ++o_.cursor_line;
    o_.cursor_column = 0;
    ++index();
}

} // namespace velumo
