#include "render/painting.h"

#include <new>

#include "render/picture.h"
#include "render/pixels.h"

namespace velumo {
namespace {

Picture *picture_of(const vel_context &ctx) {
    return ctx.state == nullptr ? nullptr : static_cast<Picture *>(ctx.state->picture.get());
}

Picture *gathering_picture(const vel_context &ctx) {
    Picture *picture = picture_of(ctx);
    return picture != nullptr && picture->is_gathering() ? picture : nullptr;
}

void paint_what_was_gathered(vel_context &ctx) {
    if (Picture *picture = picture_of(ctx)) picture->paint(ctx);
}

void paint_now(vel_context &ctx, PaintOp op) {
    paint_what_was_gathered(ctx);
    if (op.kind == PaintOp::Kind::text) {
        SDL_FreeSurface(ctx.text_surface);
        op.image = ctx.text_surface = render_line(op.font, op.text, op.colour);
    }
    paint_part(*ctx.screen, op, op.area);
}

} // namespace

Painting::Painting(vel_context &ctx, Of what)
    : ctx_(ctx), what_(what), fonts_stay_(ctx), own_steps_(ctx) {
    try {
        if (state_of(ctx).draws_plainly) return;
        kept<Picture>(ctx.state->picture)
            .open(ctx, what != Of::anything && ctx.partial_redraw == 1);
        is_gathering_ = true;
    } catch (const std::bad_alloc &) {
    }
}

Steps &Painting::steps() {
    Picture *picture = is_gathering_ ? picture_of(ctx_) : nullptr;
    return picture == nullptr ? own_steps_ : *picture->steps();
}

std::optional<std::span<const Area>> Painting::finish() {
    Picture *picture = is_gathering_ ? picture_of(ctx_) : nullptr;
    is_gathering_ = false;
    if (picture == nullptr || !picture->close()) return {};
    switch (what_) {
    case Of::anything:
        picture->paint(ctx_);
        break;
    case Of::changes_of_window:
        if (picture->paint_changes_of_window(ctx_)) return picture->changes();
        [[fallthrough]];
    case Of::window:
        picture->paint_window(ctx_);
        break;
    }
    return {};
}

void begin_window(const vel_context &ctx) {
    if (Picture *picture = gathering_picture(ctx)) picture->begin_window();
}

void begin_object(vel_context &ctx) {
    if (Picture *picture = gathering_picture(ctx)) picture->begin_object();
}

bool may_go_on(const vel_context &ctx) {
    const Picture *picture = gathering_picture(ctx);
    return picture == nullptr || picture->may_go_on();
}

void paint(vel_context &ctx, const PaintOp &op) {
    if (ctx.screen == nullptr) return;
    Picture *picture = gathering_picture(ctx);
    try {
        if (picture != nullptr && picture->add(ctx, op)) return;
    } catch (const std::bad_alloc &) {
    }
    paint_now(ctx, op);
}

void paint(vel_context &ctx, const TextBlock &block) {
    Picture *picture = gathering_picture(ctx);
    const bool may_wait = picture != nullptr && may_be_painted_later(ctx, block);
    try {
        if (may_wait && picture->add(ctx, block)) return;
    } catch (const std::bad_alloc &) {
    }
    for_each_op(ctx, block, [&ctx](const PaintOp &op) { paint(ctx, op); });
}

} // namespace velumo
