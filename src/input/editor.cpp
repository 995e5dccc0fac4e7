#include "input/editor.h"

#include <optional>

#include "input/edited_text.h"
#include "input/text_view.h"
#include "input/typing.h"
#include "model/traits.h"
#include "model/types.h"
#include "render/scene.h"

namespace velumo {
namespace {

// The keys: each moves the cursor or changes the text, and then settles what the object shows.
class Editor {
public:
    Editor(vel_context &ctx, EditedText &text)
        : ctx_(ctx), o_(object_at(ctx, ctx.cursor_object)), text_(text), view_(ctx, o_) {}

    void apply(u32 key) {
        switch (key) {
        case VEL_KEY_ENTER:
            enter();
            break;
        case VEL_KEY_UP:
            up();
            break;
        case VEL_KEY_DOWN:
            down();
            break;
        case VEL_KEY_RIGHT:
            right();
            break;
        case VEL_KEY_LEFT:
            left();
            break;
        case VEL_KEY_INSERT:
            ctx_.insert_mode = 1 - ctx_.insert_mode;
            break;
        case VEL_KEY_BACKSPACE:
            backspace();
            break;
        case VEL_KEY_DELETE:
            delete_character();
            break;
        default:
            break;
        }
        if (key <= last_character_code && ctx_.key_printable == 1) type(static_cast<char>(key));
    }

private:
    u32 x_after(u32 count) const { return view_.x_after(text_.line(), count); }

    void enter() {
        if (!text_.break_line()) return;
        // On purpose: here the text is shifted against the cursor, after Up and Down with it.
        view_.go_to_x(view_.origin_x(), o_.cursor_x - view_.origin_x());
        view_.go_down_to_line();
    }

    void up() {
        if (!text_.go_to_line_above()) return;
        follow_vertical_move();
        view_.go_up_to_line();
    }

    void down() {
        if (!text_.go_to_line_below()) return;
        follow_vertical_move();
        view_.go_down_to_line();
    }

    // On purpose: after a vertical move the cursor is drawn one character right of its column.
    void follow_vertical_move() {
        const u32 x = o_.cursor_column == 0 ? view_.x_at_margin() : x_after(o_.cursor_column + 1);
        view_.go_to_x(x, x - o_.cursor_x);
    }

    void right() {
        switch (text_.right()) {
        case EditedText::Right::step:
            view_.follow_right(x_after(o_.cursor_column + 1));
            text_.step_right();
            break;
        case EditedText::Right::next_line:
            text_.go_to_next_line();
            view_.go_to_x(view_.x_at_margin(), view_.x_at_margin() - o_.cursor_x);
            view_.go_down_to_line();
            break;
        case EditedText::Right::stay:
            break;
        }
    }

    // On purpose: Left never goes to the line before.
    void left() {
        if (o_.cursor_column == 0) return;
        const u32 x = x_after(o_.cursor_column - 1);
        view_.go_to_x(x, o_.cursor_x - x);
        text_.step_left();
    }

    void backspace() {
        if (!text_.erase_before_cursor()) return;
        view_.follow_backspace(x_after(o_.cursor_column), is_field(o_));
        view_.go_down_to_line();
    }

    void delete_character() {
        if (!text_.erase_at_cursor()) return;
        const u32 x = x_after(o_.cursor_column);
        view_.go_to_x(x, o_.cursor_x - x);
        view_.go_down_to_line();
    }

    void type(char character) {
        if (!text_.has_room()) return;
        if (text_.type(character)) view_.go_down_to_line();
        view_.follow_typing(x_after(o_.cursor_column));
        text_.end_overwriting();
    }

    vel_context &ctx_;
    vel_object &o_;
    EditedText &text_;
    TextView view_;
};

void apply_key(vel_context &ctx, EditedText &&text) {
    Editor(ctx, text).apply(ctx.final_key);
    ctx.final_key = VEL_KEY_NONE;
    ctx.key_printable = 0;
    show_edited_window(ctx);
}

} // namespace

void edit_text(vel_context &ctx) {
    if (has_comfort(ctx, VEL_COMFORT_TYPING)) {
        type_key(ctx);
        return;
    }
    if (ctx.final_key == VEL_KEY_NONE || ctx.cursor_object == 0) return;
    const vel_object &o = object_at(ctx, ctx.cursor_object);
    if (is_field(o)) {
        apply_key(ctx, FieldText(ctx));
    } else if (has_paragraphs(o) && text_of(ctx, o) != 0 && buffer_of(ctx, o) != 0) {
        apply_key(ctx, LinesText(ctx));
    }
}

} // namespace velumo
