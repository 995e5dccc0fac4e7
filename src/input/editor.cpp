// The text editor: one key applied to the text of the cursor object.
#include <cstring>

#include "render/geometry.h"
#include "text/lines.h"
#include "text/measure.h"

namespace velumo {
namespace {

constexpr u32 most_entry_characters = 64;
constexpr u32 most_text_characters = VEL_TEXT_SIZE - 1;
constexpr u32 last_character_code = 255;

bool is_one_line(const vel_object &o) {
    return o.type == VEL_TYPE_ENTRY || o.type == VEL_TYPE_NUMBER;
}

bool has_lines_to_edit(const vel_context &ctx, const vel_object &o) {
    return (o.type == VEL_TYPE_TEXT || o.type == VEL_TYPE_WINDOW) && text_of(ctx, o) != 0 &&
           buffer_of(ctx, o) != 0;
}

// The characters that are edited: a label or a text. Nothing is written outside of them, and their
// last byte stays a NUL.
class Characters {
public:
    Characters(char *start, u32 size) : start_(start), size_(size) {}

    u32 length() const { return static_cast<u32>(strnlen(start_, size_ - 1)); }
    char at(u32 index) const { return index < size_ ? start_[index] : '\0'; }
    const char *string() const { return start_; }

    void set(u32 index, char character) {
        if (index < size_) start_[index] = index == size_ - 1 ? '\0' : character;
    }

    // Moves the characters from first to last, both included, one place on or back.
    void move_on(u32 first, u32 last) {
        for (u32 k = last; k >= first && k != 0xFFFFFFFF; --k) set(k + 1, at(k));
    }
    void move_back(u32 first, u32 last) {
        for (u32 k = first; k <= last && k < size_; ++k) set(k - 1, at(k));
    }

private:
    char *start_;
    u32 size_;
};

class Editor {
public:
    Editor(vel_context &ctx, vel_object &object)
        : ctx_(ctx), o_(object), one_line_(is_one_line(object)),
          text_(one_line_ ? 0 : text_of(ctx, object)), characters_(characters_of(ctx, object)),
          font_(font_of(ctx, object)), height_(font_height(font_)),
          pitch_(line_pitch(font_, object)), limits_(text_limits(ctx, ctx.cursor_object)),
          origin_x_(limits_.x.before + object.scroll_x + 1),
          origin_y_(limits_.y.before + object.scroll_y + 1) {
        o_.text_length = characters_.length();
    }

    void apply(u32 key) {
        switch (key) {
        case VEL_KEY_ENTER:
            enter();
            break;
        case VEL_KEY_UP:
            up();
            break;
        case VEL_KEY_DOWN:
            down();
            break;
        case VEL_KEY_RIGHT:
            right();
            break;
        case VEL_KEY_LEFT:
            left();
            break;
        case VEL_KEY_INSERT:
            ctx_.insert_mode = 1 - ctx_.insert_mode;
            break;
        case VEL_KEY_BACKSPACE:
            backspace();
            break;
        case VEL_KEY_DELETE:
            delete_character();
            break;
        default:
            break;
        }
        if (key <= last_character_code && ctx_.key_printable == 1) {
            insert(static_cast<char>(key));
        }
    }

private:
    Characters characters_of(vel_context &ctx, vel_object &object) const {
        return one_line_ ? Characters(object.label, VEL_STRING_SIZE)
                         : Characters(ctx.text_recs[text_].text, VEL_TEXT_SIZE);
    }

    // --- Where the cursor is

    u32 &index() { return ctx_.text_recs[text_].cursor_index; }
    const char *line() const { return line_of(ctx_, text_, o_.cursor_line); }
    u32 line_length() const { return static_cast<u32>(std::strlen(line())); }
    // On purpose: a byte of the line buffer as it is, also after the end of the line.
    char byte_in_line(u32 column) const {
        return byte_of(ctx_, text_, o_.cursor_line, column);
    }

    // Place of the cursor behind so many characters of its line.
    u32 x_behind(u32 count) const {
        if (count == 0) return origin_x_;
        char part[VEL_TEXT_SIZE + 1];
        vel_copy_st_first_part(std::min<u32>(count, most_text_characters) - 1,
                               one_line_ ? characters_.string() : line(), part);
        return origin_x_ + text_width(font_, part);
    }
    u32 x_at_margin() const { return o_.x + o_.margin_left; }
    u32 y_of_line() const { return origin_y_ + o_.cursor_line * pitch_; }

