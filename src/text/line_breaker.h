// Breaking a text into lines, character by character. The rules that single objects and chains
// share are here; each derives its own. For text layout.
#pragma once

#include "text/words.h"

namespace velumo {

class LineBreaker {
public:
    virtual ~LineBreaker() = default;
    LineBreaker(const LineBreaker &) = delete;
    LineBreaker &operator=(const LineBreaker &) = delete;

    // Takes the characters of a text and its NUL, as long as there is room. Returns the line
    // reached.
    u32 run(const char *text, std::size_t length);

protected:
    static constexpr u32 most_word_characters = 70;

    LineBreaker(vel_context &ctx, u32 object, u32 text);

    // What differs between single objects and chains.
    virtual bool has_room() const = 0;
    virtual i32 place_word(u32 break_after) = 0;
    virtual void end_of_text() = 0;
    virtual void line_feed() = 0;
    virtual void blank_after_word() = 0;
    virtual void blank_behind_last_line() = 0;
    virtual void full_line() = 0;

    bool word_is_empty() const { return word_length_ == 0; }
    void clear_word();
    void start_line_with_blank();
    const vel_object &object() const { return object_at(ctx_, object_); }

    vel_context &ctx_;
    u32 object_; // whose font and line width measure
    Place place_;
    char word_[most_word_characters + 1] = {};
    u32 word_length_ = 0;
    bool in_spaces_ = false;
    bool finished_ = false;
    bool chain_ended_ = false; // nothing more is written, not even the character at hand

private:
    void take(char character);
    void take_blank();
    void take_word_character(char character);

    const bool converts_umlauts_;
};

} // namespace velumo
