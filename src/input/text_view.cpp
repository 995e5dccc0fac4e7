#include "input/text_view.h"

#include "model/strings.h"
#include "render/limits.h"

namespace velumo {

TextView::TextView(const vel_context &ctx, vel_object &object)
    : ctx_(ctx), o_(object), font_(font_of(ctx, object)), height_(font_height(font_)),
      pitch_(line_pitch(font_, object)), limits_(text_limits(ctx, ctx.cursor_object)),
      origin_x_(as_field(limits_.x.begin) + object.scroll_x),
      origin_y_(as_field(limits_.y.begin) + object.scroll_y) {}

u32 TextView::x_after(const char *line, u32 count) const {
    if (count == 0) return origin_x_;
    char part[VEL_TEXT_SIZE + 1];
    copy_up_to(std::min<u32>(count, VEL_TEXT_SIZE - 1) - 1, line, part);
    return origin_x_ + text_width(ctx_, font_, part);
}

void TextView::follow_right(u32 x) {
    // On purpose: beyond the right edge neither the cursor nor the text is moved.
    if (is_left_of_right_edge(x)) o_.cursor_x = x;
}

void TextView::follow_backspace(u32 x, bool is_field) {
    if (is_field && as_signed(o_.scroll_x) < 0) {
        // On purpose: the text comes back and the cursor stays.
        const i32 scrolled = as_signed(o_.scroll_x + (o_.cursor_x - x));
        o_.scroll_x = as_field(std::min(scrolled, 0));
    } else if (is_right_of_left_edge(x) && is_left_of_right_edge(x)) {
        o_.cursor_x = x;
    }
}

void TextView::follow_typing(u32 x) {
    if (!is_left_of_right_edge(x)) {
        o_.scroll_x -= x - o_.cursor_x;
    } else if (is_right_of_left_edge(x)) {
        o_.cursor_x = x;
    } else {
        o_.scroll_x += x - o_.cursor_x;
    }
}

void TextView::go_to_x(u32 x, u32 shift) {
    if (is_right_of_left_edge(x)) {
        o_.cursor_x = x;
    } else {
        o_.scroll_x += shift;
    }
}

void TextView::go_down_to_line() {
    const u32 y = y_of_line();
    if (as_signed(y + height_ - 1) < limits_.y.end) {
        o_.cursor_y = y;
    } else {
        o_.scroll_y -= pitch_;
    }
}

void TextView::go_up_to_line() {
    const u32 y = y_of_line();
    // On purpose: compared with the limit itself, so a line that begins on it counts as shown.
    if (as_signed(y) < limits_.y.begin - 1) {
        o_.scroll_y += pitch_;
    } else {
        o_.cursor_y = y;
    }
}

} // namespace velumo
