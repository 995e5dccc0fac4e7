// From what a form source says to a form: styles, numbers, places, texts and menus are worked out.
#pragma once

#include "form.h"

namespace velform {

// The source must outlive the form. Reports styles, types and menus that are wrong.
Form build_form(const FormSource &source, Diagnostics &diagnostics);

} // namespace velform
