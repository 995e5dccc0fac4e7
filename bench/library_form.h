// The office form on the library, in tables made by hand. For library.cpp.
//
// Three things differ from the description, because the library does not have them otherwise:
// windows begin at x 11 and y 25 at the least, so the first and the last one are moved; an object
// has one border of one colour; and the 40 lines of the text area, 2,400 characters, stand in the
// line buffer without a text behind them, which would take 999.
#pragma once

#include <cstddef>

#include <velumo.h>

#include "display.h"

namespace office {

class LibraryForm {
public:
    // What the text area holds. The long text is the 998 characters that a key is added to.
    enum class Area { forty_lines, long_text };

    LibraryForm(const Display &display, Area kind);
    ~LibraryForm() { vel_close(&ctx); } // the display, too
    LibraryForm(const LibraryForm &) = delete;
    LibraryForm &operator=(const LibraryForm &) = delete;

    // Opens the windows, and with the long text puts the caret into it.
    void show();

    // The desk, which is the program's to paint, and all objects.
    void redraw();

    // Presses and releases a key, and returns when the library has done all that follows.
    void strike(SDLKey key);

    // Strikes a letter and Backspace in turn.
    void strike_next();

    // Fills the area with a text, without formatting it.
    void set_text(const std::string &text);
    std::string text() const { return ctx.text_recs[1].text; }

    std::size_t table_bytes() const;

    vel_context ctx{};
    std::uint32_t area = 0;

private:
    vel_object &append(const Item &item, std::uint32_t type, std::uint32_t fill);
    void add(Item item);
    void add_window(const Item &item);
    void add_label(const Item &item, std::uint32_t fill, std::uint32_t left, std::uint32_t top);
    void add_entry(const Item &item);
    void add_button(const Item &item);
    void add_frame_button(const Item &item);
    void add_picture(const Item &item);
    void add_text_area(const Item &item);
    void place_caret();

    const Area kind_;
    std::vector<std::uint32_t> windows_;
    int shift_x_ = 0, shift_y_ = 0; // of the last window and what is in it
    bool letter_is_next_ = true;
};

} // namespace office
