// Ids for the objects of a form that has no header. For decompile.
#pragma once

#include <map>
#include <set>
#include <string>

#include "form/record_bytes.h"

namespace velform {

class MadeUpIds {
public:
    // Ids that are taken already.
    explicit MadeUpIds(const std::map<std::uint32_t, std::string> &taken);

    // Made from the type and what is written on the object, as "label_ok" or "entry_1".
    std::string id_for(std::string_view record, std::string_view text);

private:
    std::set<std::string> taken_;
    std::map<std::string, std::uint32_t> last_; // number that made an id differ from the others
};

} // namespace velform
