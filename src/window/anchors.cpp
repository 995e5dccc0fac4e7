#include "window/anchors.h"

#include <new>

#include "input/caret.h"
#include "model/traits.h"
#include "model/types.h"
#include "render/limits.h"
#include "text/fonts.h"
#include "text/layout.h"
#include "text/rows.h"

namespace velumo {
namespace {

bool is_nothing(Change by) { return by.shift == 0 && by.growth == 0; }

// An object without anchors on an axis keeps to the near edge.
Change obey(i32 anchors, i32 near, i32 far, Change of_master) {
    if ((anchors & far) == 0) return {of_master.shift, 0};
    if ((anchors & near) == 0) return {of_master.shift + of_master.growth, 0};
    return of_master;
}

// Sizes below 1 are kept in mind instead. An object without a size does not show, and stays so.
void grow(u32 &size, i64 growth, i64 &excess) {
    if (size == 0) return;
    if (size != 1) excess = 0; // a program has resized it meanwhile
    const i64 wanted = i64{size} - excess + growth;
    size = as_field(std::max<i64>(wanted, 1));
    excess = std::max<i64>(1 - wanted, 0);
}

} // namespace

Stretch obey_anchors(const vel_context &ctx, u32 number, Stretch of_master) {
    const i32 anchors = traits_of(ctx, number).anchor;
    return {obey(anchors, anchor_left, anchor_right, of_master.x),
            obey(anchors, anchor_top, anchor_bottom, of_master.y)};
}

void Stretching::stretch(u32 number, Stretch by) try {
    if (is_nothing(by.x) && is_nothing(by.y)) return;
    change(number, by);
    open_.push_back({number, by});
} catch (const std::bad_alloc &) {
    has_memory_ = false;
}

void Stretching::stretch_dependents(u32 master, Stretch of_master) {
    for (const u32 number : dependents_of(object_at(ctx_, master))) {
        if (!steps_.take()) return;
        stretch(number, obey_anchors(ctx_, number, of_master));
    }
}

// Forms may be nested thousands of levels deep.
bool Stretching::finish() try {
    while (!open_.empty()) {
        const auto [master, by] = open_.back();
        open_.pop_back();
        stretch_dependents(master, by);
    }
    const FontsStay fonts_stay(ctx_);
    const KnownMasters masters(ctx_);
    for (const u32 number : to_format_) format_object(ctx_, number);
    for (const auto &[number, index] : carets_) place_caret_at(number, index);
    return has_memory_;
} catch (const std::bad_alloc &) {
    return false;
}

void Stretching::change(u32 number, Stretch by) {
    vel_object &o = object_at(ctx_, number);
    const bool grows = by.x.growth != 0 || by.y.growth != 0;
    if (grows) note_text(number);
    Excess *excess = grows ? &state_of(ctx_).excess[number] : nullptr;
    o.x += as_field(by.x.shift);
    o.y += as_field(by.y.shift);
    if (is_editable(o)) {
        o.cursor_x += as_field(by.x.shift);
        o.cursor_y += as_field(by.y.shift);
    }
    if (!grows) return;
    grow(o.width, by.x.growth, excess->width);
    grow(o.height, by.y.growth, excess->height);
    if (by.x.growth != 0) o.line_width = 0; // follows from the size again
}

// Its lines change; its caret stays at its character.
void Stretching::note_text(u32 number) {
    const vel_object &o = object_at(ctx_, number);
    const bool is_member = type_of(o).text == TextKind::chain && o.master != 0;
    to_format_.insert(is_member ? o.master : number);
    if (!is_editable(o) || text_owner(ctx_, number) != number || carets_.count(number) != 0) return;
    const TextRows rows(ctx_, number);
    const u32 row = is_field(o) ? 0 : rows.row_at(number, o.cursor_line);
    carets_[number] = rows.index_of({row, std::min(o.cursor_column, rows.rows()[row].length)});
}

void Stretching::place_caret_at(u32 number, u32 index) {
    vel_object &o = object_at(ctx_, number);
    if (!has_area(o)) return;
    const TextRows rows(ctx_, number);
    const RowPlace place = rows.place_of(index);
    o.cursor_line = rows.row(place).line;
    o.cursor_column = place.column;
    show_caret(ctx_, number);
}

bool stretch(vel_context &ctx, u32 number, Stretch by) {
    Stretching stretching(ctx);
    stretching.stretch(number, by);
    return stretching.finish();
}

bool stretch_dependents(vel_context &ctx, u32 master, Stretch of_master) {
    Stretching stretching(ctx);
    stretching.stretch_dependents(master, of_master);
    return stretching.finish();
}

} // namespace velumo
