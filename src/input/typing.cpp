#include "input/typing.h"

#include <new>

#include "input/caret.h"
#include "input/history.h"
#include "input/text_change.h"
#include "input/text_cursor.h"
#include "input/word_bounds.h"
#include "model/traits.h"
#include "model/types.h"
#include "text/encoding.h"

namespace velumo {
namespace {

using Reach = TextCursor::Reach;

constexpr u32 shift = VEL_KEY_SHIFT;
constexpr u32 control = VEL_KEY_CONTROL;

class Typing {
public:
    Typing(vel_context &ctx, u32 object)
        : ctx_(ctx), o_(object_at(ctx, object)), cursor_(ctx, object), owner_(cursor_.owner()) {}

    void apply(u32 key, bool is_character) {
        const bool is_vertical = moves_vertically(key);
        if (!is_vertical) cursor_.forget_goal();
        if (is_character) {
            type(static_cast<char>(key));
        } else if (const Action *action = find(actions, key)) {
            (this->*action->apply)();
        } else if (const Move *move = find(moves, key & ~shift)) {
            const Reach reach = (key & shift) != 0 ? Reach::select : Reach::move;
            cursor_.go((this->*move->target)(reach), reach);
            history().is_open = false;
        }
        show_object(ctx_, cursor_.settle(ctx_));
    }

    void paste(Board board) {
        cursor_.forget_goal();
        insert(latin1_for_paste(board), Joins::never);
        show_object(ctx_, cursor_.settle(ctx_));
    }

    static bool moves_vertically(u32 key) {
        const u32 plain = key & ~shift;
        return plain == VEL_KEY_UP || plain == VEL_KEY_DOWN || plain == VEL_KEY_PAGE_UP ||
               plain == VEL_KEY_PAGE_DOWN;
    }
    static bool knows(u32 key) {
        return find(actions, key) != nullptr || find(moves, key & ~shift) != nullptr;
    }

private:
    struct Move {
        u32 key;
        RowPlace (Typing::*target)(Reach);
    };
    struct Action {
        u32 key;
        void (Typing::*apply)();
    };
    static const Move moves[12];
    static const Action actions[18];

    template <class Entry, std::size_t count>
    static const Entry *find(const Entry (&entries)[count], u32 key) {
        const Entry *found = std::find_if(entries, entries + count,
                                          [key](const Entry &entry) { return entry.key == key; });
        return found == entries + count ? nullptr : found;
    }

    const TextRows &rows() const { return cursor_.rows(); }
    std::string_view characters() const { return rows().characters(); }
    u32 index() const { return cursor_.index(); }
    const Selection &selection() const { return cursor_.selection(); }
    bool is_password() const { return traits_of(ctx_, owner_).password; }
    History &history() { return history_of(ctx_, owner_, characters()); }

    // --- Moves: where each leads

    RowPlace at(u32 place) const { return rows().place_of(place); }
    bool leaves_selection(Reach reach) const {
        return reach == Reach::move && !selection().is_empty();
    }

    RowPlace left(Reach reach) {
        if (leaves_selection(reach)) return at(selection().first());
        return at(index() == 0 ? 0 : index() - 1);
    }
    RowPlace right(Reach reach) {
        if (leaves_selection(reach)) return at(selection().end());
        return at(std::min(index() + 1, rows().length()));
    }
    // The words of a password are no one's business.
    RowPlace word_left(Reach) {
        return at(is_password() ? 0 : word_start_before(characters(), index()));
    }
    RowPlace word_right(Reach) {
        return at(is_password() ? rows().length() : word_start_after(characters(), index()));
    }
    RowPlace home(Reach) { return {cursor_.place().row, 0}; }
    RowPlace end(Reach) { return rows().end_of(cursor_.place().row); }
    RowPlace start_of_text(Reach) { return at(0); }
    RowPlace end_of_text(Reach) { return at(rows().length()); }
    RowPlace up(Reach) { return cursor_.some_rows_on(-1); }
    RowPlace down(Reach) { return cursor_.some_rows_on(1); }
    RowPlace page_up(Reach) { return cursor_.some_rows_on(-page()); }
    RowPlace page_down(Reach) { return cursor_.some_rows_on(page()); }
    // One line stays in sight.
    i64 page() const {
        return std::max(i64{lines_in_sight(ctx_, cursor_.row().object)} - 1, i64{1});
    }

