// The selected part of a text on the screen. For painting.
#pragma once

#include "render/geometry.h"
#include "text/shown_line.h"

namespace velumo {

// The colour under selected characters: the body's, a quarter of the way to the text's.
vel_colour selection_colour(const vel_object &object);

class SelectedText {
public:
    SelectedText(const vel_context &ctx, u32 object);

    // The pixels of a line that are selected, counted from its start; nothing when there are none.
    Span in_line(const ShownLine &shown, u32 line) const;

private:
    struct Part {
        u32 line, begin, end; // columns
    };
    std::vector<Part> parts_;
};

} // namespace velumo
