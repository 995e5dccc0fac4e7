// The flow of one stream of text through a chain of objects.
#include <cstdio>
#include <cstring>

#include "render/geometry.h"
#include "text/line_breaker.h"

namespace velumo {
namespace {

// A place in a chain: a member by its position in the master's list, and a place in its text.
struct ChainPlace {
    u32 position, member;
    Place place;
};

bool is_member(const vel_context &ctx, u32 object) {
    const vel_object &o = object_at(ctx, object);
    return object != 0 && o.type == VEL_TYPE_CHAIN && buffer_of(ctx, o) != 0;
}

// What is left behind keeps the number of its lines. A member that is none ends the chain; then
// position, member and text are those of the failed attempt.
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

// Places one word, going on to following members where lines run out.
class ChainWord {
public:
    ChainWord(vel_context &ctx, u32 master, ChainPlace &at, const char *word, u32 &length,
              u32 break_after)
        : ctx_(ctx), master_(master), at_(at), word_(word), length_(length),
          breaks_(break_after == 1) {}

    i32 put_down() {
        set_missing_line_width(object_at(ctx_, at_.member));
        switch (fit_of(ctx_, at_.member, word_, at_.place.line, at_.place.column, length_)) {
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

    // The line behind the word; result when the place does not leave the member.
    i32 break_line(i32 result) {
        if (is_last_line()) return move();
        start_next_line();
        return result;
    }

    void copy() {
        copy_characters(ctx_, at_.place, word_, length_);
        length_ = 0;
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
        length_ = 0;
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
        // later stands behind it, unmeasured and unseen.
        for (u32 k = 0; k <= length_ && at_.place.column < last_column;) {
            const bool fits = try_character(ctx_, object_at(ctx_, at_.member), at_.place, word_[k]);
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
    const char *word_;
    u32 &length_;
    const bool breaks_;
};

// The rules of a chain, which goes on in its next member when the 40 lines of one are full.
// On purpose: object_ is the member of the flow's own moves. Moves within a word change the place
// and not object_, so that blanks are then measured, and the last line counted, with a member that
// was left.
class ChainLines final : public LineBreaker {
public:
    ChainLines(vel_context &ctx, u32 master, u32 first, u32 text)
        : LineBreaker(ctx, first, text), master_(master) {}

private:
    bool has_room() const override { return true; }

    i32 place_word(u32 break_after) override {
        return vel_copy_word_big(&ctx_, master_, &position_, &place_.text, word_, &place_.line,
                                 &place_.column, &word_length_, break_after);
    }

    void end_of_text() override {
        if (!word_is_empty()) place_word(0);
        end_line(ctx_, place_);
        object_at(ctx_, object_).number_of_lines = place_.line;
        finished_ = true;
    }

    void line_feed() override {
        if (!in_spaces_ && !word_is_empty()) {
            placed_ = place_word(1);
        } else if (word_is_empty()) {
            // On purpose: behind line 39 this goes on to line slot 40, not to the next member.
            next_line(place_);
            end_line(ctx_, place_);
        }
        if (placed_ == -1) end_chain();
    }

    void blank_after_word() override {
        placed_ = place_word(0);
        if (placed_ == -1) end_chain();
    }

    void blank_behind_last_line() override {
        if (place_.line == last_line && go_on()) start_line_with_blank();
    }

    void full_line() override {
        if (place_.line < last_line) {
            next_line(place_);
        } else {
            go_on();
        }
    }

    bool go_on() {
        ChainPlace at{position_, object_, place_};
        const bool moved = go_to_next_member(ctx_, master_, at);
        position_ = at.position;
        if (moved) {
            object_ = at.member;
            place_ = at.place;
            clear_word();
        } else {
            end_chain();
        }
        return moved;
    }

    void end_chain() {
        finished_ = true;
        chain_ended_ = true;
    }

    const u32 master_;
    u32 position_ = 0;
    i32 placed_ = 0; // result of the last word placed at a line feed or blank
};

} // namespace
} // namespace velumo

using namespace velumo;

uint32_t vel_format_stream_to_linked_objects(vel_context *ctx, uint32_t master) noexcept {
    const vel_object &head = object_at(*ctx, master);
    const u32 first = head.dep_objs[0];
    if (head.type != VEL_TYPE_CHAIN || !is_member(*ctx, first)) return 0;
    vel_object &member = object_at(*ctx, first);
    if (member.line_width == 0) {
        const Span area = text_limits(*ctx, first).x;
        member.line_width = area.after - area.before - 1;
    }
    if (head.stream == nullptr || head.stream[0] == '\0') return 0;
    return ChainLines(*ctx, master, first, buffer_of(*ctx, member))
        .run(head.stream, std::strlen(head.stream));
}

int32_t vel_copy_word_big(vel_context *ctx, uint32_t master, uint32_t *chain_position,
                          uint32_t *text_index, const char *word, uint32_t *line, uint32_t *column,
                          uint32_t *word_length, uint32_t break_after) noexcept {
    if (*chain_position >= VEL_MAX_DEPENDENTS) return -1;
    const u32 member = object_at(*ctx, master).dep_objs[*chain_position];
    ChainPlace at{*chain_position, member, {*text_index, *line, *column}};
    const i32 result = ChainWord(*ctx, master, at, word, *word_length, break_after).put_down();
    *chain_position = at.position;
    *text_index = at.place.text;
    *line = at.place.line;
    *column = at.place.column;
    return result;
}

int32_t vel_go_to_next_chainmember(vel_context *ctx, uint32_t master, uint32_t *chain_position,
                                   uint32_t *member, uint32_t *text_index, uint32_t *line,
                                   uint32_t *column) noexcept {
    ChainPlace at{*chain_position, *member, {*text_index, *line, *column}};
    const bool moved = go_to_next_member(*ctx, master, at);
    *chain_position = at.position;
    *member = at.member;
    *text_index = at.place.text;
    *line = at.place.line;
    *column = at.place.column;
    return moved ? 0 : 1;
}
