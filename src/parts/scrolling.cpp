#include "parts/scrolling.h"

#include "model/types.h"
#include "parts/list.h"
#include "text/lines.h"
#include "text/measure.h"

namespace velumo {
namespace {

constexpr i64 lines_of_a_notch = 3;

Span area_of(const vel_context &ctx, const vel_object &o, const Axis &axis) {
    return inside_margins(o, o.master == 0 ? cut_size(ctx, o, axis) : o.*axis.size, axis);
}

void scroll_object(vel_object &o, const Axis &axis, Direction direction, u32 distance) {
    step(o.*axis.scroll, direction, distance);
    if (o.editable == 1) step(o.*axis.cursor, direction, distance);
}

View view_of_rows(const vel_context &ctx, u32 list, const List &items) {
    const auto shown = static_cast<i64>(rows_of(ctx, list).size());
    const i64 first = items.first;
    return {{first, first + shown}, {0, items.count}};
}

} // namespace

Scrollable::Scrollable(vel_context &ctx, u32 object, const Axis &axis)
    : ctx_(ctx), number_(object), o_(object_at(ctx, object)), axis_(axis) {
    const bool is_vertical = &axis == &vertical;
    const List *items = find_list(ctx, object);
    if (is_vertical && items != nullptr && items->count > rows_of(ctx, object).size()) {
        what_ = What::rows;
        view_ = view_of_rows(ctx, object, *items);
    } else if (is_vertical && has_lines() &&
               (o_.type != VEL_TYPE_WINDOW || !has_scrolling_dependents())) {
        what_ = What::lines;
        view_ = {area_of(ctx, o_, axis), lines()};
    } else if (o_.type == VEL_TYPE_WINDOW) {
        what_ = What::contents;
        view_ = view_of_contents();
    }
}

i64 Scrollable::notch() const {
    switch (what_) {
    case What::lines:
        return lines_of_a_notch * line_pitch(font_of(ctx_, o_), o_);
    case What::rows:
        return lines_of_a_notch;
    default:
        return ctx_.scroll_step;
    }
}

void Scrollable::move(Direction direction, i64 wanted) {
    if (what_ == What::rows) {
        scroll_list(ctx_, number_, direction == Direction::forward ? -wanted : wanted);
        return;
    }
    const u32 distance = as_field(view_.room(direction, wanted));
    scroll_object(o_, axis_, direction, distance);
    if (what_ == What::contents) follow_scroll(ctx_, number_, {axis_, direction, distance});
}

bool Scrollable::has_lines() const {
    const TextKind kind = type_of(o_).text;
    return kind == TextKind::paragraphs || kind == TextKind::chain;
}

Span Scrollable::lines() const {
    const i64 top = as_signed(o_.y + o_.margin_top + o_.scroll_y);
    TTF_Font *font = font_of(ctx_, o_);
    if (font == nullptr || !has_lines() || text_of(ctx_, o_) == 0) return {top, top};
    return {top, top + (i64{std::min(o_.number_of_lines, last_line)} + 1) * line_pitch(font, o_)};
}

bool Scrollable::scrolls_along(const vel_object &o) const {
    return has_area(o) && o.type != VEL_TYPE_MENU && !border_of(o).is_fitted &&
           scrolls_with_master(ctx_, o);
}

bool Scrollable::has_scrolling_dependents() const {
    const auto dependents = dependents_of(o_);
    return std::any_of(dependents.begin(), dependents.end(),
                       [this](u32 number) { return scrolls_along(object_at(ctx_, number)); });
}

View Scrollable::view_of_contents() const {
    View view{area_of(ctx_, o_, axis_), {0, 0}};
    view.contents = &axis_ == &horizontal ? Span{view.area.begin, view.area.begin} : lines();
    for (const u32 number : dependents_of(o_)) {
        const vel_object &o = object_at(ctx_, number);
        if (!scrolls_along(o)) continue;
        const Span extent = extent_of(o, axis_);
        view.contents = {std::min(view.contents.begin, extent.begin),
                         std::max(view.contents.end, extent.end)};
    }
    return view;
}

} // namespace velumo
