#include "text/format.h"

#include <cstring>

#include "model/traits.h"
#include "model/types.h"
#include "render/limits.h"
#include "text/fonts.h"
#include "text/line_breaker.h"
#include "text/line_width.h"

namespace velumo {
namespace {

// The lines of an object that has its 40 and no others.
struct ObjectLines {
    // On purpose: after a word without room the blank that follows it is still appended.
    static constexpr bool stops_at_once = false;

    vel_context &ctx;
    vel_object &o;
    Place place;

    const vel_object &object() const { return o; }
    static bool measures_words() { return true; }
    bool has_room() const { return place.line <= last_line; }

    Remains place_word(Word word) {
        switch (velumo::place_word(ctx, o, word, place, false)) {
        case Placed::whole:
            return Remains::nothing;
        case Placed::split:
            return shows_each_character_once(ctx) ? Remains::nothing : Remains::the_word;
        case Placed::out_of_lines:
            break;
        }
        return Remains::no_room;
    }

    bool place_word_and_break(Word word) {
        place_word(word);
        return break_line();
    }

    bool break_line() {
        end_line(ctx, place);
        return next_line() != Next::nowhere;
    }

    Next next_line() {
        if (place.line >= last_line) return Next::nowhere;
        velumo::next_line(place);
        return Next::line;
    }

    void finish() {}
};

// Half of what a caption leaves free goes to a margin, when it is more than 2 pixels.
bool centre(u32 size, int caption, u32 &margin) {
    const i32 free = as_signed(size - static_cast<u32>(caption));
    if (free <= 2) return false;
    margin = static_cast<u32>(free / 2);
    return true;
}

// A caption that the form wants on the left keeps its margin, and one on the right goes up to the
// other.
bool place_across(vel_object &o, int width, i32 align) {
    if (align == align_centre) return centre(o.width, width, o.margin_left);
    const u32 left = o.width - o.margin_right - static_cast<u32>(width);
    if (align == align_right && as_signed(left) >= 0) o.margin_left = left;
    return align == align_right;
}

u32 place_caption(vel_object &o, TTF_Font *font, i32 align) {
    int width = 0;
    int height = 0;
    if (font != nullptr) TTF_SizeText(font, o.label, &width, &height);
    const bool across = place_across(o, width, align);
    const bool down = centre(o.height, height, o.margin_top);
    // On purpose: centring vertically hides whether it was done horizontally as well.
    if (down) return 2;
    return across ? 1 : 0;
}

} // namespace

u32 format_text(vel_context &ctx, u32 number) {
    const FontsStay fonts_stay(ctx);
    vel_object &o = object_at(ctx, number);
    const u32 text = text_of(ctx, o);
    if (!has_paragraphs(o) || text == 0 || buffer_of(ctx, o) == 0) return 0;
    set_line_width_from_area(ctx, number);
    const char *characters = ctx.text_recs[text].text;
    const std::size_t length = strnlen(characters, VEL_TEXT_SIZE);
    clear_lines(ctx, text, 0, last_line);
    // On purpose: an emptied text keeps its number of lines.
    if (length == 0) return 0;
    ObjectLines lines{ctx, o, {text, 0, 0}};
    LineBreaker(lines).run({characters, length});
    o.number_of_lines = lines.place.line;
    clear_lines(ctx, text, o.number_of_lines + 1, last_line);
    return o.number_of_lines;
}

u32 format_caption(vel_context &ctx, u32 number) {
    vel_object &o = object_at(ctx, number);
    if (o.label[0] == '\0') return 0;
    const std::size_t length = strnlen(o.label, VEL_STRING_SIZE);
    // On purpose: the rest of the label is lost, and umlauts are not converted here.
    if (void *feed = std::memchr(o.label, '\n', length)) *static_cast<char *>(feed) = '\0';
    if (is_field(o)) return 3;
    if (!has_caption(o)) return 0;
    const u32 placed = place_caption(o, font_of(ctx, o), traits_of(ctx, number).align);
    // Its margins limit its dependents.
    if (placed != 0) forget_master(ctx, number);
    return placed;
}

} // namespace velumo
