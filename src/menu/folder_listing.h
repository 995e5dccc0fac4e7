// Lists that show the names of a folder and scroll through them. For frame actions and dialogs.
#pragma once

#include "model/listings.h"

namespace velumo {

// What a list shows; null when it was never filled.
const Listing *listing_of(const vel_context &ctx, u32 list);

// The name that a row shows; null when it shows none.
const ListedName *name_of_row(const vel_context &ctx, u32 row);

// Scrolls the lists of folders in a window by scroll_step, but by one row at least. False when the
// window shows no such list.
enum class Towards { start, end };
bool scroll_listings(vel_context &ctx, u32 window, Towards towards);

} // namespace velumo
