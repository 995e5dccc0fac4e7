#include "render/states.h"

#include <cstring>

#include "model/traits.h"
#include "model/types.h"
#include "model/walk.h"
#include "render/limits.h"
#include "render/surface.h"
#include "text/letters.h"
#include "text/measure.h"

namespace velumo {
namespace {

constexpr int whole = 256;        // parts of a colour in a mixture
constexpr int hovered_parts = 72; // of white in a body, or of black in one that is almost white
constexpr int hovered_dark_parts = 24;
constexpr int pressed_parts = 56;   // of black
constexpr int disabled_parts = 128; // of the body in a text
constexpr int almost_white = 225, almost_black = 30;
constexpr i64 least_ring = 4; // pixels
constexpr vel_colour white{255, 255, 255}, black{0, 0, 0};

vel_colour mixed(vel_colour a, vel_colour b, int parts_of_b) {
    const auto mix = [=](int from, int to) {
        return static_cast<u8>(from + (to - from) * parts_of_b / whole);
    };
    return {mix(a.r, b.r), mix(a.g, b.g), mix(a.b, b.b)};
}

int brightness(vel_colour c) { return (299 * c.r + 587 * c.g + 114 * c.b) / 1000; }

// What is mixed into a body, and how much of it.
struct Tint {
    vel_colour colour;
    int parts;
};

// An object in a disabled one cannot be reached either. It is asked for each object of a picture,
// so that only so many of its masters are looked at.
bool is_disabled(const vel_context &ctx, u32 number) {
    constexpr int most_masters = 100;
    if (ctx.state == nullptr || ctx.state->traits.empty()) return false;
    if (!is_enabled(ctx, number)) return true;
    int looked_at = 0;
    for (const u32 master : Masters(ctx, number)) {
        if (!is_enabled(ctx, master)) return true;
        if (++looked_at == most_masters && is_guarded) break;
    }
    return false;
}

Tint tint_of(const vel_context &ctx, u32 number, vel_colour body) {
    const bool is_hovered = has_comfort(ctx, VEL_COMFORT_STATES) && ctx.state != nullptr &&
                            ctx.state->hovered == number;
    if (!is_hovered) return {black, 0};
    if (ctx.state->pressed == number && brightness(body) <= almost_black)
        return {white, hovered_dark_parts};
    if (ctx.state->pressed == number) return {black, pressed_parts};
    if (brightness(body) >= almost_white) return {black, hovered_dark_parts};
    return {white, hovered_parts};
}

bool has_body(const vel_object &o) {
    const Body body = type_of(o).body;
    return body == Body::box || (body == Body::box_at_top_level && o.master == 0);
}

// --- On top

// The part of an object that shows.
Rect visible_rect(const vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    if (number <= VEL_FRAME_BUTTONS)
        return {o.x, o.y, VEL_FRAME_BUTTON_SIZE, VEL_FRAME_BUTTON_SIZE};
    if (o.master == 0) return cut_rect(ctx, o);
    const Limits limits = dependent_limits(ctx, number);
    const Piece x = visible_piece(limits.x, extent_of(o, horizontal), o.width);
    const Piece y = visible_piece(limits.y, extent_of(o, vertical), o.height);
    return {x.at, y.at, x.length, y.length};
}

void veil_picture(vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    if (o.image == nullptr) return;
    Tint tint = tint_of(ctx, number, black);
    if (is_disabled(ctx, number)) {
        const vel_colour under =
            o.master == 0 ? ctx.background_colour : fill_colour(object_at(ctx, o.master));
        tint = {under, disabled_parts};
    }
    if (tint.parts == 0) return;
    draw_veil(ctx, visible_rect(ctx, number), tint.colour, static_cast<u8>(tint.parts));
}

Rect inset(const Rect &r, i64 by) {
    return {r.x + by, r.y + by, r.width - 2 * by, r.height - 2 * by};
}

// Two lines inside the outline, so that they show on any body and picture: the inner one in the
// colour of the text, which the body around it sets off, and before it one in between or opposite.
void draw_ring(vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    const Rect rect = visible_rect(ctx, number);
    if (rect.width < least_ring || rect.height < least_ring) return;
    const vel_colour text = text_colour(o);
    const vel_colour opposite = brightness(text) < whole / 2 ? white : black;
    draw_outline(ctx, rect, has_body(o) ? mixed(text, fill_colour(o), whole / 2) : opposite);
    draw_outline(ctx, inset(rect, 1), text);
}

// Windows show their focus by their marks.
bool shows_ring(const vel_context &ctx, u32 number) {
    return number != 0 && number == ctx.cursor_object && has_comfort(ctx, VEL_COMFORT_STATES) &&
           !is_top_level_window(object_at(ctx, number));
}

// --- The access key

u8 small(char character) { return static_cast<u8>(small_letter(static_cast<u8>(character))); }

// Where the letter is in the caption; its length when it is not there.
std::size_t place_of(char key, const char *caption) {
    const char *at = caption;
    while (*at != '\0' && small(*at) != static_cast<u8>(key)) ++at;
    return static_cast<std::size_t>(at - caption);
}

void underline_key(vel_context &ctx, u32 number) {
    const vel_object &o = object_at(ctx, number);
    const char key = traits_of(ctx, number).key;
    TTF_Font *font = font_of(ctx, o);
    if (key == '\0' || font == nullptr || !has_caption(o) || is_field(o)) return;
    char part[VEL_STRING_SIZE] = {};
    const std::size_t place = place_of(key, o.label);
    if (place + 1 >= sizeof part || o.label[place] == '\0') return;
    std::memcpy(part, o.label, place + 1);
    const i64 left = as_signed(o.x + o.margin_left + o.scroll_x);
    const i64 end = left + text_width(ctx, font, part);
    part[place] = '\0';
    const Limits limits = text_limits(ctx, number);
    const i64 begin = std::max(left + text_width(ctx, font, part), limits.x.begin);
    const i64 y = i64{as_signed(o.y + o.margin_top + o.scroll_y)} + TTF_FontAscent(font) + 1;
    if (y < limits.y.begin || y >= limits.y.end) return;
    draw_box(ctx, {begin, y, std::max<i64>(std::min(end, limits.x.end) - begin, 0), 1},
             text_colour(o));
}

} // namespace

StateColours::StateColours(vel_context &ctx, u32 number)
    : o_(object_at(ctx, number)), fill_{o_.fill_r, o_.fill_g, o_.fill_b}, text_{o_.text_r,
                                                                                o_.text_g,
                                                                                o_.text_b},
      are_changed_(ctx.state != nullptr) {
    if (!are_changed_) return;
    const vel_colour fill = fill_colour(o_);
    const Tint tint = tint_of(ctx, number, fill);
    if (tint.parts != 0) {
        const vel_colour c = mixed(fill, tint.colour, tint.parts);
        o_.fill_r = c.r, o_.fill_g = c.g, o_.fill_b = c.b;
    }
    if (is_disabled(ctx, number)) {
        const vel_colour c = mixed(text_colour(o_), fill, disabled_parts);
        o_.text_r = c.r, o_.text_g = c.g, o_.text_b = c.b;
    }
}

StateColours::~StateColours() {
    if (!are_changed_) return;
    o_.fill_r = fill_[0], o_.fill_g = fill_[1], o_.fill_b = fill_[2];
    o_.text_r = text_[0], o_.text_g = text_[1], o_.text_b = text_[2];
}

void paint_state(vel_context &ctx, u32 number) {
    if (ctx.state == nullptr && ctx.comfort == 0) return;
    if (has_comfort(ctx, VEL_COMFORT_KEYBOARD)) underline_key(ctx, number);
    if (type_of(object_at(ctx, number)).body == Body::picture) veil_picture(ctx, number);
    if (shows_ring(ctx, number)) draw_ring(ctx, number);
}

} // namespace velumo
