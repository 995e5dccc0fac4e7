// Comments of a source that allow what a rule finds: "# velform: allow zero-size, overlap" at the
// end of a line is for that line, and on a line of its own for the next.
#pragma once

#include <string_view>

#include "base/diagnostics.h"

namespace velform {

enum class Allowed { of_some_rules, of_all_rules };

// Takes out what is allowed. After all rules, also reports what need not have been allowed.
void apply_allowances(std::string_view source, Allowed rules, Diagnostics &diagnostics);

} // namespace velform
