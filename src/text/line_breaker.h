// Breaks a text into lines, character by character. For text layout.
#pragma once

#include "text/words.h"

namespace velumo {

// The characters of a word that is not placed yet.
class WordBuffer {
public:
    bool is_empty() const { return length_ == 0; }
    bool is_full() const { return length_ == longest_word; }
    Word word() const { return {characters_, length_}; }

    void append(std::string_view characters) {
        std::copy(characters.begin(), characters.end(), characters_ + length_);
        length_ += static_cast<u32>(characters.size());
        characters_[length_] = '\0';
    }
    u32 room() const { return longest_word - length_; }
    void clear() {
        length_ = 0;
        characters_[0] = '\0';
    }

private:
    char characters_[longest_word + 1] = {};
    u32 length_ = 0;
};

// Small umlauts of the DOS code pages.
// On purpose: capitals and the sharp s stay as they are.
inline char umlaut_of(char character) {
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

// Where the flow of a text goes after a line.
enum class Next { line, object, nowhere };
// What becomes of the word buffer when its word was placed.
enum class Remains { nothing, the_word, no_room };

// The steps that each character passes. The target is what the lines belong to; it has
//   vel_context &ctx, Place place    where the next character goes
//   const vel_object &object()       whose font and line width measure
//   bool measures_words()            they measure the next word, too
//   bool has_room()                  whether another character is taken
//   Remains place_word(Word)
//   bool place_word_and_break(Word)  at a line feed; false ends the text
//   bool break_line()                the same without a word
//   Next next_line()                 leaves a full line
//   void finish()                    after the last line
//   stops_at_once                    without room, nothing more is done for the character at hand
template <class Target> class LineBreaker {
public:
    explicit LineBreaker(Target &target)
        : target_(target), converts_umlauts_(target.ctx.umlaut_conversion == 1) {}

    // Takes the characters of a text and its NUL, as long as there is room.
    void run(std::string_view text) {
        while (target_.has_room() && !finished_) {
            if (text.empty()) {
                take('\0');
                return;
            }
            const u32 start = start_of_word(text);
            const bool has_blank_behind = start < text.size() && text[start] == ' ';
            u32 count = has_blank_behind ? place_words(text) : 0;
            if (count == 0) {
                count = std::max(start, 1U);
                count == 1 ? take(text[0]) : append_to_word(text.substr(0, count));
            }
            text.remove_prefix(count);
        }
    }

private:
    Place &place() { return target_.place; }
    void end_line() { velumo::end_line(target_.ctx, place()); }

    // Words that need no further thought go all at once, and as they would go one by one.
    u32 place_words(std::string_view text) {
        if (!word_.is_empty() || converts_umlauts_ || !target_.measures_words()) return 0;
        return copy_whole_words(target_.ctx, target_.object(), place(), text);
    }

    // The characters at the front that go into the word one after the other, without any of them
    // placing it.
    u32 start_of_word(std::string_view text) const {
        const std::string_view front = text.substr(0, word_.room());
        const std::string_view line = front.substr(0, front.find('\n'));
        return static_cast<u32>(std::min(line.find(' '), line.size()));
    }

    void append_to_word(std::string_view characters) {
        in_blanks_ = false;
        char converted[longest_word];
        if (converts_umlauts_) {
            std::transform(characters.begin(), characters.end(), converted, umlaut_of);
            characters = {converted, characters.size()};
        }
        word_.append(characters);
    }

    void take(char character) {
        switch (character) {
        case '\0':
            end_text();
            break;
        case '\n':
            take_line_feed();
            break;
        case ' ':
            take_blank();
            break;
        default:
            take_word_character(character);
            break;
        }
        if (place().column == last_column && !(finished_ && Target::stops_at_once)) {
            end_line();
            leave_line();
        }
    }

    void end_text() {
        if (!word_.is_empty()) target_.place_word(word_.word());
        end_line();
        target_.finish();
        finished_ = true;
    }

    // On purpose: a line feed is no blank, so several of them give empty lines.
    void take_line_feed() {
        const bool ends_word = !in_blanks_ && !word_.is_empty();
        finished_ =
            !(ends_word ? target_.place_word_and_break(word_.word()) : target_.break_line());
        if (ends_word) word_.clear();
    }

    void take_blank() {
        if (!in_blanks_ && !word_.is_empty()) place_word_before_blank();
        in_blanks_ = true;
        if (finished_ && Target::stops_at_once) return;
        if (place().column < last_column &&
            try_character(target_.ctx, target_.object(), place(), ' ')) {
            ++place().column;
            return;
        }
        if (place().line > last_line) return;
        end_line();
        if (leave_line()) copy_characters(target_.ctx, place(), {" ", 1});
    }

    void place_word_before_blank() {
        switch (target_.place_word(word_.word())) {
        case Remains::nothing:
            word_.clear();
            break;
        // On purpose: a word that was split stays in the buffer and is placed once more, joined to
        // the next.
        case Remains::the_word:
            break;
        case Remains::no_room:
            finished_ = true;
            break;
        }
    }

    void take_word_character(char character) {
        if (word_.is_full()) {
            target_.place_word(word_.word());
            word_.clear();
            end_line();
        }
        append_to_word({&character, 1});
    }

    // False when there is no line to go to.
    bool leave_line() {
        const Next next = target_.next_line();
        if (next == Next::nowhere) finished_ = true;
        if (next == Next::object) word_.clear();
        return next != Next::nowhere;
    }

    Target &target_;
    WordBuffer word_;
    const bool converts_umlauts_;
    bool in_blanks_ = false;
    bool finished_ = false;
};

} // namespace velumo
