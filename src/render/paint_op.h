// One step of painting, with everything that its pixels follow from. For drawing.
#pragma once

#include "render/geometry.h"

namespace velumo {

// Pixels of the surface, from the first column and row to those after the last.
struct Area {
    i32 left, top, right, bottom;

    i64 size() const { return is_empty() ? 0 : (i64{right} - left) * (i64{bottom} - top); }
    bool is_empty() const { return right <= left || bottom <= top; }
    bool contains(const Area &other) const {
        return left <= other.left && top <= other.top && right >= other.right &&
               bottom >= other.bottom;
    }
    bool operator==(const Area &) const = default;
};

// Nothing in common is an area without width or height, never a negative one.
inline Area common(const Area &a, const Area &b) {
    const i32 left = std::max(a.left, b.left), top = std::max(a.top, b.top);
    return {left, top, std::max(left, std::min(a.right, b.right)),
            std::max(top, std::min(a.bottom, b.bottom))};
}
inline Area around(const Area &a, const Area &b) {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}
inline Area area_of(const SDL_Rect &r) { return {r.x, r.y, r.x + r.w, r.y + r.h}; }
inline Area area_of(const SDL_Surface &s) { return {0, 0, s.w, s.h}; }
inline SDL_Rect sdl_rect(const Area &a) {
    return sdl_rect(Rect{a.left, a.top, i64{a.right} - a.left, i64{a.bottom} - a.top});
}

struct PaintOp {
    enum class Kind : u8 {
        box,
        run,   // of pixels, one row or one column, on the surface as a whole
        veil,  // a box that lets through what is under it
        image, // a part of a surface
        text,  // a part of a rendered line
        block  // lines of text that are not looked at yet
    };
    Kind kind = Kind::box;
    bool takes_lock = false; // a run, where the surface must be locked
    u8 opacity = 0;          // of a veil
    vel_colour colour{};
    Area area{};
    i32 from_x = 0, from_y = 0;   // in the surface or line
    SDL_Surface *image = nullptr; // of an image
    const char *text = nullptr;   // of a text; it stays where it is until it is painted
    TTF_Font *font = nullptr;     // of a text
    u32 font_id = 0;              // of its table, which may be gone when the text is painted
    u32 line_number = 0;          // of a text that is compared; different texts never share one
    u32 block_number = 0;         // of a block, among those of the picture

    bool paints_same_as(const PaintOp &other) const;
};
PaintOp box_op(const Rect &rect, vel_colour colour);
PaintOp image_op(SDL_Surface *image, const Patch &patch);
PaintOp text_op(TTF_Font *font, const char *text, vel_colour colour, const Patch &patch);

} // namespace velumo
