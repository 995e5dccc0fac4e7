// What of a text its object shows, and how the cursor and the text are shifted against each other
// when a key moves the cursor. For the editor.
#pragma once

#include "render/geometry.h"
#include "text/measure.h"

namespace velumo {

class TextView {
public:
    TextView(const vel_context &ctx, vel_object &object);

    // Place of the cursor after so many characters of a line.
    u32 x_after(const char *line, u32 count) const;
    // On purpose: the column 0 that a move to another line reaches is at the object's margin, not
    // where its scrolled text begins.
    u32 x_at_margin() const { return o_.x + o_.margin_left; }
    u32 origin_x() const { return origin_x_; }

    // The cursor goes to x, which follows a character to the right, a removed one or a typed one.
    void follow_right(u32 x);
    void follow_backspace(u32 x, bool is_field);
    void follow_typing(u32 x);

    // The cursor goes to x, or the text is shifted when x is hidden at the left.
    void go_to_x(u32 x, u32 shift);
    // The cursor goes to its line, or the text up by a line when that is hidden below.
    void go_down_to_line();
    // On purpose: upwards only the top of the line is looked at.
    void go_up_to_line();

private:
    bool is_right_of_left_edge(u32 x) const { return as_signed(x) >= limits_.x.begin; }
    bool is_left_of_right_edge(u32 x) const { return as_signed(x) < limits_.x.end; }
    u32 y_of_line() const { return origin_y_ + o_.cursor_line * pitch_; }

    const vel_context &ctx_;
    vel_object &o_;
    TTF_Font *font_;
    const u32 height_, pitch_;
    const Limits limits_;
    const u32 origin_x_, origin_y_;
};

} // namespace velumo
