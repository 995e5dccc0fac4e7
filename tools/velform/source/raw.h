// What a form source says in bytes and bare numbers, because it has no other words for it: its
// `raw` tables.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/diagnostics.h"

namespace velform {

// Bytes that go into a record after all else.
struct Patch {
    std::uint32_t offset;
    std::string bytes;
};
using Patches = std::vector<Patch>;

struct RawObject {
    std::optional<std::uint32_t> text; // number of a text that the object has not got by itself
    Patches patches;

    bool is_empty() const { return !text && patches.empty(); }
};

struct RawText {
    std::optional<std::string> text; // of a text that no object says, in ISO 8859-1
    Patches patches;
    Position where;
};

struct RawForm {
    bool writes_traits = true;
    std::optional<std::uint32_t> records;   // how many there are, when not even the frame buttons
    std::map<std::uint32_t, RawText> texts; // by number
    std::string form_tail, text_tail;       // after the last whole record

    bool is_empty() const {
        return writes_traits && !records && texts.empty() && form_tail.empty() && text_tail.empty();
    }
};

} // namespace velform
