// Puts words into the objects of a loaded form, as a program would. For render --set.
#pragma once

#include <string>

#include "read/object_finder.h"

namespace velform {

// As in "name=Words", in UTF-8: the caption, or the text of an object that has one. Throws
// WrongUsage for words that the object does not take.
void set_text(vel_context &ctx, ObjectFinder &finder, const std::string &assignment);

} // namespace velform
