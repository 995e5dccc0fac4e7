// What can be wrong with an object once all about it is known.
#pragma once

#include "form.h"

namespace velform {

bool is_chain_member(const Form &form, const FormObject &object);

// Reports what the record or the library would not take, and warns of what would never show.
void check_object(const Form &form, const FormObject &object, Diagnostics &diagnostics);

} // namespace velform
