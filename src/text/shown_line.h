// What an object shows as one of its lines, and where each character of it begins. For drawing and
// for the editor.
#pragma once

#include "render/geometry.h"
#include "text/measure.h"

namespace velumo {

class ShownLine {
public:
    ShownLine(const vel_context &ctx, u32 object, u32 line);
    ShownLine(const ShownLine &) = delete;
    ShownLine &operator=(const ShownLine &) = delete;

    const char *text() const { return text_; }
    u32 length() const;

    // A password shows a dot for each character, whatever the font has; each takes the same room.
    bool shows_dots() const { return shows_dots_; }
    u32 dot_room() const { return font_height(font_) / 2; }

    // Pixels of the first characters of the line.
    u32 width_of(u32 count) const;
    // How many characters lie before a place, in pixels from the start of the line, to which the
    // next boundary between two is nearest.
    u32 column_at(i64 x) const;

private:
    const vel_context &ctx_;
    TTF_Font *font_;
    const char *text_;
    bool shows_dots_;
};

// The offset that centres a line of so many pixels in a window that centres its lines, unless the
// line is too wide.
bool centres_lines(const vel_object &object);
bool centre_line(const vel_context &ctx, const vel_object &object, const Limits &limits, u32 width,
                 u32 &offset);

} // namespace velumo
