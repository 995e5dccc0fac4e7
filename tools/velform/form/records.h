// A form as the bytes of its two files. Numbers are little-endian on every host.
#pragma once

#include <string>

#include "form/form.h"

namespace velform {

std::string form_file_bytes(const Form &form);
std::string text_file_bytes(const Form &form);

} // namespace velform
