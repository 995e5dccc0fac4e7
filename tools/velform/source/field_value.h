// From a TOML value to what a field of the record takes.
#pragma once

#include <toml++/toml.h>

#include "source/settings.h"

namespace velform {

// A value that the field does not take is reported, and its setting marked as faulty.
Setting read_value(const RecordField &field, const toml::node &node, Diagnostics &diagnostics);

// Reads the values of a shorthand into the fields for which nothing is set.
void read_shorthand(const Shorthand &shorthand, const toml::node &node, Settings &settings,
                    Diagnostics &diagnostics);

} // namespace velform