    // --- Changes

    void replace(u32 first, u32 end, std::string inserted, Joins joins) {
        if (!can_change(ctx_, owner_)) {
            refuse(ctx_, VEL_REFUSED_READ_ONLY,
                   inserted.empty() ? 0 : static_cast<u8>(inserted[0]));
            return;
        }
        Step step{first,
                  std::string(characters().substr(first, end - first)),
                  {},
                  selection().anchor,
                  selection().caret};
        History &steps = history();
        Replacement change{first, end - first, std::move(inserted)};
        if (!change_characters(ctx_, owner_, change)) return;
        cursor_.read_again();
        cursor_.go(first + static_cast<u32>(change.inserted.size()), Reach::move);
        step.inserted = std::move(change.inserted);
        keep_step(steps, std::move(step), joins, characters());
    }

    // In place of what is selected.
    void insert(std::string text, Joins joins) {
        if (!text.empty()) replace(selection().first(), selection().end(), std::move(text), joins);
    }

    void type(char character) {
        if (ctx_.insert_mode == 0 || !selection().is_empty()) {
            insert({character}, Joins::typed_character);
        } else if (has_paragraphs(o_) && o_.max_chars != 0 &&
                   cursor_.place().column >= o_.max_chars) {
            refuse(ctx_, VEL_REFUSED_FULL, static_cast<u8>(character));
        } else {
            const bool covers_one = index() < rows().length() && characters()[index()] != '\n';
            replace(index(), index() + (covers_one ? 1 : 0), {character}, Joins::typed_character);
        }
    }

    void erase_to(u32 other) {
        const Selection &s = selection();
        const u32 first = s.is_empty() ? std::min(index(), other) : s.first();
        const u32 end = s.is_empty() ? std::max(index(), other) : s.end();
        if (first != end) replace(first, end, {}, Joins::never);
    }
    void erase_back() { erase_to(rows().index_of(left(Reach::select))); }
    void erase_on() { erase_to(rows().index_of(right(Reach::select))); }
    void erase_word_back() { erase_to(rows().index_of(word_left(Reach::select))); }
    void erase_word_on() { erase_to(rows().index_of(word_right(Reach::select))); }
    void break_line() { insert("\n", Joins::never); }
    void switch_overwriting() { ctx_.insert_mode = 1 - ctx_.insert_mode; }

    void undo() {
        if (const auto step = step_back(history())) {
            restore({step->at, static_cast<u32>(step->inserted.size()), step->removed});
            cursor_.select(step->anchor, step->caret);
        }
    }
    void redo() {
        if (const auto step = step_forward(history())) {
            restore({step->at, static_cast<u32>(step->removed.size()), step->inserted});
            cursor_.go(step->at + static_cast<u32>(step->inserted.size()), Reach::move);
        }
    }
    void restore(const Replacement &change) {
        History &steps = history();
        restore_characters(ctx_, owner_, change);
        cursor_.read_again();
        steps.known = characters();
    }

    // --- The clipboard

    void select_all() { cursor_.select(0, rows().length()); }

    // What is selected in a text that has no caret is copied when nothing is selected here.
    void copy() {
        const Selection &elsewhere = state_of(ctx_).selection;
        const Selection &chosen = selection().is_empty() ? elsewhere : selection();
        if (chosen.is_empty() || text_owner(ctx_, chosen.owner) != chosen.owner) return;
        if (traits_of(ctx_, chosen.owner).password) {
            refuse(ctx_, VEL_REFUSED_SECRET, 0);
            return;
        }
        const TextRows source(ctx_, chosen.owner);
        const u32 first = std::min(chosen.first(), source.length());
        const auto text = source.characters().substr(first, chosen.end() - first);
        offer(ctx_, Board::clipboard, utf8_of(text));
    }
    void cut() {
        copy();
        if (!is_password() && !selection().is_empty()) erase_to(index());
    }
    void paste_clipboard() { insert(latin1_for_paste(Board::clipboard), Joins::never); }

