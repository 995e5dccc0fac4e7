// The one layout of form sources.
#pragma once

#include <string>
#include <string_view>

namespace velform {

// The same source in the standard layout; docs/velform.md describes it. Takes what parse_toml
// takes. Throws std::logic_error rather than returning a source that means something else.
std::string laid_out(std::string_view source);

} // namespace velform
