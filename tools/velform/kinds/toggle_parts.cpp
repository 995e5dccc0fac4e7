// Checks and radio buttons: a box and a mark on it, left of the caption.
#include "kinds/pieces.h"

namespace velform {
namespace {

constexpr Pixels box_left = 5, box_side = 14;

// The mark of a check is a square with a tick in the colour of the box, which shows only on the
// mark; so the library needs to know nothing but the width of the mark.
constexpr Rect check_box{0, 0, 14, 14}, check_mark{1, 1, 12, 12};
constexpr Rect tick[] = {{3, 6, 1, 2}, {4, 7, 1, 2}, {5, 8, 1, 2}, {6, 7, 1, 2},
                         {7, 6, 1, 2}, {8, 5, 1, 2}, {9, 4, 1, 2}, {10, 3, 1, 2}};

// That of a radio button is a disc, which its covers make of a square, inside a ring.
constexpr Rect radio_box{1, 1, 12, 12}, radio_mark{4, 4, 6, 6};
constexpr Rect corners[] = {{4, 4, 1, 1}, {9, 4, 1, 1}, {4, 9, 1, 1}, {9, 9, 1, 1}};
constexpr Rect ring[] = {{4, 0, 6, 1},   {2, 1, 2, 1},  {10, 1, 2, 1},  {1, 2, 1, 2},
                         {12, 2, 1, 2},  {0, 4, 1, 6},  {13, 4, 1, 6},  {1, 10, 1, 2},
                         {12, 10, 1, 2}, {2, 12, 2, 1}, {10, 12, 2, 1}, {4, 13, 6, 1}};

struct Shape {
    Rect box, mark;
    std::span<const Rect> covers, ring;
};
constexpr Shape check_shape{check_box, check_mark, tick, {}};
constexpr Shape radio_shape{radio_box, radio_mark, corners, ring};

} // namespace

void make_toggle(ObjectSource &object, const PartSource &part, const PartContext &context) {
    const bool is_radio = part.kind == PartKind::radio;
    const bool is_on = part.checked && part.checked->number() != 0;
    const Shape &shape = is_radio ? radio_shape : check_shape;
    const Pixels top = (Measures(object, context).height() - box_side) / 2;
    const auto add = [&](Role role, Rect rect) {
        rect.x += box_left, rect.y += top;
        object.objects.push_back(outer_piece(role, rect));
    };
    set_part(object.own, is_radio ? PartCode::radio : PartCode::check);
    set(object.own, Field::value, is_on ? 1 : 0);
    set_standard(object.own, Field::focus, 1);
    if (is_radio) object.group = part.group ? part.group->string() : "";
    add(Role::box, shape.box);
    add(Role::mark, shape.mark);
    if (!is_on) set(object.objects.back().own, Field::width, 0);
    for (const Rect &rect : shape.covers) add(Role::mark_cover, rect);
    for (const Rect &rect : shape.ring) add(Role::ring, rect);
    // The ring is the outline.
    if (is_radio) set(object.objects.front().own, Field::border, VEL_BORDER_NONE);
}

} // namespace velform
