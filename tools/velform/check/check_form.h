// The rules, by what they look at. Each function reports what it finds.
#pragma once

#include <velumo.h>

#include "check/checked_form.h"

namespace velform {

// Numbers, codes and sizes of the files.
void check_links(const CheckedForm &form);
// What types and their sizes and places come to. For the compiler, too.
void check_types(const CheckedForm &form);
// Objects on a display of a size.
void check_places(const CheckedForm &form, Box display);
// What users can do: reach fields, close windows, open menus.
void check_use(const CheckedForm &form);
void check_colours(const CheckedForm &form);
void check_letters(const CheckedForm &form);
// Words in their objects, with the fonts of a context that has loaded the form.
void check_words(const CheckedForm &form, vel_context &ctx);
// Fonts and pictures, as a context has loaded them from the current folder.
void check_files(const CheckedForm &form, const vel_context &ctx);
// What only a source says: styles and ids.
void check_source(const CheckedForm &form, const FormSource &source);

} // namespace velform
