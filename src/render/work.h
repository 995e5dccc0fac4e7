// How much one picture may cost to paint. For painting.
#pragma once

#include "model/guard.h"
#include "render/paint_op.h"

namespace velumo {

// In nanoseconds, as a processor of this decade takes them. Full screens come to a tenth of what
// there is; a form can be made to paint thousands of texts and pictures over each other.
class Work {
public:
    // For what lies under the active window, and again for what comes from there on.
    void begin(const SDL_Surface *screen) {
        constexpr i64 at_least = 50'000'000, for_a_pixel = 200;
        left_ = at_least + (screen == nullptr ? 0 : for_a_pixel * area_of(*screen).size());
    }
    // When nothing is left, what comes later is not painted.
    bool is_left() const { return left_ > 0 || !is_guarded; }
    void spend(i64 work) { left_ -= work; }

private:
    i64 left_ = 0;
};

// Of so many pixels of an operation.
inline i64 work_of(PaintOp::Kind kind, i64 pixels) {
    switch (kind) {
    case PaintOp::Kind::box:
    case PaintOp::Kind::run:
        return 50 + pixels / 4;
    case PaintOp::Kind::veil:
        return 500 + 8 * pixels;
    case PaintOp::Kind::image:
        return 500 + 12 * pixels;
    case PaintOp::Kind::text:
    case PaintOp::Kind::block:
        break;
    }
    return 1500 + 4 * pixels;
}
// Of so many lines of a text, or boxes of it, of which it is asked what shows.
inline i64 work_of_looking_at(u32 count) { return 200 * i64{count}; }
// Of a line, before it is painted the first time.
inline i64 work_of_rendering(i64 pixels) { return 20000 + 2 * pixels; }

} // namespace velumo
