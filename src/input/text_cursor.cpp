#include "input/text_cursor.h"

#include <new>

#include "clipboard/clipboard.h"
#include "input/caret.h"
#include "model/traits.h"
#include "model/types.h"
#include "render/scene.h"
#include "text/encoding.h"
#include "text/shown_line.h"

namespace velumo {
namespace {

Selection last_selection(const vel_context &ctx) {
    return ctx.state == nullptr ? Selection{} : ctx.state->selection;
}

} // namespace

TextCursor::TextCursor(const vel_context &ctx, u32 object)
    : ctx_(ctx), owner_(text_owner(ctx, object)), rows_(ctx, owner_), place_{} {
    const vel_object &o = object_at(ctx, object);
    place_.row = is_field(o) ? 0 : rows_.row_at(object, o.cursor_line);
    place_.column = std::min(o.cursor_column, row().length);
    const Selection last = last_selection(ctx);
    if (last.owner == owner_ && last.caret == index() && last.anchor <= rows_.length()) {
        selection_ = last;
    } else {
        selection_ = {owner_, index(), index()};
    }
}

std::string_view TextCursor::selected() const {
    return rows_.characters().substr(selection_.first(), selection_.end() - selection_.first());
}

void TextCursor::go(RowPlace place, Reach reach) {
    place_ = place;
    selection_.caret = index();
    if (reach == Reach::move) selection_.anchor = selection_.caret;
}

void TextCursor::select(u32 anchor, u32 caret) {
    go(anchor, Reach::move);
    go(caret, Reach::select);
}

RowPlace TextCursor::some_rows_on(i64 distance) {
    const ShownLine here(ctx_, row().object, row().line);
    if (selection_.goal_x == Selection::no_goal) selection_.goal_x = here.width_of(place_.column);
    const i64 wanted = std::clamp(place_.row + distance, i64{0}, i64{rows_.count()} - 1);
    const u32 target = static_cast<u32>(wanted);
    if (target == place_.row) return place_;
    const ShownLine there(ctx_, rows_.rows()[target].object, rows_.rows()[target].line);
    return {target, std::min(there.column_at(selection_.goal_x), rows_.end_of(target).column)};
}

u32 TextCursor::settle(vel_context &ctx) {
    const u32 object = row().object;
    vel_object &o = object_at(ctx, object);
    o.cursor_line = row().line;
    o.cursor_column = place_.column;
    if (has_paragraphs(o)) ctx.text_recs[text_of(ctx, o)].cursor_index = index();
    if (text_owner(ctx, ctx.cursor_object) == owner_) ctx.cursor_object = object;
    // What is selected is there for the middle button at once.
    if (is_new_selection()) offer(ctx, Board::primary, utf8_of(selected()));
    state_of(ctx).selection = selection_;
    show_caret(ctx, object);
    return object;
}

bool TextCursor::is_new_selection() const {
    const Selection last = last_selection(ctx_);
    const bool is_same = last.owner == owner_ && last.first() == selection_.first() &&
                         last.end() == selection_.end();
    return !is_same && !selection_.is_empty() && !traits_of(ctx_, owner_).password;
}

void show_object(vel_context &ctx, u32 object) {
    const bool is_active = object == ctx.active_window || root_of(ctx, object) == ctx.active_window;
    if (is_active) {
        show_edited_window(ctx);
    } else {
        show_all(ctx);
    }
}

Selection selection_in(const vel_context &ctx, u32 object) try {
    if (object == 0) {
        const Selection last = last_selection(ctx);
        return last.is_empty() ? Selection{} : last;
    }
    if (text_owner(ctx, object) == 0) return {};
    const TextCursor cursor(ctx, object);
    const Selection last = last_selection(ctx);
    // The head of a chain shows no line that its caret could be in.
    const bool is_head = cursor.row().object != object;
    const bool is_there =
        last.owner == object && std::max(last.anchor, last.caret) <= cursor.rows().length();
    return is_head && is_there ? last : cursor.selection();
} catch (const std::bad_alloc &) {
    return {};
}

i32 select_text(vel_context &ctx, u32 object, u32 anchor, u32 caret) try {
    const u32 owner = text_owner(ctx, object);
    if (owner == 0) return VEL_ERROR_ARGUMENT;
    TextCursor cursor(ctx, object);
    const u32 length = cursor.rows().length();
    cursor.select(std::min(anchor, length), std::min(caret, length));
    cursor.forget_goal();
    cursor.settle(ctx);
    return VEL_OK;
} catch (const std::bad_alloc &) {
    return VEL_ERROR_MEMORY;
}

} // namespace velumo
