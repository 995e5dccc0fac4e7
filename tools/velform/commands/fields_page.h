// The parts of docs/form-source.md and docs/file-formats.md that the record table makes.
#pragma once

#include <string>

namespace velform {

// The keys of an object and the layout of its record, as Markdown.
std::string field_reference();

// Returns the page with each part between its two marks made again. Throws FileProblem when there
// are no marks.
std::string with_field_reference(std::string page);

} // namespace velform
