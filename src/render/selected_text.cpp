#include "render/selected_text.h"

#include <new>

#include "model/types.h"
#include "render/colour.h"
#include "text/rows.h"

namespace velumo {
namespace {

// A selection shows while its text has the caret, or could not have it.
bool shows_selection(const vel_context &ctx, u32 owner) {
    const Selection &selection = ctx.state->selection;
    if (selection.is_empty() || selection.owner != owner) return false;
    return text_owner(ctx, ctx.cursor_object) == owner || !is_editable(object_at(ctx, owner));
}

u32 mix(u32 body, u32 text) { return (3 * (body & 0xFF) + (text & 0xFF)) / 4; }

} // namespace

vel_colour selection_colour(const vel_object &o) {
    return colour_of(mix(o.fill_r, o.text_r), mix(o.fill_g, o.text_g), mix(o.fill_b, o.text_b));
}

// Without memory for its rows, a text is painted as if nothing were selected.
SelectedText::SelectedText(const vel_context &ctx, u32 object) {
    if (ctx.state == nullptr || ctx.state->selection.is_empty()) return;
    const u32 owner = text_owner(ctx, object);
    if (owner == 0 || !shows_selection(ctx, owner)) return;
    const Selection &selection = ctx.state->selection;
    try { // in here: what a constructor's own handler catches is thrown on
        for (const TextRows rows(ctx, owner); const Row &row : rows.rows()) {
            const u32 first = std::max(row.first, selection.first());
            const u32 end = std::min(row.end(), selection.end());
            if (row.object == object && first < end) {
                parts_.push_back({row.line, first - row.first, end - row.first});
            }
        }
    } catch (const std::bad_alloc &) {
        parts_.clear();
    }
}

Span SelectedText::in_line(const ShownLine &shown, u32 line) const {
    const auto part = std::find_if(parts_.begin(), parts_.end(),
                                   [line](const Part &p) { return p.line == line; });
    if (part == parts_.end()) return {0, 0};
    return {shown.width_of(part->begin), shown.width_of(part->end)};
}

} // namespace velumo
