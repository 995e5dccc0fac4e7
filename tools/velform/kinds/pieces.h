// Objects that the tool makes, and the measures of those that they are made for. For the parts.
#pragma once

#include "kinds/parts.h"

namespace velform {

using Pixels = std::int64_t;

struct Rect {
    Pixels x, y, width, height;
};

// What the library calls them, see model/traits.inc.
enum class PartCode : std::int64_t {
#define PART(name, code) name = (code),
#include "model/traits.inc"
};

inline void set(Settings &settings, Field field, std::int64_t value) {
    settings[field] = Setting{value, {}};
}
inline void set_rect(Settings &settings, const Rect &rect) {
    set(settings, Field::x, rect.x);
    set(settings, Field::y, rect.y);
    set(settings, Field::width, rect.width);
    set(settings, Field::height, rect.height);
}
inline void set_part(Settings &settings, PartCode code) {
    set(settings, Field::part, static_cast<std::int64_t>(code));
}
inline void set_label(Settings &settings, std::string label) {
    label.resize(std::min<std::size_t>(label.size(), VEL_STRING_SIZE - 1));
    settings[Field::label] = Setting{std::move(label), {}};
}
// Bits of the anchors: pieces follow their part when it is resized.
inline constexpr std::int64_t anchor_left = 1, anchor_right = 2, anchor_top = 4, anchor_bottom = 8;
inline constexpr std::int64_t across = anchor_left | anchor_right;
inline constexpr std::int64_t all_edges = across | anchor_top | anchor_bottom;

// Only where the author says nothing.
inline void set_standard(Settings &settings, Field field, std::int64_t value) {
    if (!settings[field]) set(settings, field, value);
}

inline ObjectSource piece(Role role, const Rect &rect, std::uint32_t type = VEL_TYPE_LABEL) {
    ObjectSource object;
    object.role = role;
    object.is_made = true;
    set(object.own, Field::type, type);
    set_rect(object.own, rect);
    return object;
}

// A piece that shows in the margins of its master, too.
inline ObjectSource outer_piece(Role role, const Rect &rect) {
    ObjectSource object = piece(role, rect);
    set(object.own, Field::clip, VEL_CLIP_FRAME);
    return object;
}

// What a part cannot be; nothing where a value is wrong that was reported already.
inline void report(const ObjectSource &object, Field field, const PartContext &context,
                   std::string message) {
    if (object.own.has_faults() || context.styles.lacks_style(object)) return;
    const std::optional<Setting> &said = object.own[field];
    context.diagnostics.error(said ? said->where : object.where, std::move(message));
}

// What an object with its styles and its theme comes to.
class Measures {
public:
    Measures(const ObjectSource &object, const PartContext &context)
        : settings_(looks_of(context.theme, object.role)) {
        settings_.overlay(context.styles.resolve(object));
    }

    std::int64_t of(Field field, std::int64_t standard = 0) const {
        return settings_[field] ? settings_[field]->number() : standard;
    }
    Pixels width() const { return of(Field::width); }
    Pixels height() const { return of(Field::height); }
    bool is_vertical() const { return height() > width(); }
    // Never less than nothing, whatever the margins are.
    Rect inside_margins() const {
        const Pixels x = of(Field::margin_left), y = of(Field::margin_top);
        return {x, y, std::max<Pixels>(width() - x - of(Field::margin_right), 0),
                std::max<Pixels>(height() - y - of(Field::margin_bottom), 0)};
    }

    // Whether the part is resized with its master, so that its pieces have to follow.
    bool can_grow() const { return (of(Field::anchor) & (anchor_right | anchor_bottom)) != 0; }
    void anchor(ObjectSource &piece, std::int64_t edges) const {
        if (can_grow()) set(piece.own, Field::anchor, edges);
    }

private:
    Settings settings_;
};

// One family each, see parts.h.
void make_toggle(ObjectSource &object, const PartSource &part, const PartContext &context);
void make_scroll_bar(ObjectSource &object, const PartSource &part, const PartContext &context);
void make_slider(ObjectSource &object, const PartContext &context);
void make_progress(ObjectSource &object, const PartContext &context);
void make_list(ObjectSource &object, const PartSource &part, const PartContext &context);
void make_choice(ObjectSource &object, PartSource &part, PartContext &context);
void make_tabs(ObjectSource &object, PartSource &part, const PartContext &context);

} // namespace velform
