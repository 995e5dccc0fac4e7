// Putting texts into objects and bringing them back to their start.
#include <cstring>

#include "model/file.h"
#include "text/lines.h"

namespace velumo {
namespace {

// What is longer than a text is cut.
void copy_text(const char *from, vel_text_rec &to) {
    if (from[0] == '\0') {
        to.text[0] = '\0';
    } else if (std::strlen(from) < VEL_TEXT_SIZE) {
        vel_copy_st_last_part(from, to.text);
    } else {
        vel_copy_st_first_part(VEL_TEXT_SIZE - 2, from, to.text);
    }
}

enum class Holder : u32 { label = 0, text = 1 };

} // namespace
} // namespace velumo

using namespace velumo;

uint32_t vel_load_window_text(vel_context *ctx, uint32_t object, const char *text) noexcept {
    const vel_object &o = object_at(*ctx, object);
    if (ctx->text_recs == nullptr) return 0;
    const u32 number = text_of(*ctx, o);
    clear_lines(*ctx, number, 0, std::min(o.number_of_lines, last_line + 1));
    copy_text(text, ctx->text_recs[number]);
    return vel_format_object_text(ctx, object);
}

uint32_t vel_load_window_text_buttons(vel_context *ctx, uint32_t object, const char *text,
                                      uint32_t button_a, uint32_t button_b) noexcept {
    vel_load_window_text(ctx, object, text);
    vel_format_small_obj(ctx, button_a);
    return vel_format_small_obj(ctx, button_b);
}

void vel_reset_textobject(vel_context *ctx, uint32_t mode, uint32_t object) noexcept {
    vel_object &o = object_at(*ctx, object);
    if (mode == static_cast<u32>(Holder::label)) {
        o.text_length = vel_get_lastposition_before_zero(o.label) + 1;
    } else if (mode == static_cast<u32>(Holder::text) && ctx->text_recs != nullptr) {
        vel_text_rec &text = ctx->text_recs[text_of(*ctx, o)];
        o.text_length = static_cast<u32>(strnlen(text.text, VEL_TEXT_SIZE));
        text.cursor_index = 0;
    }
    o.cursor_column = 0;
    o.cursor_line = 0;
    o.cursor_x = o.x + o.margin_left;
    o.cursor_y = o.y + o.margin_top;
}

uint32_t vel_fill_form_with_dummies(vel_context *ctx, const char *string, uint32_t object,
                                    uint32_t field_length, uint8_t fill_char) noexcept {
    const u32 length = vel_count_string_size_without_zero(string);
    if (length == 0 || field_length >= VEL_STRING_SIZE) return 0;
    if (length >= field_length) return length;
    vel_object &o = object_at(*ctx, object);
    const u32 filled = field_length - length;
    o.label[field_length] = '\0';
    std::memmove(o.label + filled, o.label, length);
    std::memset(o.label, fill_char, filled);
    o.text_length = field_length;
    return field_length;
}

char *vel_read_external_stream(const char *path) noexcept {
    // On purpose: a file that may not be written counts as missing, and no NUL is added.
    FileContent content = read_file(path, Access::read_write);
    return reinterpret_cast<char *>(content.memory.release());
}
