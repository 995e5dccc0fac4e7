// The part of docs/form-source.md that the record table makes.
#pragma once

#include <string>
#include <string_view>

namespace velform {

// The keys of an object and the layout of its record, as Markdown.
std::string field_reference();

// Returns the page with the part between its two marks replaced by the reference. Throws
// FileProblem when the marks are not there.
std::string with_field_reference(std::string_view page);

} // namespace velform
