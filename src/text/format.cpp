// Formatting of the texts and captions of single objects.
#include <cstring>

#include "render/geometry.h"
#include "text/line_breaker.h"

namespace velumo {
namespace {

// The rules of an object that has its 40 lines and no others.
class ObjectLines final : public LineBreaker {
public:
    ObjectLines(vel_context &ctx, u32 object, u32 text) : LineBreaker(ctx, object, text) {}

private:
    bool has_room() const override { return place_.line <= last_line; }

    i32 place_word(u32 break_after) override {
        return vel_copy_word_into_line(&ctx_, object_, word_, &place_.line, &place_.column,
                                       &word_length_, break_after);
    }

    void end_of_text() override {
        if (!word_is_empty()) place_word(0);
        end_line(ctx_, place_);
        finished_ = true;
    }

    void line_feed() override {
        const bool ends_word = !in_spaces_ && !word_is_empty();
        if (ends_word) place_word(0);
        end_line(ctx_, place_);
        if (place_.line < last_line && ends_word) clear_word();
        full_line();
    }

    void blank_after_word() override {
        const i32 placed = place_word(0);
        if (placed == -1) finished_ = true;
        // On purpose: a word that was split stays in the buffer and is placed once more, joined to
        // the next.
        if (placed == 0) {
            clear_word();
            end_line(ctx_, place_);
        }
    }

    void blank_behind_last_line() override { finished_ = true; }

    void full_line() override {
        if (place_.line < last_line) {
            next_line(place_);
        } else {
            finished_ = true;
        }
    }
};

bool has_formatted_text(const vel_object &o) {
    return o.type == VEL_TYPE_WINDOW || o.type == VEL_TYPE_TEXT;
}

// Half of what is free beside a caption goes to a margin, when it is more than 2 pixels.
bool centre(u32 size, int caption, u32 &margin) {
    const i32 free = as_signed(size - static_cast<u32>(caption));
    if (free <= 2) return false;
    margin = static_cast<u32>(free / 2);
    return true;
}

u32 centre_caption(vel_object &o, TTF_Font *font) {
    int width = 0;
    int height = 0;
    if (font != nullptr) TTF_SizeText(font, o.label, &width, &height);
    const bool across = centre(o.width, width, o.margin_left);
    const bool down = centre(o.height, height, o.margin_top);
    // On purpose: centring vertically hides whether it was done horizontally as well.
    if (down) return 2;
    return across ? 1 : 0;
}

} // namespace
} // namespace velumo

using namespace velumo;

uint32_t vel_format_object_text(vel_context *ctx, uint32_t object) noexcept {
    vel_object &o = object_at(*ctx, object);
    const u32 text = text_of(*ctx, o);
    if (!has_formatted_text(o) || text == 0 || buffer_of(*ctx, o) == 0) return 0;
    if (o.line_width == 0) {
        const Span area = text_limits(*ctx, object).x;
        o.line_width = area.after - area.before - 1;
    }
    const char *characters = ctx->text_recs[text].text;
    const std::size_t length = strnlen(characters, VEL_TEXT_SIZE);
    clear_lines(*ctx, text, 0, last_line);
    // On purpose: an emptied text keeps its number of lines.
    if (length == 0) return 0;
    o.number_of_lines = ObjectLines(*ctx, object, text).run(characters, length);
    clear_lines(*ctx, text, o.number_of_lines + 1, last_line);
    return o.number_of_lines;
}

uint32_t vel_format_small_obj(vel_context *ctx, uint32_t object) noexcept {
    vel_object &o = object_at(*ctx, object);
    if (o.label[0] == '\0') return 0;
    const std::size_t length = strnlen(o.label, VEL_STRING_SIZE);
    if (void *feed = std::memchr(o.label, '\n', length)) *static_cast<char *>(feed) = '\0';
    switch (o.type) {
    case VEL_TYPE_LABEL:
        return centre_caption(o, font_of(*ctx, o));
    case VEL_TYPE_ENTRY:
    case VEL_TYPE_NUMBER:
        return 3;
    default:
        return 0;
    }
}
