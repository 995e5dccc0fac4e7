// The steps that one character of a text passes on its way into a line.
#include "text/line_breaker.h"

namespace velumo {
namespace {

// Small umlauts of the DOS code pages.
// On purpose: capitals and the sharp s stay as they are.
char convert_umlaut(char character) {
    switch (static_cast<u8>(character)) {
    case 0x84:
        return '\xE4';
    case 0x94:
        return '\xF6';
    case 0x81:
        return '\xFC';
    default:
        return character;
    }
}

} // namespace

LineBreaker::LineBreaker(vel_context &ctx, u32 object, u32 text)
    : ctx_(ctx), object_(object), place_{text, 0, 0},
      converts_umlauts_(ctx.umlaut_conversion == 1) {}

u32 LineBreaker::run(const char *text, std::size_t length) {
    for (std::size_t k = 0; k <= length && has_room() && !finished_; ++k) {
        take(k < length ? text[k] : '\0');
    }
    return place_.line;
}

void LineBreaker::take(char character) {
    switch (character) {
    case '\0':
        end_of_text();
        break;
    case '\n':
        line_feed();
        break;
    case ' ':
        take_blank();
        break;
    default:
        take_word_character(character);
        break;
    }
    if (place_.column == last_column && !chain_ended_) {
        end_line(ctx_, place_);
        full_line();
    }
}

void LineBreaker::take_blank() {
    if (!in_spaces_) {
        in_spaces_ = true;
        if (!word_is_empty()) blank_after_word();
    }
    if (chain_ended_) return;
    if (place_.column < last_column && try_character(ctx_, object(), place_, ' ')) {
        ++place_.column;
    } else if (place_.line < last_line) {
        end_line(ctx_, place_);
        next_line(place_);
        start_line_with_blank();
    } else {
        blank_behind_last_line();
    }
}

void LineBreaker::take_word_character(char character) {
    in_spaces_ = false;
    if (word_length_ == most_word_characters) {
        place_word(0);
        clear_word();
        end_line(ctx_, place_);
    }
    word_[word_length_] = converts_umlauts_ ? convert_umlaut(character) : character;
    word_[++word_length_] = '\0';
}

void LineBreaker::clear_word() {
    word_length_ = 0;
    word_[0] = '\0';
}

void LineBreaker::start_line_with_blank() { copy_characters(ctx_, place_, " ", 1); }

} // namespace velumo
