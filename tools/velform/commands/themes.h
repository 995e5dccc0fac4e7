// velform themes: what forms look like in each theme.
#pragma once

#include <string>

#include "base/status.h"

namespace velform {

struct ThemesOptions {
    std::string output;
    std::string states; // a theme, of which each kind is drawn in each state; else all themes
};

// Throws WrongUsage and FileProblem.
Status draw_themes(const ThemesOptions &options);

} // namespace velform
