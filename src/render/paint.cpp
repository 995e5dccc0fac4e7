// Painting of one object: its body or picture, its text lines, its border.
#include "render/paint.h"

#include "render/geometry.h"
#include "render/primitives.h"
#include "render/rect.h"
#include "text/lines.h"
#include "text/measure.h"

namespace velumo {
namespace {

struct Size {
    u32 width, height;
};

Size top_level_size(const vel_context &ctx, u32 number, const vel_object &object) {
    if (number <= VEL_FRAME_BUTTONS) return {VEL_FRAME_BUTTON_SIZE, VEL_FRAME_BUTTON_SIZE};
    return {cut_size(ctx, object, horizontal), cut_size(ctx, object, vertical)};
}

vel_colour fill_colour(const vel_object &o) { return colour_of(o.fill_r, o.fill_g, o.fill_b); }

bool is_picture(const vel_object &o) { return o.type == VEL_TYPE_PICTURE; }
bool has_box(const vel_object &o) {
    return o.type != VEL_TYPE_PICTURE_UNLOADED && o.type != VEL_TYPE_PICTURE;
}
bool is_known_type(const vel_object &o) {
    return o.type >= VEL_TYPE_WINDOW && o.type <= VEL_TYPE_PICTURE;
}

void blit(vel_context &ctx, SDL_Surface *surface, const Piece &x, const Piece &y) {
    SDL_Rect from = sdl_rect(x.from, y.from, x.extent, y.extent);
    SDL_Rect to = sdl_rect(x.at, y.at, x.extent, y.extent);
    if (surface != nullptr) SDL_UpperBlit(surface, &from, ctx.screen, &to);
}

void paint_top_level_body(vel_context &ctx, const vel_object &o, Size size) {
    if (has_box(o)) draw_box(ctx, o.x, o.y, size.width, size.height, fill_colour(o));
    if (is_picture(o) && o.image != nullptr) {
        const auto whole = [](u32 at, int extent) {
            return Piece{Piece::Cut::none, at, 0, static_cast<u32>(extent)};
        };
        blit(ctx, o.image, whole(o.x, o.image->w), whole(o.y, o.image->h));
    }
}

Piece visible_body(Span limits, const vel_object &o, const Axis &axis) {
    const u32 start = o.*axis.position;
    const u32 size = o.*axis.size;
    return visible_piece(limits, start, start + size - 1, size);
}

void paint_dependent_body(vel_context &ctx, u32 number, const vel_object &o) {
    if (!is_known_type(o)) return;
    const Limits limits = dependent_limits(ctx, number);
    const Piece x = visible_body(limits.x, o, horizontal);
    const Piece y = visible_body(limits.y, o, vertical);
    if (x.extent == 0 || y.extent == 0) return;
    if (is_picture(o)) blit(ctx, o.image, x, y);
    if (has_box(o)) draw_box(ctx, x.at, y.at, x.extent, y.extent, fill_colour(o));
}

bool has_text(const vel_context &ctx, const vel_object &o) {
    if (has_caption(o)) return o.label[0] != '\0';
    const u32 text = text_of(ctx, o);
    switch (o.type) {
    case VEL_TYPE_WINDOW:
    case VEL_TYPE_TEXT:
        return text != 0 && ctx.text_recs[text].text[0] != '\0';
    case VEL_TYPE_CHAIN:
        return buffer_of(ctx, o) != 0 && *line_of(ctx, buffer_of(ctx, o), 0) != '\0';
    default:
        return false;
    }
}

bool centres_lines(const vel_object &o) {
    return o.type == VEL_TYPE_WINDOW && o.window_kind == VEL_WINDOW_REDUCED && o.centred == 1;
}

// Paints the lines of one object's text inside its limits.
class LinePainter {
public:
    LinePainter(vel_context &ctx, vel_object &object, const Limits &limits, TTF_Font *font)
        : ctx_(ctx), object_(object), limits_(limits), font_(font),
          pitch_(line_pitch(font, object)) {}

