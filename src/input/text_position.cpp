#include "input/text_position.h"

#include "text/lines.h"

namespace velumo {
namespace {

// Steps through the formatted lines of a text and its characters side by side. Formatting reaches
// line slot 40 at most; an index beyond it would only lead through the lines of other texts.
class LineWalk {
public:
    LineWalk(const vel_context &ctx, const vel_object &object, u32 text)
        : ctx_(ctx), last_(std::min(object.number_of_lines, last_line + 1)), text_(text),
          characters_(ctx.text_recs[text].text), at_(line_of(ctx, text, 0)) {}

    bool is_after_last_line() const { return line > last_; }

    // On purpose: the break that ends a paragraph is a character of the text, and one that
    // formatting made is none.
    void step() {
        if (at_[column] != '\0') {
            ++column;
            ++index;
            return;
        }
        at_ = line_of(ctx_, text_, ++line);
        column = 0;
        if (index < VEL_TEXT_SIZE && characters_[index] == '\n') ++index;
    }

    u32 index = 0, line = 0, column = 0;

private:
    const vel_context &ctx_;
    const u32 last_, text_;
    const char *characters_;
    const char *at_;
};

// Walks until found is true after a step.
template <class Found, class Store> void find(vel_context &ctx, Found found, Store store) {
    const vel_object &o = object_at(ctx, ctx.cursor_object);
    LineWalk walk(ctx, o, text_of(ctx, o));
    while (!walk.is_after_last_line()) {
        walk.step();
        if (found(walk)) {
            store(walk);
            return;
        }
    }
}

} // namespace

void find_cursor_index(vel_context &ctx) {
    const vel_object &o = object_at(ctx, ctx.cursor_object);
    const u32 text = text_of(ctx, o);
    if (text == 0) return;
    u32 &index = ctx.text_recs[text].cursor_index;
    if (o.cursor_line == 0 && o.cursor_column == 0) {
        index = 0;
        return;
    }
    find(
        ctx,
        [&o](const LineWalk &walk) {
            return walk.line == o.cursor_line && walk.column == o.cursor_column;
        },
        [&index](const LineWalk &walk) { index = walk.index; });
}

void find_cursor_line(vel_context &ctx) {
    vel_object &o = object_at(ctx, ctx.cursor_object);
    const u32 text = text_of(ctx, o);
    if (text == 0) return;
    const u32 index = ctx.text_recs[text].cursor_index;
    if (index == 0) {
        o.cursor_line = 0;
        o.cursor_column = 0;
        return;
    }
    // On purpose: the test follows the step, so an index where formatting broke a line is the end
    // of that line, not the start of the next.
    find(
        ctx, [index](const LineWalk &walk) { return walk.index == index; },
        [&o](const LineWalk &walk) {
            o.cursor_line = walk.line;
            o.cursor_column = walk.column;
        });
}

} // namespace velumo
