// Removes references that lead nowhere from freshly read tables. For start-up.
#pragma once

#include "model/tables.h"

namespace velumo {

// Masters, dependents and texts beyond the tables, cycles of masters and of dependents, and objects
// listed as dependent twice are taken out, each with a line on standard error that names the file.
void remove_dangling_references(Tables &tables, const char *form_path);

} // namespace velumo
