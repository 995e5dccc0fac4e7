#include "text/flow.h"

#include <cstdio>

#include "text/fonts.h"
#include "text/line_breaker.h"
#include "text/line_width.h"

namespace velumo {
namespace {

bool is_member(const vel_context &ctx, u32 object) {
    const vel_object &o = object_at(ctx, object);
    return object != 0 && o.type == VEL_TYPE_CHAIN && buffer_of(ctx, o) != 0;
}

// Places one word, going on to following members where lines run out.
class ChainWord {
public:
    ChainWord(vel_context &ctx, u32 master, ChainPlace &at, Word &word, bool break_after)
        : ctx_(ctx), master_(master), at_(at), word_(word), breaks_(break_after) {}

    i32 put_down() {
        vel_object &member = object_at(ctx_, at_.member);
        set_line_width_from_margins(member);
        switch (fit_of(ctx_, member, word_, at_.place)) {
        case Fit::here:
            return copy_here();
        case Fit::on_next_line:
            return copy_on_next_line();
        default:
            return split();
        }
    }

private:
    bool is_last_line() const { return at_.place.line >= last_line; }
    bool ends_line() const { return breaks_ || at_.place.column == last_column; }
    i32 move() { return go_to_next_member(ctx_, master_, at_) ? 1 : -1; }

    void start_next_line() {
        next_line(at_.place);
        end_line(ctx_, at_.place);
    }

    // The break after the word; result when the place does not leave the member.
    i32 break_line(i32 result) {
        if (is_last_line()) return move();
        start_next_line();
        return result;
    }

    void copy() {
        copy_characters(ctx_, at_.place, word_);
        word_.length = 0;
    }

    i32 copy_here() {
        copy();
        return ends_line() ? break_line(0) : 1;
    }

    i32 copy_on_next_line() {
        i32 result = 0;
        end_line(ctx_, at_.place);
        if (is_last_line()) {
            result = move();
            if (result == -1) return -1;
        } else {
            next_line(at_.place);
        }
        copy();
        return ends_line() ? break_line(result) : result;
    }

    i32 split() {
        const bool complete = copy_what_fits();
        end_line(ctx_, at_.place);
        word_.length = 0;
        i32 result = 0;
        if (ends_line()) {
            if (is_last_line()) {
                result = move_with_messages();
            } else {
                start_next_line();
            }
        }
        return complete ? result : -1;
    }

    // False when the chain ended within the word.
    bool copy_what_fits() {
        // On purpose: the word's NUL is copied like a character, and what is added to its line
        // later comes after it, unmeasured and unseen.
        const u32 count = shows_each_character_once(ctx_) ? word_.length : word_.length + 1;
        for (u32 k = 0; k < count && at_.place.column < last_column;) {
            const bool fits =
                try_character(ctx_, object_at(ctx_, at_.member), at_.place, word_.characters[k]);
            if (fits) {
                ++at_.place.column;
                ++k;
            }
            if (!fits || at_.place.column == last_column) {
                if (!leave_line(fits)) return false;
            }
        }
        return true;
    }

    bool leave_line(bool is_full) {
        if (is_last_line()) return move_keeping_member() == 1;
        next_line(at_.place);
        if (is_full) end_line(ctx_, at_.place);
        return true;
    }

    // On failure the member stays the one that was left.
    i32 move_keeping_member() {
        const u32 left = at_.member;
        const i32 moved = move();
        if (moved == -1) at_.member = left;
        return moved;
    }

    // On purpose: these lines go to standard output whatever the program is.
    i32 move_with_messages() {
        std::puts("1142 next chain \n ");
        const i32 moved = move_keeping_member();
        std::printf(" next chain: %d \n \n", moved == 1 ? 0 : 1);
        if (moved == -1) {
            std::printf("1153 object %d number_of_lines %d \n \n", as_signed(at_.member),
                        as_signed(object_at(ctx_, at_.member).number_of_lines));
        }
        return moved;
    }

    vel_context &ctx_;
    const u32 master_;
    ChainPlace &at_;
    Word &word_;
    const bool breaks_;
};

// The lines of a chain, which go on in its next member when the 40 of one are full.
// On purpose: member is that of the flow's own moves. Moves within a word change the place and not
// the member, so that blanks are then measured, and the last line counted, with one that was left.
// Comfortable typing shows what is there, so with it the member goes along.
struct ChainLines {
    static constexpr bool stops_at_once = true;

    vel_context &ctx;
    const u32 master;
    u32 member;
    Place place;
    u32 position = 0;

    const vel_object &object() const { return object_at(ctx, member); }
    bool measures_words() const {
        return position < VEL_MAX_DEPENDENTS && object_at(ctx, master).dep_objs[position] == member;
    }
    static bool has_room() { return true; }

    Remains place_word(Word word) {
        return put_down(word, false) ? Remains::nothing : Remains::no_room;
    }
    bool place_word_and_break(Word word) { return put_down(word, true); }

    bool break_line() {
        // On purpose: after line 39 this goes on to line slot 40, not to the next member.
        velumo::next_line(place);
        end_line(ctx, place);
        return true;
    }

    Next next_line() {
        if (place.line < last_line) {
            velumo::next_line(place);
            return Next::line;
        }
        ChainPlace at{position, member, place};
        const bool moved = go_to_next_member(ctx, master, at);
        position = at.position;
        if (!moved) return Next::nowhere;
        member = at.member;
        place = at.place;
        return Next::object;
    }

    void finish() { object_at(ctx, member).number_of_lines = place.line; }

private:
    bool put_down(Word word, bool break_after) {
        if (position >= VEL_MAX_DEPENDENTS) return false;
        ChainPlace at{position, object_at(ctx, master).dep_objs[position], place};
        const i32 result = place_word_in_chain(ctx, master, at, word, break_after);
        position = at.position;
        place = at.place;
        if (result != -1 && shows_each_character_once(ctx)) member = at.member;
        return result != -1;
    }
};

} // namespace

bool go_to_next_member(vel_context &ctx, u32 master, ChainPlace &at) {
    object_at(ctx, at.member).number_of_lines = at.place.line;
    ++at.position;
    if (at.position >= VEL_MAX_DEPENDENTS) return false;
    at.member = object_at(ctx, master).dep_objs[at.position];
    if (at.member == 0 || object_at(ctx, at.member).type != VEL_TYPE_CHAIN) return false;
    at.place.text = buffer_of(ctx, object_at(ctx, at.member));
    if (at.place.text == 0) return false;
    at.place.line = 0;
    at.place.column = 0;
    end_line(ctx, at.place);
    return true;
}

i32 place_word_in_chain(vel_context &ctx, u32 master, ChainPlace &at, Word &word,
                        bool break_after) {
    return ChainWord(ctx, master, at, word, break_after).put_down();
}

u32 format_chain(vel_context &ctx, u32 master) {
    const FontsStay fonts_stay(ctx);
    const vel_object &head = object_at(ctx, master);
    const u32 first = head.dep_objs[0];
    if (head.type != VEL_TYPE_CHAIN || !is_member(ctx, first)) return 0;
    set_line_width_from_area(ctx, first);
    if (head.stream == nullptr || head.stream[0] == '\0') return 0;
    ChainLines lines{ctx, master, first, {buffer_of(ctx, object_at(ctx, first)), 0, 0}};
    LineBreaker(lines).run(head.stream);
    return lines.place.line;
}

} // namespace velumo