    bool is_behind_left(u32 x) const { return as_signed(x) > as_signed(limits_.x.before); }
    bool is_before_right(u32 x) const { return as_signed(x) < as_signed(limits_.x.after); }

    // --- The rules that the keys share

    // The cursor goes to x, or the text is shifted when x is hidden at the left.
    void go_to_x(u32 x, u32 shift) {
        if (is_behind_left(x)) {
            o_.cursor_x = x;
        } else {
            o_.scroll_x += shift;
        }
    }

    // The cursor goes to its line, or the text up by a line when that is hidden below.
    void go_down_to_line() {
        const u32 y = y_of_line();
        if (as_signed(y + height_ - 1) < as_signed(limits_.y.after)) {
            o_.cursor_y = y;
        } else {
            o_.scroll_y -= pitch_;
        }
    }

    void go_up_to_line() {
        const u32 y = y_of_line();
        if (as_signed(y) < as_signed(limits_.y.before)) {
            o_.scroll_y += pitch_;
        } else {
            o_.cursor_y = y;
        }
    }

    void format() { vel_format_object_text(&ctx_, ctx_.cursor_object); }
    void format_and_find_cursor() {
        format();
        vel_get_column_row(&ctx_);
    }

    // --- The keys

    void enter() {
        if (one_line_ || o_.number_of_lines >= last_line || o_.cursor_line >= last_line ||
            o_.text_length >= most_text_characters) {
            return;
        }
        characters_.move_on(index(), o_.text_length);
        characters_.set(index(), '\n');
        ++o_.text_length;
        ++index();
        if (index() == o_.text_length) characters_.set(o_.text_length, '\0');
        format();
        ++o_.cursor_line;
        o_.cursor_column = 0;
        vel_get_position_in_stream(&ctx_);
        go_to_x(origin_x_, o_.cursor_x - origin_x_);
        go_down_to_line();
    }

    void up() {
        if (one_line_ || o_.cursor_line == 0) return;
        --o_.cursor_line;
        land_on_line();
        go_up_to_line();
    }

    void down() {
        if (one_line_ || o_.cursor_line >= last_line || o_.cursor_line >= o_.number_of_lines) {
            return;
        }
        ++o_.cursor_line;
        land_on_line();
        go_down_to_line();
    }

    void land_on_line() {
        const u32 length = line_length();
        o_.cursor_column = std::min(o_.cursor_column, length == 0 ? 0 : length - 1);
        vel_get_position_in_stream(&ctx_);
        // On purpose: after a vertical move the cursor stands one character right of its column.
        const u32 x = o_.cursor_column == 0 ? x_at_margin() : x_behind(o_.cursor_column + 1);
        go_to_x(x, x - o_.cursor_x);
    }

    void right() {
        if (one_line_) {
            if (o_.cursor_column < o_.text_length) step_right();
            return;
        }
        const bool on_character = byte_in_line(o_.cursor_column) != '\0';
        const bool on_last = on_character && byte_in_line(o_.cursor_column + 1) == '\0';
        if (on_last) {
            if (o_.cursor_column < last_column && index() < most_text_characters) step_right();
        } else if (on_character) {
            step_right();
        } else if (o_.cursor_column != 0) {
            go_to_next_line();
        }
    }

    void step_right() {
        const u32 x = x_behind(o_.cursor_column + 1);
        // On purpose: beyond the right edge neither the cursor nor the text is moved.
        if (is_before_right(x)) o_.cursor_x = x;
        ++o_.cursor_column;
        if (!one_line_) ++index();
    }

    void go_to_next_line() {
        if (o_.cursor_line >= last_line || o_.cursor_line >= o_.number_of_lines) return;
        ++o_.cursor_line;
        o_.cursor_column = 0;
        ++index();
        go_to_x(x_at_margin(), x_at_margin() - o_.cursor_x);
        go_down_to_line();
    }

    void left() {
        if (o_.cursor_column == 0) return;
        const u32 x = x_behind(o_.cursor_column - 1);
        go_to_x(x, o_.cursor_x - x);
        --o_.cursor_column;
        if (!one_line_) --index();
    }

