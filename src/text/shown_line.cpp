#include "text/shown_line.h"

#include <cstring>

#include "model/traits.h"
#include "model/types.h"
#include "text/lines.h"

namespace velumo {

ShownLine::ShownLine(const vel_context &ctx, u32 number, u32 line) : ctx_(ctx) {
    const vel_object &o = object_at(ctx, number);
    font_ = font_of(ctx, o);
    text_ = has_caption(o) ? o.label : line_of(ctx, buffer_of(ctx, o), line);
    shows_dots_ = is_field(o) && traits_of(ctx, number).password;
}

u32 ShownLine::length() const { return static_cast<u32>(strnlen(text_, VEL_LINE_SIZE)); }

u32 ShownLine::width_of(u32 count) const {
    char part[VEL_LINE_SIZE];
    const u32 length = std::min({count, this->length(), VEL_LINE_SIZE - 1U});
    if (shows_dots_) return length * dot_room();
    std::memcpy(part, text_, length);
    part[length] = '\0';
    return text_width(ctx_, font_, part);
}

u32 ShownLine::column_at(i64 x) const {
    u32 column = 0;
    u32 before = 0;
    for (u32 after = 0; column < length(); ++column, before = after) {
        after = width_of(column + 1);
        if (2 * x < i64{before} + after) break;
    }
    return column;
}

bool centres_lines(const vel_object &o) {
    return o.type == VEL_TYPE_WINDOW && o.window_kind == VEL_WINDOW_REDUCED && o.centred == 1;
}

bool centre_line(const vel_context &ctx, const vel_object &o, const Limits &limits, u32 width,
                 u32 &offset) {
    if (!centres_lines(o) || cut_size(ctx, o, horizontal) <= width) return false;
    const i32 free = as_signed(as_field(limits.x.end - limits.x.begin - width));
    offset = as_field(free / 2);
    return true;
}

} // namespace velumo
