#include "parts/tip.h"

#include "input/hit_test.h"
#include "model/traits.h"
#include "model/walk.h"
#include "parts/values.h"
#include "render/display.h"
#include "render/geometry.h"
#include "render/paint.h"
#include "render/scene.h"
#include "text/layout.h"
#include "text/measure.h"

namespace velumo {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds rest_before_tip{600};
constexpr milliseconds move_every{100};
constexpr u32 below_pointer = 20, side = 6, edge = 3; // pixels

// The object that shows the tips of the form; 0 for none.
u32 tip_label(const vel_context &ctx) {
    for (const auto &[number, traits] : ctx.state->traits) {
        const vel_object &o = object_at(ctx, number);
        if (traits.part == tip_label_part && o.type == VEL_TYPE_LABEL && o.master == 0)
            return number;
    }
    return 0;
}

// The tip of an object or of the nearest one around it.
const std::string &tip_of(const vel_context &ctx, u32 object) {
    if (!traits_of(ctx, object).tip.empty()) return traits_of(ctx, object).tip;
    for (const u32 master : Masters(ctx, object)) {
        if (!traits_of(ctx, master).tip.empty()) return traits_of(ctx, master).tip;
    }
    return traits_of(ctx, 0).tip;
}

u32 within(i64 place, u32 size, u32 screen) {
    return as_field(std::max<i64>(std::min<i64>(place, i64{screen} - size - 1), 0));
}

} // namespace

Tips::Tips(vel_context &ctx) : ctx_(ctx), at_rest_since_(now()), next_move_(now() + move_every) {
    int x = 0;
    int y = 0;
    SDL_GetMouseState(&x, &y);
    x_ = x, y_ = y;
}

Tips::~Tips() {
    if (has_objects(ctx_)) hide();
}

void Tips::follow(Polled polled) {
    if (ctx_.state == nullptr || ctx_.state->traits.empty() || !has_objects(ctx_)) return;
    if (polled == Polled::event) look_at(ctx_.event);
    if (may_show_ && now() - at_rest_since_ >= rest_before_tip) show();
    if (now() < next_move_) return;
    next_move_ = now() + move_every;
    if (!is_shown_) move_endless(ctx_);
}

void Tips::look_at(const SDL_Event &event) {
    const bool is_motion = event.type == SDL_MOUSEMOTION;
    if (!is_motion && event.type != SDL_MOUSEBUTTONDOWN && event.type != SDL_KEYDOWN) return;
    hide();
    at_rest_since_ = now();
    may_show_ = is_motion;
    if (is_motion) x_ = event.motion.x, y_ = event.motion.y;
}

// The object is on the screen only until the next drawing.
void Tips::show() {
    may_show_ = false;
    const u32 number = tip_label(ctx_);
    const std::string &tip = tip_of(ctx_, object_under(ctx_, x_, y_));
    if (number == 0 || tip.empty()) return;
    vel_object &o = object_at(ctx_, number);
    o.label[tip.copy(o.label, sizeof o.label - 1)] = '\0';
    TTF_Font *font = font_of(ctx_, o);
    o.width = text_width(ctx_, font, o.label) + 2 * side;
    o.height = font_height(font) + 2 * edge;
    o.x = within(x_, o.width, ctx_.screen_width);
    o.y = within(y_ + below_pointer, o.height, ctx_.screen_height);
    format_object(ctx_, number);
    o.hidden = 0;
    paint_object(ctx_, number);
    o.hidden = 1;
    update_display(ctx_, sdl_rect(cut_rect(ctx_, o)));
    is_shown_ = true;
}

void Tips::hide() {
    if (!is_shown_) return;
    is_shown_ = false;
    show_all(ctx_);
}

} // namespace velumo
