// The caret and the selection in a text, moved by keys and by the mouse. For comfortable typing.
#pragma once

#include "text/rows.h"

namespace velumo {

class TextCursor {
public:
    // In the text of an object, where its record says. Throws std::bad_alloc.
    TextCursor(const vel_context &ctx, u32 object);

    u32 owner() const { return owner_; }
    const TextRows &rows() const { return rows_; }
    RowPlace place() const { return place_; }
    u32 index() const { return rows_.index_of(place_); }
    const Row &row() const { return rows_.row(place_); }
    const Selection &selection() const { return selection_; }
    std::string_view selected() const;

    // The caret goes to a place, and leaves the selection or takes its end along.
    enum class Reach { move, select };
    void go(RowPlace place, Reach reach);
    void go(u32 index, Reach reach) { go(rows_.place_of(index), reach); }
    void select(u32 anchor, u32 caret);

    // Moves up and down, and where they aim at.
    RowPlace some_rows_on(i64 distance);
    void forget_goal() { selection_.goal_x = Selection::no_goal; }

    // After the text has changed.
    void read_again() { rows_ = TextRows(ctx_, owner_); }

    // Writes caret and selection down and brings the caret in sight; returns the object it is in.
    u32 settle(vel_context &ctx);

private:
    bool is_new_selection() const;

    const vel_context &ctx_;
    const u32 owner_;
    TextRows rows_;
    RowPlace place_;
    Selection selection_;
};

// Shows the active window, or the whole screen for an object outside of it.
void show_object(vel_context &ctx, u32 object);

// For programs: what is selected in an object, or anywhere for object 0.
Selection selection_in(const vel_context &ctx, u32 object);
i32 select_text(vel_context &ctx, u32 object, u32 anchor, u32 caret);

} // namespace velumo
