// What the library keeps for itself about a context. For every subsystem.
#pragma once

#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "model/kept.h"
#include "model/lists.h"
#include "model/shared_clipboard.h"
#include "model/typing.h"

namespace velumo {

// What a form says of an object beyond its record.
struct Traits {
    bool disabled = false;
    bool password = false;                  // a field shows dots
    std::uint32_t answer = VEL_ANSWER_NONE; // one of vel_answer
    char key = '\0'; // with Alt it reaches the object; a small letter or digit
    bool many = false, endless = false;
    std::int32_t part = 0, target = 0, group = 0, align = 0, anchor = 0;
    std::int32_t least = 0, most = 100, step = 1, value = 0;
    std::string tip;
};

// What an object is a part of (Traits::part), as model/traits.inc numbers them.
enum Part : std::int32_t {
    no_part,
    check_part,
    radio_part,
    list_part,
    scroll_bar_part,
    choice_part,
    slider_part,
    progress_part,
    tabs_part,
    tip_label_part, // the one object that shows the tips of a form
    whole_part      // covers the screen
};
enum Align : std::int32_t { align_centre = 0, align_left = 1, align_right = 2 };
enum Anchor : std::int32_t { // bits of Traits::anchor
    anchor_left = 1,
    anchor_right = 2,
    anchor_top = 4,
    anchor_bottom = 8
};

class FontTable;

// Pixels that an object is larger than its anchors want, as nothing becomes smaller than 1.
struct Excess {
    std::int64_t width = 0, height = 0;
};

} // namespace velumo

struct vel_state {
    // Records of the tables, record 0 and the spare ones included; 0 = not known, as in tables that
    // a program made by hand.
    std::uint32_t object_records = 0;
    std::uint32_t text_records = 0;
    std::chrono::milliseconds last_event{0};
    std::map<std::uint32_t, velumo::List> lists; // by the number of the list object
    std::map<std::uint32_t, std::vector<velumo::ListedName>> folders;
    velumo::Selection selection;
    velumo::Presses presses;
    velumo::Refusal refusal;
    std::map<std::uint32_t, velumo::History> histories;   // by the number of the object
    std::map<std::uint32_t, velumo::Traits> traits;       // by the number of the object
    std::map<std::uint32_t, std::uint32_t> hidden_widths; // of pages that do not show
    std::set<std::uint32_t> borrowed_images;              // objects whose pictures the program owns
    void (*settle_parts)(vel_context &) = nullptr;        // puts bars in step before each drawing
    std::map<std::uint32_t, velumo::Excess> excess;       // by the number of the object
    const vel_form_data *form_data = nullptr;             // where the form was loaded from memory
    // What the loops do when the user resizes the display; null where its size is fixed.
    void (*follow_display)(vel_context &ctx, int width, int height) = nullptr;
    bool quit_requested = false; // the loop that ended last was ended by the user's closing
    std::uint32_t focus_before_frame = 0;   // where it goes back to from the frame buttons
    std::uint32_t hovered = 0, pressed = 0; // answers that the pointer is on, while a loop runs
    std::string clipboard, primary; // what the program itself has copied and selected, in UTF-8
    std::unique_ptr<velumo::SharedClipboard> shared_clipboard; // null until it is needed
    std::unique_ptr<velumo::Kept> own_fonts;                   // that are open, see model/own_fonts
    std::unique_ptr<velumo::Kept> fonts; // tables of their glyphs, see text/fonts
    TTF_Font *looked_at_font = nullptr;  // the last one, while no font can change
    velumo::FontTable *looked_at_table = nullptr;
    std::unique_ptr<velumo::Kept> picture; // rendered lines and operations, see render/painting
    std::unique_ptr<velumo::Kept> limits;  // of masters, see render/limits
    // For tests: nothing is kept between drawings and nothing left out, as it is without memory.
    bool draws_plainly = false;
};

namespace velumo {

// Makes the state when there is none. Throws std::bad_alloc.
inline vel_state &state_of(vel_context &ctx) {
    if (ctx.state == nullptr) ctx.state = new vel_state;
    return *ctx.state;
}

inline void release_state(vel_context &ctx) {
    delete ctx.state;
    ctx.state = nullptr;
}

inline std::uint32_t object_records(const vel_context &ctx) {
    return ctx.state == nullptr ? 0 : ctx.state->object_records;
}
inline std::uint32_t text_records(const vel_context &ctx) {
    return ctx.state == nullptr ? 0 : ctx.state->text_records;
}

} // namespace velumo
