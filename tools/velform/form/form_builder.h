// From what a form source says to a form: styles, numbers, places, texts and menus are worked out.
#pragma once

#include "form/form.h"
#include "source/lock_file.h"

namespace velform {

// The source must outlive the form. Reports styles, types and menus that are wrong. Objects keep
// the numbers that they have in the lock, if there is one; it is brought up to date.
Form build_form(const FormSource &source, Diagnostics &diagnostics, Lock *lock = nullptr);

} // namespace velform
