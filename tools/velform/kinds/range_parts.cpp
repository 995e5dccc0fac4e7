// Scroll bars, sliders and progress: something that moves or grows along the longer side.
#include <algorithm>

#include "kinds/pieces.h"

namespace velform {
namespace {

constexpr Pixels track_thickness = 4, knob_length = 10, least_thumb = 16;
constexpr std::int64_t standard_most = 100;

// A piece that begins at one place of its master's longer side and is so long.
Rect along(const Rect &area, bool is_vertical, Pixels from, Pixels length) {
    if (is_vertical) return {area.x, area.y + from, area.width, length};
    return {area.x + from, area.y, length, area.height};
}

Pixels length_of(const Rect &area, bool is_vertical) {
    return is_vertical ? area.height : area.width;
}

// The middle of an area, so thick.
Rect middle(const Rect &area, bool is_vertical, Pixels thickness) {
    if (is_vertical) {
        return {area.x + (area.width - thickness) / 2, area.y, thickness, area.height};
    }
    return {area.x, area.y + (area.height - thickness) / 2, area.width, thickness};
}

// How much of a length the value is.
Pixels share_of(Pixels length, const Measures &measures) {
    const std::int64_t least = measures.of(Field::least);
    const std::int64_t most = measures.of(Field::most, standard_most);
    const std::int64_t value = std::clamp(measures.of(Field::value), least, std::max(least, most));
    return most <= least ? 0 : length * (value - least) / (most - least);
}

void check_range(const ObjectSource &object, const Measures &measures, const PartContext &context) {
    const std::int64_t least = measures.of(Field::least);
    const std::int64_t most = measures.of(Field::most, standard_most);
    const std::int64_t value = measures.of(Field::value, least);
    if (least >= most) {
        report(object, Field::most, context, "`max` must be more than `min`");
    } else if (value < least || value > most) {
        report(object, Field::value, context, "`value` must be from `min` to `max`");
    }
    if (measures.of(Field::step, 1) < 1) {
        report(object, Field::step, context, "`step` must be at least 1");
    }
}

} // namespace

void make_scroll_bar(ObjectSource &object, const PartSource &part, const PartContext &context) {
    const Measures measures(object, context);
    const bool is_vertical = measures.is_vertical();
    const Rect area = measures.inside_margins();
    const Pixels length = length_of(area, is_vertical);
    set_part(object.own, PartCode::scroll_bar);
    set_standard(object.own, Field::focus, 0);
    // It stays where it is when it scrolls the window that it is in.
    set_standard(object.own, Field::clip, VEL_CLIP_FRAME);
    object.scrolls = part.scrolls;
    if (!object.scrolls && !object.is_made) {
        context.diagnostics.error(part.where, "a scroll bar needs the `id` of what it scrolls, as "
                                              "in for = \"letter\"");
    }
    const Pixels thumb = std::min(length, std::max(least_thumb, length / 3));
    object.objects.push_back(piece(Role::thumb, along(area, is_vertical, 0, thumb)));
}

void make_slider(ObjectSource &object, const PartContext &context) {
    const Measures measures(object, context);
    check_range(object, measures, context);
    const bool is_vertical = measures.is_vertical();
    const Rect area = measures.inside_margins();
    const Pixels way = std::max<Pixels>(length_of(area, is_vertical) - knob_length, 0);
    const Pixels share = share_of(way, measures);
    set_part(object.own, PartCode::slider);
    set_standard(object.own, Field::focus, 1);
    set_standard(object.own, Field::value, measures.of(Field::least));
    object.objects.push_back(piece(Role::track, middle(area, is_vertical, track_thickness)));
    measures.anchor(object.objects.back(),
                    is_vertical ? anchor_left | anchor_top | anchor_bottom : across | anchor_top);
    const Rect knob = along(area, is_vertical, is_vertical ? way - share : share, knob_length);
    object.objects.push_back(piece(Role::knob, knob));
}

void make_progress(ObjectSource &object, const PartContext &context) {
    const Measures measures(object, context);
    check_range(object, measures, context);
    const bool is_vertical = measures.is_vertical();
    const Rect area = measures.inside_margins();
    const Pixels length = length_of(area, is_vertical);
    const bool is_endless = measures.of(Field::endless) != 0;
    const Pixels share = is_endless ? length / 4 : share_of(length, measures);
    set_part(object.own, PartCode::progress);
    set_standard(object.own, Field::focus, 0);
    object.objects.push_back(
        piece(Role::bar, along(area, is_vertical, is_vertical ? length - share : 0, share)));
}

} // namespace velform
