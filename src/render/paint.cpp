#include "render/paint.h"

#include "model/types.h"
#include "render/borders.h"
#include "render/limits.h"
#include "render/states.h"
#include "render/surface.h"
#include "text/lines.h"
#include "text/measure.h"

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

void paint_text(vel_context &ctx, u32 number, vel_object &o, Size size) {
    TTF_Font *font = font_of(ctx, o);
    if (font == nullptr || !has_text(ctx, o) || !may_go_on(ctx)) return;
    const Limits limits = o.master == 0 ? Limits{inside_margins(o, size.width, horizontal),
                                                 inside_margins(o, size.height, vertical)}
                                        : text_limits(ctx, number);
    paint(ctx, TextBlock(ctx, number, limits, font));
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
