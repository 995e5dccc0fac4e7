#include "input/caret.h"

#include <new>

#include "model/clock.h"
#include "model/types.h"
#include "render/limits.h"
#include "text/shown_line.h"

namespace velumo {
namespace {

constexpr std::chrono::milliseconds flash_time{150};

// An offset from the text's own place to the one where it is shown, on one axis, such that what
// lies between begin and end, in sight of limits, does.
i64 offset_in_sight(i64 offset, Span limits, i64 begin, i64 end) {
    if (end + offset > limits.end) offset = limits.end - end;
    if (begin + offset < limits.begin) offset = limits.begin - begin;
    return offset;
}

// A text that was shifted comes back as far as its end allows.
i64 offset_without_gap(i64 offset, Span limits, i64 end) {
    return offset < 0 ? std::clamp(limits.end - end, offset, i64{0}) : offset;
}

class CaretPlace {
public:
    CaretPlace(vel_context &ctx, u32 number)
        : ctx_(ctx), o_(object_at(ctx, number)), line_(ctx, number, o_.cursor_line),
          pitch_(line_pitch(font_of(ctx, o_), o_)), height_(font_height(font_of(ctx, o_))),
          limits_(sight_of(ctx, number)) {}

    void shift_into_sight() {
        shift_across();
        if (!is_field(o_)) shift_down();
    }

    void set_cursor() {
        u32 offset = o_.scroll_x;
        centre_line(ctx_, o_, limits_, line_.width_of(line_.length()), offset);
        o_.cursor_x = as_field(left() + x() + as_signed(offset));
        o_.cursor_y = as_field(top() + y() + as_signed(o_.scroll_y));
    }

private:
    // Of the text where it is not scrolled.
    i64 left() const { return as_signed(o_.x + o_.margin_left); }
    i64 top() const { return as_signed(o_.y + o_.margin_top); }
    // Of the caret in the text.
    i64 x() const { return line_.width_of(o_.cursor_column); }
    i64 y() const { return i64{is_field(o_) ? 0 : std::min(o_.cursor_line, last_line)} * pitch_; }

    void shift_across() {
        if (centres_lines(o_)) return;
        i64 offset = as_signed(o_.scroll_x);
        if (type_of(o_).text == TextKind::caption) {
            const i64 caret_at_end = line_.width_of(line_.length()) + 1;
            offset = offset_without_gap(offset, limits_.x, left() + caret_at_end);
        }
        const i64 at = left() + x();
        o_.scroll_x = as_field(offset_in_sight(offset, limits_.x, at, at + 1));
    }

    void shift_down() {
        const i64 at = top() + y();
        const i64 offset = as_signed(o_.scroll_y);
        o_.scroll_y = as_field(offset_in_sight(offset, limits_.y, at, at + height_));
    }

    vel_context &ctx_;
    vel_object &o_;
    const ShownLine line_;
    const u32 pitch_, height_;
    const Limits limits_;
};

} // namespace

void place_caret(vel_context &ctx, u32 object) { CaretPlace(ctx, object).set_cursor(); }

void show_caret(vel_context &ctx, u32 object) {
    CaretPlace caret(ctx, object);
    caret.shift_into_sight();
    caret.set_cursor();
}

Limits sight_of(const vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    const Limits visible = text_limits(ctx, number);
    const bool is_in_sight = visible.x.begin < visible.x.end && visible.y.begin < visible.y.end;
    return is_in_sight ? visible
                       : Limits{inside_margins(o, o.width, horizontal),
                                inside_margins(o, o.height, vertical)};
}

RowPlace place_under(const vel_context &ctx, const TextRows &rows, u32 number, i64 x, i64 y) {
    const vel_object &o = object_at(ctx, number);
    const i64 pitch = std::max(line_pitch(font_of(ctx, o), o), 1U);
    const i64 top = as_signed(o.y + o.margin_top + o.scroll_y);
    const i64 line = is_field(o) ? 0 : std::clamp((y - top) / pitch, i64{0}, i64{last_line});
    const u32 row = rows.row_at(number, static_cast<u32>(line));
    const ShownLine shown(ctx, number, rows.rows()[row].line);
    u32 offset = o.scroll_x;
    centre_line(ctx, o, sight_of(ctx, number), shown.width_of(shown.length()), offset);
    const u32 column = shown.column_at(x - as_signed(o.x + o.margin_left + offset));
    return {row, std::min(column, rows.end_of(row).column)};
}

u32 lines_in_sight(const vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    const Span rows = sight_of(ctx, number).y;
    const u32 pitch = std::max(line_pitch(font_of(ctx, o), o), 1U);
    return std::max(as_field(room_in(rows)) / pitch, 1U);
}

void refuse(vel_context &ctx, vel_refusal reason, u32 character) try {
    state_of(ctx).refusal = {reason, character, now() + flash_time};
} catch (const std::bad_alloc &) {
}

bool end_flash(vel_context &ctx) {
    if (ctx.state == nullptr || ctx.state->refusal.flash_ends.count() == 0) return false;
    if (now() < ctx.state->refusal.flash_ends) return false;
    ctx.state->refusal.flash_ends = {};
    return true;
}

} // namespace velumo
