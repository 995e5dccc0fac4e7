// The text that typing changes, and the cursor in it: one line in a label, or many in a text
// record. For the editor.
#pragma once

#include <cstring>

#include "text/lines.h"

namespace velumo {

// The bytes of a label or a text. Nothing is written outside of them, and the last stays a NUL.
class Characters {
public:
    Characters(char *start, u32 size) : start_(start), size_(size) {}

    const char *string() const { return start_; }
    u32 length() const { return static_cast<u32>(strnlen(start_, size_ - 1)); }
    char at(u32 index) const { return index < size_ ? start_[index] : '\0'; }

    void set(u32 index, char character) {
        if (index < size_) start_[index] = index == size_ - 1 ? '\0' : character;
    }
    // Move the characters from first to last, both included, by one place.
    void shift_right(u32 first, u32 last) {
        for (u32 k = last; k >= first && k != 0xFFFFFFFF; --k) set(k + 1, at(k));
    }
    void shift_left(u32 first, u32 last) {
        for (u32 k = first; k <= last && k < size_; ++k) set(k - 1, at(k));
    }

private:
    char *start_;
    u32 size_;
};

class EditedText {
public:
    virtual ~EditedText() = default;
    EditedText(const EditedText &) = delete;
    EditedText &operator=(const EditedText &) = delete;

    // The line that the cursor is in.
    virtual const char *line() const = 0;

    // Each returns whether anything changed; the cursor's line and column are then right again.
    virtual bool break_line() = 0;
    bool erase_before_cursor();
    bool erase_at_cursor();

    // Typing: whether there is room, and whether the cursor came to another line by it.
    virtual bool has_room() const = 0;
    virtual bool type(char character) = 0;
    // Comes last, when the cursor is shown where the character went.
    virtual void end_overwriting() {}

    // Moves that change no text; each returns whether there is such a place.
    virtual bool go_to_line_above() = 0;
    virtual bool go_to_line_below() = 0;
    enum class Right { stay, step, next_line };
    virtual Right right() const = 0;
    virtual void go_to_next_line() = 0;
    void step_right() { step(1); }
    void step_left() { step(0xFFFFFFFF); }

protected:
    EditedText(vel_context &ctx, Characters characters);

    bool inserts() const { return ctx_.insert_mode == 0; }
    u32 column_limit() const { return o_.max_chars - 1; }

    // Where the cursor is in the characters.
    virtual u32 &place() = 0;
    // After characters before the cursor have come or gone.
    virtual void follow_change() = 0;
    // One character on or back within the line.
    virtual void step(u32 distance) = 0;

    vel_context &ctx_;
    vel_object &o_;
    Characters characters_;

private:
    void close_gap(u32 first);
};

// The label of an entry field.
class FieldText final : public EditedText {
public:
    explicit FieldText(vel_context &ctx);

    const char *line() const override { return characters_.string(); }
    bool break_line() override { return false; }
    bool has_room() const override;
    bool type(char character) override;
    bool go_to_line_above() override { return false; }
    bool go_to_line_below() override { return false; }
    Right right() const override;
    void go_to_next_line() override {}

private:
    u32 &place() override { return o_.cursor_column; }
    void follow_change() override {}
    void step(u32 distance) override { o_.cursor_column += distance; }
};

// The text record of an object with many lines.
class LinesText final : public EditedText {
public:
    explicit LinesText(vel_context &ctx);

    const char *line() const override { return line_of(ctx_, text_, o_.cursor_line); }
    bool break_line() override;
    bool has_room() const override;
    bool type(char character) override;
    void end_overwriting() override;
    bool go_to_line_above() override;
    bool go_to_line_below() override;
    Right right() const override;
    void go_to_next_line() override;

private:
    u32 &index() { return ctx_.text_recs[text_].cursor_index; }
    u32 index() const { return ctx_.text_recs[text_].cursor_index; }
    u32 &place() override { return index(); }
    void follow_change() override;
    void step(u32 distance) override;
    // On purpose: a byte of the line buffer as it is, also after the end of the line.
    char byte_at(u32 column) const { return byte_of(ctx_, text_, o_.cursor_line, column); }
    bool has_line_below() const;
    void land_on_line();
    void leave_full_line();

    const u32 text_;
};

} // namespace velumo
