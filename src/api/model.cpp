// The exported functions of the model: start-up, shutdown, strings and numbers.
#include <cstdio>
#include <cstdlib>

#include "api/calls.h"
#include "model/numbers.h"
#include "model/start.h"
#include "model/strings.h"
#include "parts/part.h"
#include "window/whole.h"

using namespace velumo;

namespace {

// Without memory for them, parts that have not started yet show what their records say.
i32 load_and_start(vel_context &ctx, const Form &form) {
    const i32 result = load(ctx, form);
    if (result != VEL_OK) return result;
    start_whole_windows(ctx);
    in_form(&ctx, start_parts);
    return result;
}

} // namespace

void vel_start_velumo(vel_context *ctx, uint32_t extra_objs, uint32_t extra_texts,
                      const char *form_path, const char *text_path) noexcept {
    if (ctx == nullptr) return;
    const i32 result = load_and_start(*ctx, {.spare_objects = extra_objs,
                                             .spare_texts = extra_texts,
                                             .form_path = or_empty(form_path),
                                             .text_path = or_empty(text_path),
                                             .access = Access::read_write,
                                             .font_messages = FontMessages::print});
    if (result == VEL_OK) return;
    // On purpose: the second message has a line end of its own before that of puts, and a missing
    // file ends the process with success.
    std::puts(result == VEL_ERROR_TEXT_FILE ? "Can't open file !\n" : "Can't open file.");
    std::exit(EXIT_SUCCESS);
}

int32_t vel_load_forms(vel_context *ctx, uint32_t extra_objs, uint32_t extra_texts,
                       const char *form_path, const char *text_path) noexcept {
    if (ctx == nullptr || form_path == nullptr || text_path == nullptr) return VEL_ERROR_ARGUMENT;
    return load_and_start(*ctx, {.spare_objects = extra_objs,
                                 .spare_texts = extra_texts,
                                 .form_path = form_path,
                                 .text_path = text_path,
                                 .access = Access::read_only,
                                 .font_messages = FontMessages::keep_quiet});
}

int32_t vel_load_forms_from_memory(vel_context *ctx, uint32_t extra_objs, uint32_t extra_texts,
                                   const vel_form_data *data) noexcept {
    const bool is_given = ctx != nullptr && data != nullptr && data->form != nullptr &&
                          (data->files != nullptr || data->file_count == 0);
    if (!is_given) return VEL_ERROR_ARGUMENT;
    Form form = form_in_memory(*data);
    form.spare_objects = extra_objs;
    form.spare_texts = extra_texts;
    return load_and_start(*ctx, form);
}

const char *vel_error_text(int32_t code) noexcept { return error_text(code); }

int32_t vel_load_object_images(vel_context *ctx, uint32_t first) noexcept {
    return in_form(ctx, load_images, first);
}

int32_t vel_load_object_fonts(vel_context *ctx, uint32_t first) noexcept {
    return in_form(ctx, load_fonts, first, FontMessages::print);
}

void vel_close(vel_context *ctx) noexcept {
    if (ctx != nullptr) close(*ctx);
}

uint32_t vel_strcmp(const char *a, const char *b, uint32_t n) noexcept {
    return static_cast<u32>(compare(or_empty(a), or_empty(b), n));
}

uint32_t vel_count_string_size_without_zero(const char *string) noexcept {
    return length_of(or_empty(string));
}

uint32_t vel_get_lastposition(const char *string) noexcept { return length_of(or_empty(string)); }

uint32_t vel_get_lastposition_before_zero(const char *string) noexcept {
    // On purpose: an empty string wraps to 0xFFFFFFFF, and callers add one to get the length back.
    return length_of(or_empty(string)) - 1;
}

void vel_copy_st_first_part(uint32_t n, const char *source, char *destination) noexcept {
    if (destination != nullptr) copy_up_to(n, or_empty(source), destination);
}

uint32_t vel_copy_st_last_part(const char *source, char *destination) noexcept {
    return are_given(source, destination) ? copy_nonempty(source, destination) : 0;
}

int32_t vel_transform_int_to_asccii(int32_t digit, char *destination) noexcept {
    return destination != nullptr && digit_to_character(digit, *destination) ? 1 : -1;
}

int32_t vel_transform_ascii_to_int(uint32_t *destination, const char *character) noexcept {
    u32 digit = 0;
    const bool is_digit = character != nullptr && character_to_digit(*character, digit);
    write(destination, digit);
    return is_digit ? 1 : -1;
}

void vel_transform_str_to_num(const char *string, uint32_t *destination) noexcept {
    write(destination, string_to_number(or_empty(string)));
}

int32_t vel_transform_num_to_str(const uint32_t *value, char *destination) noexcept {
    return are_given(value, destination) ? number_to_string(*value, destination) : 0;
}

uint32_t vel_zehnerpotenz(uint32_t exponent) noexcept { return power_of_ten(exponent); }