    // With line feeds in place of other line ends.
    std::string latin1_for_paste(Board board) {
        const std::string text = offered(ctx_, board);
        std::string latin1;
        for (std::string_view rest = text; !rest.empty();) {
            const std::string_view before = rest;
            const std::optional<char> character = take_character(rest);
            const bool is_half_a_line_end = character == '\r' && rest.starts_with('\n');
            if (is_half_a_line_end) continue;
            if (character) {
                latin1 += character == '\r' ? '\n' : *character;
            } else {
                const auto sequence = before.substr(0, before.size() - rest.size());
                refuse(ctx_, VEL_REFUSED_CHARACTER, code_point_of(sequence));
            }
        }
        return latin1;
    }

    vel_context &ctx_;
    const vel_object &o_;
    TextCursor cursor_;
    const u32 owner_;
};

const Typing::Move Typing::moves[12] = {
    {VEL_KEY_LEFT, &Typing::left},
    {VEL_KEY_RIGHT, &Typing::right},
    {VEL_KEY_UP, &Typing::up},
    {VEL_KEY_DOWN, &Typing::down},
    {VEL_KEY_PAGE_UP, &Typing::page_up},
    {VEL_KEY_PAGE_DOWN, &Typing::page_down},
    {VEL_KEY_HOME, &Typing::home},
    {VEL_KEY_END, &Typing::end},
    {VEL_KEY_LEFT | control, &Typing::word_left},
    {VEL_KEY_RIGHT | control, &Typing::word_right},
    {VEL_KEY_HOME | control, &Typing::start_of_text},
    {VEL_KEY_END | control, &Typing::end_of_text},
};

const Typing::Action Typing::actions[18] = {
    {VEL_KEY_BACKSPACE, &Typing::erase_back},
    {VEL_KEY_BACKSPACE | shift, &Typing::erase_back},
    {VEL_KEY_BACKSPACE | control, &Typing::erase_word_back},
    {VEL_KEY_DELETE, &Typing::erase_on},
    {VEL_KEY_DELETE | control, &Typing::erase_word_on},
    {VEL_KEY_ENTER, &Typing::break_line},
    {VEL_KEY_ENTER | shift, &Typing::break_line},
    {VEL_KEY_INSERT, &Typing::switch_overwriting},
    {'a' | control, &Typing::select_all},
    {'c' | control, &Typing::copy},
    {VEL_KEY_INSERT | control, &Typing::copy},
    {'x' | control, &Typing::cut},
    {VEL_KEY_DELETE | shift, &Typing::cut},
    {'v' | control, &Typing::paste_clipboard},
    {VEL_KEY_INSERT | shift, &Typing::paste_clipboard},
    {'z' | control, &Typing::undo},
    {'y' | control, &Typing::redo},
    {'z' | control | shift, &Typing::redo},
};

} // namespace

bool is_typing_key(const vel_context &ctx, u32 object, u32 key) {
    const u32 owner = text_owner(ctx, object);
    if (owner == 0 || !Typing::knows(key)) return false;
    const bool needs_lines = Typing::moves_vertically(key) || (key & ~shift) == VEL_KEY_ENTER;
    return !needs_lines || !is_field(object_at(ctx, owner));
}

// Without memory a key changes nothing.
void type_key(vel_context &ctx) try {
    if (ctx.final_key == VEL_KEY_NONE || text_owner(ctx, ctx.cursor_object) == 0) return;
    end_flash(ctx);
    const u32 key = ctx.final_key;
    const bool is_character = ctx.key_printable == 1 && key <= last_character_code;
    ctx.final_key = VEL_KEY_NONE;
    ctx.key_printable = 0;
    Typing(ctx, ctx.cursor_object).apply(key, is_character);
} catch (const std::bad_alloc &) {
}

void paste(vel_context &ctx, Board board) try {
    if (text_owner(ctx, ctx.cursor_object) != 0) Typing(ctx, ctx.cursor_object).paste(board);
} catch (const std::bad_alloc &) {
}

} // namespace velumo
