#include "render/paint_op.h"

namespace velumo {
namespace {

// A part of a surface, and where it goes.
PaintOp op_of(PaintOp::Kind kind, const Patch &p) {
    const SDL_Rect from = sdl_rect(Rect{p.from_x, p.from_y, p.width, p.height});
    const SDL_Rect to = sdl_rect(Rect{p.x, p.y, p.width, p.height});
    PaintOp op{.kind = kind};
    op.area = area_of(to);
    op.from_x = from.x;
    op.from_y = from.y;
    return op;
}

} // namespace

PaintOp box_op(const Rect &rect, vel_colour colour) {
    PaintOp op{.kind = PaintOp::Kind::box, .colour = colour};
    op.area = area_of(sdl_rect(rect));
    return op;
}

PaintOp text_op(TTF_Font *font, const char *text, vel_colour colour, const Patch &patch) {
    PaintOp op = op_of(PaintOp::Kind::text, patch);
    op.font = font;
    op.text = text;
    op.colour = colour;
    return op;
}

PaintOp image_op(SDL_Surface *image, const Patch &patch) {
    PaintOp op = op_of(PaintOp::Kind::image, patch);
    op.image = image;
    return op;
}

} // namespace velumo
