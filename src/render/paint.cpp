#include "render/paint.h"

#include "model/traits.h"
#include "model/types.h"
#include "render/borders.h"
#include "render/limits.h"
#include "render/selected_text.h"
#include "render/states.h"
#include "render/surface.h"
#include "text/lines.h"
#include "text/measure.h"
#include "text/shown_line.h"

namespace velumo {
namespace {

struct Size {
    u32 width, height;
};

Size top_level_size(const vel_context &ctx, u32 number, const vel_object &object) {
    // On purpose: frame buttons are painted in one size, and hit in that of their record.
    if (number <= VEL_FRAME_BUTTONS) return {VEL_FRAME_BUTTON_SIZE, VEL_FRAME_BUTTON_SIZE};
    return {cut_size(ctx, object, horizontal), cut_size(ctx, object, vertical)};
}

Patch patch_of(const Piece &x, const Piece &y) {
    return {x.at, y.at, x.from, y.from, x.length, y.length};
}

void paint_top_level_body(vel_context &ctx, const vel_object &o, Size size) {
    switch (type_of(o).body) {
    case Body::box:
    case Body::box_at_top_level:
        draw_box(ctx, {o.x, o.y, size.width, size.height}, fill_colour(o));
        break;
    case Body::picture: {
        if (o.image == nullptr) break;
        const auto whole = [](u32 at, int length) {
            return Piece{Piece::Cut::none, at, 0, length};
        };
        draw_image(ctx, o.image, patch_of(whole(o.x, o.image->w), whole(o.y, o.image->h)));
        break;
    }
    case Body::none:
        break;
    }
}

Piece visible_body(Span limits, const vel_object &o, const Axis &axis) {
    return visible_piece(limits, extent_of(o, axis), o.*axis.size);
}

void paint_dependent_body(vel_context &ctx, u32 number, const vel_object &o) {
    const Body body = type_of(o).body;
    if (body != Body::box && body != Body::picture) return;
    const Limits limits = dependent_limits(ctx, number);
    const Piece x = visible_body(limits.x, o, horizontal);
    const Piece y = visible_body(limits.y, o, vertical);
    if (x.length == 0 || y.length == 0) return;
    if (body == Body::picture) {
        draw_image(ctx, o.image, patch_of(x, y));
    } else {
        draw_box(ctx, {x.at, y.at, x.length, y.length}, fill_colour(o));
    }
}

bool has_text(const vel_context &ctx, const vel_object &o) {
    const u32 text = text_of(ctx, o);
    const u32 buffer = buffer_of(ctx, o);
    switch (type_of(o).text) {
    case TextKind::caption:
        return o.label[0] != '\0';
    case TextKind::paragraphs:
        return text != 0 && ctx.text_recs[text].text[0] != '\0';
    case TextKind::chain:
        return buffer != 0 && *line_of(ctx, buffer, 0) != '\0';
    case TextKind::none:
        break;
    }
    return false;
}

// Paints the lines of one object's text inside its limits.
class LinePainter {
public:
    LinePainter(vel_context &ctx, u32 number, const Limits &limits, TTF_Font *font)
        : ctx_(ctx), number_(number), object_(object_at(ctx, number)), limits_(limits), font_(font),
          pitch_(line_pitch(font, object_)), selected_(ctx, number) {}

    void paint() {
        u32 top = object_.y + object_.margin_top + object_.scroll_y;
        // On purpose: the bottom of the first line is one pixel lower than that of the others.
        u32 bottom = top + pitch_;
        for (u32 line = 0;
             line <= object_.number_of_lines && line <= last_line && as_signed(top) < limits_.y.end;
             ++line) {
            const bool painted = paint_line(line, stretch(top, bottom));
            // On purpose: a caption is tried at each line's place and painted at the first that
            // shows.
            if (painted && has_caption(object_)) return;
            top += pitch_;
            bottom = top + pitch_ - 1;
        }
    }

private:
    bool paint_line(u32 line, Span rows) {
        const ShownLine shown(ctx_, number_, line);
        const u32 width = text_width(ctx_, font_, shown.text());
        // The offset stays in the record.
        centre_line(ctx_, object_, limits_, width, object_.scroll_x);
        const u32 left = object_.x + object_.margin_left + object_.scroll_x;
        const Piece y = visible_piece(limits_.y, rows, pitch_);
        // On purpose: a line ends one pixel after its last.
        Piece x = visible_piece(limits_.x, stretch(left, left + width), width);
        if (x.cut == Piece::Cut::both && !has_comfort(ctx_, VEL_COMFORT_TYPING)) {
            // On purpose: here the visible part is one pixel narrower than the limits allow, and
            // it starts where that of an earlier line did.
            x.length = room_in({limits_.x.begin + 1, limits_.x.end});
            x.from = source_x_;
        } else if (x.cut != Piece::Cut::hidden) {
            source_x_ = x.from;
        }
        show_selected(selected_.in_line(shown, line), left, rows);
        if (shown.shows_dots()) return show_dots(shown, left, rows);
        return show(shown.text(), x, y);
    }

