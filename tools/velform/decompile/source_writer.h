// Writes a form source as text. For decompile.
#pragma once

#include <string>

#include "source/form_source.h"

namespace velform {

// Of objects without kinds and styles of their own; what several objects share becomes styles.
std::string source_text(const FormSource &source);

} // namespace velform