    void backspace() {
        if (!remove_before_cursor()) return;
        const u32 x = x_behind(o_.cursor_column);
        if (one_line_ && as_signed(o_.scroll_x) < 0) {
            const i32 scrolled = as_signed(o_.scroll_x + (o_.cursor_x - x));
            o_.scroll_x = static_cast<u32>(std::min(scrolled, 0));
        } else if (is_behind_left(x) && is_before_right(x)) {
            o_.cursor_x = x;
        }
        go_down_to_line();
    }

    bool remove_before_cursor() {
        u32 &place = one_line_ ? o_.cursor_column : index();
        if (place == 0 || place > o_.text_length) return false;
        characters_.move_back(place, o_.text_length);
        --place;
        --o_.text_length;
        if (!one_line_) format_and_find_cursor();
        return true;
    }

    void delete_character() {
        const u32 place = one_line_ ? o_.cursor_column : index();
        if (place > o_.text_length || characters_.at(place) == '\0') return;
        characters_.move_back(place + 1, o_.text_length);
        --o_.text_length;
        if (!one_line_) format_and_find_cursor();
        const u32 x = x_behind(o_.cursor_column);
        go_to_x(x, o_.cursor_x - x);
        go_down_to_line();
    }

    // --- Typing

    bool inserts() const { return ctx_.insert_mode == 0; }

    // On purpose: the column limit wraps, so a max_chars of 0 sets none when overwriting.
    bool has_room() const {
        const u32 column = o_.cursor_column;
        const u32 column_limit = o_.max_chars - 1;
        if (one_line_) {
            const bool fits = column < most_entry_characters && column <= column_limit;
            if (!inserts()) return fits;
            return fits && o_.max_chars != 0 && o_.text_length < most_entry_characters &&
                   o_.text_length <= column_limit;
        }
        if (o_.cursor_line > last_line) return false;
        return inserts() ? column < last_column && o_.text_length < most_text_characters
                         : column <= last_column && column <= column_limit;
    }

    void insert(char character) {
        if (!has_room()) return;
        const bool line_changed = one_line_ ? type_in_entry(character) : type_in_text(character);
        if (line_changed) go_down_to_line();
        const u32 x = x_behind(o_.cursor_column);
        if (!is_before_right(x)) {
            o_.scroll_x -= x - o_.cursor_x;
        } else if (is_behind_left(x)) {
            o_.cursor_x = x;
        } else {
            o_.scroll_x += x - o_.cursor_x;
        }
        if (!one_line_ && index() > o_.text_length) {
            // On purpose: overwriting at the end ends the text at the column, not at the index.
            characters_.set(o_.cursor_column, '\0');
            ++o_.text_length;
        }
    }

    bool type_in_entry(char character) {
        if (o_.cursor_column < o_.text_length) {
            if (inserts()) {
                characters_.move_on(o_.cursor_column, o_.text_length - 1);
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

    // True when the cursor is on another line afterwards, or its line is full.
    bool type_in_text(char character) {
        if (inserts()) {
            characters_.move_on(index(), o_.text_length);
            characters_.set(++o_.text_length, '\0');
        }
        characters_.set(index(), character);
        ++index();
        const u32 line_before = o_.cursor_line;
        format_and_find_cursor();
        if (o_.cursor_line != line_before) return true;
        if (o_.cursor_column != last_column) return false;
        leave_full_line();
        return true;
    }

    void leave_full_line() {
        const u32 full = o_.cursor_line;
        if (full == last_line || full == o_.number_of_lines) {
            put(ctx_, text_, full, last_column, '\0');
        }
        if (full == last_line) return;
        if (full == o_.number_of_lines) put(ctx_, text_, full + 1, 0, '\0');
        ++o_.cursor_line;
        o_.cursor_column = 0;
    }

    vel_context &ctx_;
    vel_object &o_;
    const bool one_line_;
    const u32 text_;
    Characters characters_;
    TTF_Font *font_;
    const u32 height_, pitch_;
    const Limits limits_;
    const u32 origin_x_, origin_y_;
};

} // namespace
} // namespace velumo

using namespace velumo;

void vel_get_text(vel_context *ctx) noexcept {
    if (ctx->final_key == VEL_KEY_NONE || ctx->cursor_object == 0) return;
    vel_object &o = object_at(*ctx, ctx->cursor_object);
    if (!is_one_line(o) && !has_lines_to_edit(*ctx, o)) return;
    Editor(*ctx, o).apply(ctx->final_key);
    ctx->final_key = VEL_KEY_NONE;
    ctx->key_printable = 0;
    vel_draw_and_screenup_selected_window(ctx);
}
