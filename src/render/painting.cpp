#include "render/painting.h"

#include <new>

#include "render/picture.h"
#include "render/pixels.h"
#include "text/font_table.h"

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

void paint_now(vel_context &ctx, const PaintOp &op) {
    paint_what_was_gathered(ctx);
    paint_part(*ctx.screen, op, op.area);
}

void paint_text_now(vel_context &ctx, const TextLine &line, PaintOp place) {
    paint_what_was_gathered(ctx);
    SDL_FreeSurface(ctx.text_surface);
    ctx.text_surface = render_line(line.font, line.text, line.colour);
    place.image = ctx.text_surface;
    paint_part(*ctx.screen, place, place.area);
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
        if (picture != nullptr) return picture->add(ctx, op);
    } catch (const std::bad_alloc &) {
    }
    paint_now(ctx, op);
}

void paint_text(vel_context &ctx, const TextLine &line, const PaintOp &place) {
    if (ctx.screen == nullptr) return;
    Picture *picture = gathering_picture(ctx);
    const FontTable *table = picture == nullptr ? nullptr : table_of(ctx, line.font);
    try {
        if (table != nullptr) return picture->add_text(ctx, line, table->id, place);
    } catch (const std::bad_alloc &) {
    }
    paint_text_now(ctx, line, place);
}

} // namespace velumo
