// velform schema: the JSON Schema of form sources, by which editors complete and check them.
#pragma once

#include <string>

namespace velform {

std::string source_schema();

} // namespace velform
