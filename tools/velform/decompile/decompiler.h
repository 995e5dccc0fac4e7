// From the bytes of a form to what a source would say of them. For decompile.
#pragma once

#include <memory>
#include <optional>

#include "form/header.h"
#include "form/record_bytes.h"
#include "source/form_source.h"

namespace velform {

// What a header says of a form; without one, ids are made up.
struct KnownNames {
    std::string prefix;
    std::map<std::uint32_t, std::string> ids;
    bool are_given = false;
    std::vector<NamedSpare> spare{};
    bool operator==(const KnownNames &) const = default;
};

struct DecompileChoice {
    const Theme *theme;
    bool has_traits; // else their texts are texts like any others
    bool is_plain;   // all bytes are raw; for forms that a source cannot describe otherwise
};

// Returns nothing if the choice does not lead to the bytes.
std::optional<FormSource> decompiled(const FormBytes &bytes, const KnownNames &names,
                                     const DecompileChoice &choice);

} // namespace velform
