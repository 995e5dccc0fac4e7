// What comfortable typing remembers between two keys, kept with the context. For the editor and for
// drawing.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "velumo.h"

namespace velumo {

// The part of a text between the caret and the place where selecting began, as indexes into its
// characters. There is one selection at a time.
struct Selection {
    std::uint32_t owner = 0; // the field, the text or the head of a chain; 0 = nothing is selected
    std::uint32_t anchor = 0;
    std::uint32_t caret = 0;
    std::uint32_t goal_x =
        no_goal; // where moves up and down aim at, in pixels from the line's start

    static constexpr std::uint32_t no_goal = 0xFFFFFFFF;

    std::uint32_t first() const { return anchor < caret ? anchor : caret; }
    std::uint32_t end() const { return anchor < caret ? caret : anchor; }
    bool is_empty() const { return owner == 0 || anchor == caret; }
};

// One step of editing, which undo takes back.
struct Step {
    std::uint32_t at;
    std::string removed, inserted;
    std::uint32_t anchor, caret; // before it
};

// The steps of one field or text.
struct History {
    std::vector<Step> steps;
    std::size_t done = 0;  // steps that were not undone; the others can be done again
    std::size_t bytes = 0; // of the characters in the steps
    std::string known;     // the text as the last step left it
    bool is_open = false;  // the next character that is typed may join the last step
};

// Presses of the mouse at one place of a text.
struct Presses {
    std::chrono::milliseconds time{0};
    std::uint32_t owner = 0, index = 0, count = 0;
};

struct Refusal {
    std::uint32_t reason = VEL_REFUSED_NOTHING;
    std::uint32_t character = 0;
    std::chrono::milliseconds flash_ends{0}; // 0 = the caret does not flash
};

} // namespace velumo