    void paint() {
        u32 top = object_.y + object_.margin_top + object_.scroll_y;
        // On purpose: the bottom of the first line is one pixel lower than that of the others.
        u32 bottom = top + pitch_;
        for (u32 line = 0; line <= object_.number_of_lines && line <= last_line &&
                           as_signed(top) < as_signed(limits_.y.after);
             ++line) {
            const bool painted = paint_line(text_at(line), top, bottom);
            // On purpose: a caption is tried at each line's place and painted at the first that
            // shows.
            if (painted && has_caption(object_)) return;
            top += pitch_;
            bottom = top + pitch_ - 1;
        }
    }

private:
    const char *text_at(u32 line) const {
        return has_caption(object_) ? object_.label : line_of(ctx_, buffer_of(ctx_, object_), line);
    }

    bool paint_line(const char *text, u32 top, u32 bottom) {
        const u32 width = text_width(font_, text);
        if (centres_lines(object_)) centre(width);
        const u32 left = object_.x + object_.margin_left + object_.scroll_x;
        const Piece y = visible_piece(limits_.y, top, bottom, pitch_);
        Piece x = visible_piece(limits_.x, left, left + width, width);
        if (x.cut == Piece::Cut::both) {
            // On purpose: here the visible part is one pixel narrower than the limits allow, and
            // it starts where that of an earlier line did.
            x.extent = room_between(limits_.x.before + 1, limits_.x.after);
            x.from = source_x_;
        } else if (x.cut != Piece::Cut::hidden) {
            source_x_ = x.from;
        }
        return show(text, x, y);
    }

    // The offset stays in the record.
    void centre(u32 width) {
        if (cut_size(ctx_, object_, horizontal) <= width) return;
        const i32 free = as_signed(limits_.x.after - limits_.x.before - 1 - width);
        object_.scroll_x = static_cast<u32>(free / 2);
    }

    bool show(const char *text, const Piece &x, const Piece &y) {
        if (x.cut == Piece::Cut::hidden || y.cut == Piece::Cut::hidden) return false;
        if (x.extent == 0 || (y.cut == Piece::Cut::both && y.extent == 0)) return false;
        const vel_colour c = colour_of(object_.text_r, object_.text_g, object_.text_b);
        SDL_FreeSurface(ctx_.text_surface);
        ctx_.text_surface = TTF_RenderText_Blended(font_, text, SDL_Color{c.r, c.g, c.b, 0});
        blit(ctx_, ctx_.text_surface, x, y);
        return true;
    }

    vel_context &ctx_;
    vel_object &object_;
    const Limits limits_;
    TTF_Font *font_;
    const u32 pitch_;
    u32 source_x_ = 0;
};

void paint_text(vel_context &ctx, u32 number, vel_object &o, Size size) {
    TTF_Font *font = font_of(ctx, o);
    if (font == nullptr || !has_text(ctx, o)) return;
    const Limits limits = o.master == 0 ? Limits{inside_margins(o, size.width, horizontal),
                                                 inside_margins(o, size.height, vertical)}
                                        : text_limits(ctx, number);
    LinePainter(ctx, o, limits, font).paint();
}

void keep_from_edge(vel_object &object, const Axis &axis) {
    u32 &position = object.*axis.position;
    if (as_signed(position) < as_signed(axis.window_start)) position = axis.window_start;
}

} // namespace

void keep_window_on_screen(vel_object &object) {
    if (!is_top_level_window(object)) return;
    keep_from_edge(object, horizontal);
    keep_from_edge(object, vertical);
}

} // namespace velumo

using namespace velumo;

void vel_evoke_object(vel_context *ctx, uint32_t object) noexcept {
    if (names_nothing(*ctx, object) || ctx->screen == nullptr) return;
    vel_object &o = object_at(*ctx, object);
    const Size size = top_level_size(*ctx, object, o);
    keep_window_on_screen(o);
    if (o.master == 0) {
        paint_top_level_body(*ctx, o, size);
    } else {
        paint_dependent_body(*ctx, object, o);
    }
    paint_text(*ctx, object, o, size);
    vel_evoke_borders(ctx, object);
}
