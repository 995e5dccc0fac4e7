#include "kinds/pieces.h"

namespace velform {
namespace {

// What is wrong with a piece is reported where its part is.
void place_pieces(std::vector<ObjectSource> &objects, Position where) {
    for (ObjectSource &object : objects) {
        if (!object.is_made) continue;
        object.where = where;
        place_pieces(object.objects, where);
    }
}

void make_whole(ObjectSource &object, const PartContext &context) {
    set_part(object.own, PartCode::whole);
    set_standard(object.own, Field::anchor, all_edges);
    for (const Field field : {Field::x, Field::y}) {
        const std::optional<Setting> &place = object.own[field];
        if (!place || place->number() == 0 || place->is_faulty) continue;
        context.diagnostics.error(place->where, "the whole X window begins at 0, 0");
    }
}

void make_pieces(ObjectSource &object, PartSource &part, PartContext &context) {
    switch (part.kind) {
    case PartKind::check:
    case PartKind::radio:
        return make_toggle(object, part, context);
    case PartKind::list:
        return make_list(object, part, context);
    case PartKind::scroll_bar:
        return make_scroll_bar(object, part, context);
    case PartKind::choice:
        return make_choice(object, part, context);
    case PartKind::slider:
        return make_slider(object, context);
    case PartKind::progress:
        return make_progress(object, context);
    case PartKind::tabs:
        return make_tabs(object, part, context);
    case PartKind::button:
        return set_standard(object.own, Field::focus, 1);
    case PartKind::caption:
        return set_standard(object.own, Field::focus, 0);
    case PartKind::whole:
        return make_whole(object, context);
    }
}

} // namespace

void make_part(ObjectSource &object, PartSource &part, PartContext &context) {
    object.role = role_of(part.kind);
    // Whatever a style says.
    set(object.own, Field::type, VEL_TYPE_LABEL);
    make_pieces(object, part, context);
    place_pieces(object.objects, object.where);
    if (part.kind == PartKind::choice) context.last_objects.back().where = object.where;
}

ObjectSource tip_label() {
    ObjectSource label = piece(Role::tip, {0, 0, 120, 24});
    set(label.own, Field::hidden, 1);
    set_part(label.own, PartCode::tip_label);
    return label;
}

} // namespace velform
