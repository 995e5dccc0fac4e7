#include "text/loading.h"

#include <cstring>

#include "model/strings.h"
#include "text/format.h"
#include "text/lines.h"

namespace velumo {
namespace {

// What is longer than a text is cut.
void copy_text(const char *from, vel_text_rec &to) {
    if (from[0] == '\0') {
        to.text[0] = '\0';
    } else if (std::strlen(from) < VEL_TEXT_SIZE) {
        copy_nonempty(from, to.text);
    } else {
        copy_up_to(VEL_TEXT_SIZE - 2, from, to.text);
    }
}

} // namespace

u32 load_text(vel_context &ctx, u32 number, const char *text) {
    const vel_object &o = object_at(ctx, number);
    if (ctx.text_recs == nullptr) return 0;
    const u32 record = text_of(ctx, o);
    // On purpose: a count of 40 also clears line slot 40, the first line of the next text.
    clear_lines(ctx, record, 0, std::min(o.number_of_lines, last_line + 1));
    copy_text(text, ctx.text_recs[record]);
    return format_text(ctx, number);
}

void reset_text(vel_context &ctx, u32 number, Holder holder) {
    vel_object &o = object_at(ctx, number);
    if (holder == Holder::label) {
        o.text_length = static_cast<u32>(strnlen(o.label, VEL_STRING_SIZE - 1));
    } else if (holder == Holder::text && ctx.text_recs != nullptr) {
        vel_text_rec &text = ctx.text_recs[text_of(ctx, o)];
        o.text_length = static_cast<u32>(strnlen(text.text, VEL_TEXT_SIZE - 1));
        text.cursor_index = 0;
    }
    o.cursor_column = 0;
    o.cursor_line = 0;
    o.cursor_x = o.x + o.margin_left;
    o.cursor_y = o.y + o.margin_top;
}

u32 fill_label(vel_object &o, u32 length, u32 field_length, u8 fill) {
    if (length == 0 || field_length >= VEL_STRING_SIZE) return 0;
    if (length >= field_length) return length;
    const u32 filled = field_length - length;
    o.label[field_length] = '\0';
    std::memmove(o.label + filled, o.label, length);
    std::memset(o.label, fill, filled);
    o.text_length = field_length;
    return field_length;
}

} // namespace velumo
