// The exported functions of characters, of text layout and of putting texts into objects.
#include "api/calls.h"
#include "model/file.h"
#include "model/strings.h"
#include "text/encoding.h"
#include "text/flow.h"
#include "text/format.h"
#include "text/loading.h"

using namespace velumo;

namespace {

std::span<char> room_at(char *bytes, size_t size) { return {bytes, bytes == nullptr ? 0 : size}; }

size_t report(Lost lost, size_t *first_lost) {
    write(first_lost, lost.first);
    return lost.characters;
}

} // namespace

size_t vel_from_utf8(const char *utf8, char *latin1, size_t size, size_t *first_lost) noexcept {
    return report(copy_as_latin1(or_empty(utf8), room_at(latin1, size)), first_lost);
}

size_t vel_to_utf8(const char *latin1, char *utf8, size_t size, size_t *first_lost) noexcept {
    return report(copy_as_utf8(or_empty(latin1), room_at(utf8, size)), first_lost);
}

uint32_t vel_format_object_text(vel_context *ctx, uint32_t object) noexcept {
    return in_form(ctx, format_text, object);
}

int32_t vel_copy_word_into_line(vel_context *ctx, uint32_t object, const char *word, uint32_t *line,
                                uint32_t *column, uint32_t *word_length,
                                uint32_t break_after) noexcept {
    if (!are_given(word, line, column, word_length)) return -1;
    return in_form_or(i32{-1}, ctx, [=](vel_context &c) {
        vel_object &o = object_at(c, object);
        Place place{buffer_of(c, o), *line, *column};
        const Placed result = place_word(c, o, {word, *word_length}, place, break_after == 1);
        *line = place.line;
        *column = place.column;
        return static_cast<i32>(result);
    });
}

uint32_t vel_check_line_volume(const vel_context *ctx, uint32_t object, const char *word,
                               const uint32_t *line, const uint32_t *column,
                               const uint32_t *word_length) noexcept {
    if (!are_given(word, line, column, word_length)) return 0;
    return in_form(ctx, [=](const vel_context &c) {
        const Place place{0, *line, *column};
        return static_cast<u32>(fit_of(c, object_at(c, object), {word, *word_length}, place));
    });
}

uint32_t vel_format_small_obj(vel_context *ctx, uint32_t object) noexcept {
    return in_form(ctx, format_caption, object);
}

uint32_t vel_format_stream_to_linked_objects(vel_context *ctx, uint32_t master) noexcept {
    return in_form(ctx, format_chain, master);
}

int32_t vel_copy_word_big(vel_context *ctx, uint32_t master, uint32_t *chain_position,
                          uint32_t *text_index, const char *word, uint32_t *line, uint32_t *column,
                          uint32_t *word_length, uint32_t break_after) noexcept {
    if (!are_given(word, chain_position, text_index, line, column, word_length)) return -1;
    return in_form_or(i32{-1}, ctx, [=](vel_context &c) {
        if (*chain_position >= VEL_MAX_DEPENDENTS) return -1;
        const u32 member = object_at(c, master).dep_objs[*chain_position];
        ChainPlace at{*chain_position, member, {*text_index, *line, *column}};
        Word whole{word, *word_length};
        const i32 result = place_word_in_chain(c, master, at, whole, break_after == 1);
        *chain_position = at.position;
        *text_index = at.place.text;
        *line = at.place.line;
        *column = at.place.column;
        *word_length = whole.length;
        return result;
    });
}

int32_t vel_go_to_next_chainmember(vel_context *ctx, uint32_t master, uint32_t *chain_position,
                                   uint32_t *member, uint32_t *text_index, uint32_t *line,
                                   uint32_t *column) noexcept {
    if (!are_given(chain_position, member, text_index, line, column)) return 1;
    return in_form_or(i32{1}, ctx, [=](vel_context &c) {
        ChainPlace at{*chain_position, *member, {*text_index, *line, *column}};
        const bool moved = go_to_next_member(c, master, at);
        *chain_position = at.position;
        *member = at.member;
        *text_index = at.place.text;
        *line = at.place.line;
        *column = at.place.column;
        return moved ? 0 : 1;
    });
}

uint32_t vel_load_window_text(vel_context *ctx, uint32_t object, const char *text) noexcept {
    return in_form(ctx, load_text, object, or_empty(text));
}

uint32_t vel_load_window_text_buttons(vel_context *ctx, uint32_t object, const char *text,
                                      uint32_t button_a, uint32_t button_b) noexcept {
    in_form(ctx, load_text, object, or_empty(text));
    in_form(ctx, format_caption, button_a);
    return in_form(ctx, format_caption, button_b);
}

void vel_reset_textobject(vel_context *ctx, uint32_t mode, uint32_t object) noexcept {
    in_form(ctx, reset_text, object, Holder{mode});
}

uint32_t vel_fill_form_with_dummies(vel_context *ctx, const char *string, uint32_t object,
                                    uint32_t field_length, uint8_t fill_char) noexcept {
    return in_form(ctx, [=](vel_context &c) {
        return fill_label(object_at(c, object), length_of(or_empty(string)), field_length,
                          fill_char);
    });
}

char *vel_read_external_stream(const char *path) noexcept {
    // On purpose: a file that may not be written counts as missing.
    FileContent content = read_file(or_empty(path), Access::read_write);
    return reinterpret_cast<char *>(content.memory.release());
}
