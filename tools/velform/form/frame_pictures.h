// The pictures of the frame buttons that come with velform, as the bytes of PNG files.
#pragma once

#include <string_view>

namespace velform {

// Returns the picture of a button by its name, as in frame_button_names.
std::string_view frame_picture(std::string_view button);

} // namespace velform
