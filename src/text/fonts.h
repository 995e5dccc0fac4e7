// The tables of the fonts that were measured with, as long as the fonts stay what they were. For
// measuring and for rendered lines.
#pragma once

#include "model/objects.h"

namespace velumo {

// Null when there is no memory for the table. The font is not null.
FontTable *found_table(const vel_context &ctx, TTF_Font *font);
inline FontTable *table_of(const vel_context &ctx, TTF_Font *font) {
    const bool is_last = ctx.state != nullptr && ctx.state->looked_at_font == font;
    return is_last ? ctx.state->looked_at_table : found_table(ctx, font);
}

// A font may be closed, opened again or changed between two calls of the program, so each is looked
// at when it is first used in a call. As long as one of these lives, no font is looked at twice:
// nothing that is not the library's runs meanwhile.
class FontsStay {
public:
    explicit FontsStay(vel_context &ctx);
    ~FontsStay();
    FontsStay(const FontsStay &) = delete;
    FontsStay &operator=(const FontsStay &) = delete;

private:
    vel_context &ctx_;
    bool are_known_ = false; // not without memory for tables
};

} // namespace velumo
