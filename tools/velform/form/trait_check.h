// Answers and keys that would get into each other's way.
#pragma once

#include "form/form.h"

namespace velform {

void check_traits(const Form &form, Diagnostics &diagnostics);

} // namespace velform
