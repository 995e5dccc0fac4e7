// Where the objects of a form are, drawn over its picture: for pages about a form, and for finding
// faults in it.
#pragma once

#include <string>

#include "draw/stage.h"
#include "read/object_finder.h"

namespace velform {

// Draws on a picture of the form, which was drawn before. Of each object that is not hidden: its
// rectangle, its margins as dots, what its masters leave of it where that is less, and its name.
// Throws std::bad_alloc and FileProblem.
void draw_outlines(const vel_context &ctx, SDL_Surface &picture, ObjectFinder &finder,
                   const std::string &font);

} // namespace velform