    // Before the characters, within what the object shows of its text.
    void show_selected(Span part, u32 left, Span rows) {
        const i64 start = std::max(as_signed(left) + part.begin, limits_.x.begin);
        const i64 end = std::min(as_signed(left) + part.end, limits_.x.end);
        const i64 top = std::max(rows.begin, limits_.y.begin);
        const i64 bottom = std::min(rows.begin + pitch_, limits_.y.end);
        if (start >= end || top >= bottom) return;
        draw_box(ctx_, {start, top, end - start, bottom - top}, selection_colour(object_));
    }

    bool show_dots(const ShownLine &shown, u32 left, Span rows) {
        const i64 room = shown.dot_room();
        const i64 radius = room / 3;
        for (u32 k = 0; k < shown.length(); ++k) {
            const i64 middle = as_signed(left) + i64{k} * room + room / 2;
            show_dot(middle, rows.begin + room, radius);
        }
        return true;
    }

    void show_dot(i64 x, i64 y, i64 radius) {
        const i64 first = std::max(-radius, limits_.y.begin - y);
        const i64 last = std::min(radius, limits_.y.end - 1 - y);
        for (i64 row = first; row <= last; ++row) {
            const i64 square = radius * radius + 1 - row * row;
            i64 reach = 0; // the whole part of the root
            while ((reach + 1) * (reach + 1) <= square) ++reach;
            const Span columns{std::max(x - reach, limits_.x.begin),
                               std::min(x + reach + 1, limits_.x.end)};
            if (columns.begin >= columns.end) continue;
            draw_box(ctx_, {columns.begin, y + row, columns.end - columns.begin, 1},
                     text_colour(object_));
        }
    }

    bool show(const char *text, const Piece &x, const Piece &y) {
        if (x.cut == Piece::Cut::hidden || y.cut == Piece::Cut::hidden) return false;
        if (x.length == 0 || (y.cut == Piece::Cut::both && y.length == 0)) return false;
        draw_text(ctx_, {font_, text, text_colour(object_)}, patch_of(x, y));
        return true;
    }

    vel_context &ctx_;
    const u32 number_;
    vel_object &object_;
    const Limits limits_;
    TTF_Font *font_;
    const u32 pitch_;
    const SelectedText selected_;
    i64 source_x_ = 0;
};

void paint_text(vel_context &ctx, u32 number, vel_object &o, Size size) {
    TTF_Font *font = font_of(ctx, o);
    if (font == nullptr || !has_text(ctx, o) || !may_go_on(ctx)) return;
    const Limits limits = o.master == 0 ? Limits{inside_margins(o, size.width, horizontal),
                                                 inside_margins(o, size.height, vertical)}
                                        : text_limits(ctx, number);
    LinePainter(ctx, number, limits, font).paint();
}

} // namespace

void paint_object(vel_context &ctx, u32 number) {
    if (names_nothing(ctx, number) || ctx.screen == nullptr) return;
    const Painting painting(ctx);
    begin_object(ctx);
    vel_object &o = object_at(ctx, number);
    // On purpose: the size is taken before the window is moved.
    const Size size = top_level_size(ctx, number, o);
    leave_room_for_frame(o);
    if (is_top_level_window(o)) forget_master(ctx, number);
    const StateColours colours(ctx, number);
    if (o.master == 0) {
        paint_top_level_body(ctx, o, size);
    } else {
        paint_dependent_body(ctx, number, o);
    }
    paint_text(ctx, number, o, size);
    paint_border(ctx, number);
    paint_state(ctx, number);
}

} // namespace velumo
