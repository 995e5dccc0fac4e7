#include "render/text_block.h"

#include <climits>

#include "model/traits.h"
#include "model/types.h"
#include "render/colour.h"
#include "text/lines.h"
#include "text/measure.h"

namespace velumo {
namespace {

class LinePainter {
public:
    LinePainter(vel_context &ctx, const TextBlock &block, const GiveOp &give)
        : ctx_(ctx), block_(block), give_(give), object_(object_at(ctx, block.object)) {}

    void paint() {
        u32 top = block_.top;
        // On purpose: the bottom of the first line is one pixel lower than that of the others.
        u32 bottom = top + block_.pitch;
        for (u32 line = 0; line < block_.lines && as_signed(top) < block_.limits.y.end; ++line) {
            const bool painted = paint_line(line, stretch(top, bottom));
            // On purpose: a caption is tried at each line's place and painted at the first that
            // shows.
            if (painted && has_caption(object_)) return;
            top += block_.pitch;
            bottom = top + block_.pitch - 1;
        }
    }

private:
    bool paint_line(u32 line, Span rows) {
        const Limits &limits = block_.limits;
        const ShownLine shown(ctx_, block_.object, line);
        const u32 width = text_width(ctx_, block_.font, shown.text());
        // The offset stays in the record.
        centre_line(ctx_, object_, limits, width, object_.scroll_x);
        const u32 left = block_.left + object_.scroll_x;
        const Piece y = visible_piece(limits.y, rows, block_.pitch);
        // On purpose: a line ends one pixel after its last.
        Piece x = visible_piece(limits.x, stretch(left, left + width), width);
        if (x.cut == Piece::Cut::both && !has_comfort(ctx_, VEL_COMFORT_TYPING)) {
            // On purpose: here the visible part is one pixel narrower than the limits allow, and
            // it starts where that of an earlier line did.
            x.length = room_in({limits.x.begin + 1, limits.x.end});
            x.from = source_x_;
        } else if (x.cut != Piece::Cut::hidden) {
            source_x_ = x.from;
        }
        show_selected(block_.selected.in_line(shown, line), left, rows);
        if (block_.shows_dots) return show_dots(shown, left, rows);
        return show(shown.text(), x, y);
    }

    // Before the characters, within what the object shows of its text.
    void show_selected(Span part, u32 left, Span rows) {
        const Limits &limits = block_.limits;
        const i64 start = std::max(as_signed(left) + part.begin, limits.x.begin);
        const i64 end = std::min(as_signed(left) + part.end, limits.x.end);
        const i64 top = std::max(rows.begin, limits.y.begin);
        const i64 bottom = std::min(rows.begin + block_.pitch, limits.y.end);
        if (start >= end || top >= bottom) return;
        give_(box_op({start, top, end - start, bottom - top}, block_.selection_colour));
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
        const Limits &limits = block_.limits;
        const i64 widest_reach = std::max<i64>(radius, 1);
        if (x + widest_reach < limits.x.begin || x - widest_reach >= limits.x.end) return;
        const i64 first = std::max(-radius, limits.y.begin - y);
        const i64 last = std::min(radius, limits.y.end - 1 - y);
        i64 reach = 0; // the whole part of a root that changes little from row to row
        for (i64 row = first; row <= last; ++row) {
            const i64 square = radius * radius + 1 - row * row;
            while (reach * reach > square) --reach;
            while ((reach + 1) * (reach + 1) <= square) ++reach;
            const Span columns{std::max(x - reach, limits.x.begin),
                               std::min(x + reach + 1, limits.x.end)};
            if (columns.begin >= columns.end) continue;
            give_(box_op({columns.begin, y + row, columns.end - columns.begin, 1}, block_.colour));
        }
    }

    bool show(const char *text, const Piece &x, const Piece &y) {
        if (x.cut == Piece::Cut::hidden || y.cut == Piece::Cut::hidden) return false;
        if (x.length == 0 || (y.cut == Piece::Cut::both && y.length == 0)) return false;
        give_(text_op(block_.font, text, block_.colour, patch_of(x, y)));
        return true;
    }

    vel_context &ctx_;
    const TextBlock &block_;
    const GiveOp &give_;
    vel_object &object_;
    i64 source_x_ = 0;
};

bool fits_sdl_rect(Span span) { return span.begin >= SHRT_MIN && span.end <= SHRT_MAX; }

} // namespace

TextBlock::TextBlock(const vel_context &ctx, u32 number, const Limits &text_limits, TTF_Font *f)
    : object(number), limits(text_limits), font(f), selected(ctx, number),
      shows_dots(ShownLine(ctx, number, 0).shows_dots()) {
    const vel_object &o = object_at(ctx, number);
    left = o.x + o.margin_left;
    top = o.y + o.margin_top + o.scroll_y;
    pitch = line_pitch(f, o);
    lines = std::min(o.number_of_lines, last_line) + 1;
    colour = text_colour(o);
    selection_colour = velumo::selection_colour(o);
}

// What does not fit an SDL_Rect may show anywhere, and lines less than one pixel high may be higher
// than the limits.
Area area_of(const TextBlock &block) {
    const auto [x, y] = block.limits;
    if (!fits_sdl_rect(x) || !fits_sdl_rect(y) || as_signed(block.pitch) < 0) {
        return {SHRT_MIN, SHRT_MIN, SHRT_MAX + USHRT_MAX, SHRT_MAX + USHRT_MAX};
    }
    const auto side = [](i64 coordinate) { return static_cast<i32>(coordinate); };
    return {side(x.begin), side(y.begin), side(x.end), side(y.end)};
}

bool may_be_painted_later(const vel_context &ctx, const TextBlock &block) {
    return !centres_lines(object_at(ctx, block.object));
}

void for_each_op(vel_context &ctx, const TextBlock &block, const GiveOp &give) {
    LinePainter(ctx, block, give).paint();
}

} // namespace velumo
