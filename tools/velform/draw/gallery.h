// The form that shows what the themes look like: an object of every kind.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <SDL.h>

namespace velform {

inline constexpr int gallery_width = 600, gallery_height = 440;

std::string gallery_source(std::string_view theme);

// An object of every kind below each other, with room right of it for each of its states.
struct SheetRow {
    std::string id;
    SDL_Rect area;
    int used_piece; // counted from the object itself; less than 0: it can only be disabled
};
struct StatesSheet {
    std::string source;
    std::vector<SheetRow> rows;
    int width, height, column_width;
};
StatesSheet states_sheet(std::string_view theme);

} // namespace velform
