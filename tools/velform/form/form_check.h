// What can be wrong with the objects of a form once all about them is known.
#pragma once

#include "form/form.h"

namespace velform {

// Reports what the record or the library would not take, and warns of what would never show.
void check_form(const Form &form, Diagnostics &diagnostics);

} // namespace velform
