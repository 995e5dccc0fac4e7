// Reads the `raw` tables of a form source, and gives the names that they use. For reading and
// writing sources.
#pragma once

#include <span>

#include "source/form_source.h"

namespace velform {

// A number of a record under its name in velumo.h.
struct RawNumber {
    std::string_view name;
    std::uint32_t offset;
};
// Those of an object without the list of dependents; those of a text.
std::span<const RawNumber> raw_numbers_of_objects();
std::span<const RawNumber> raw_numbers_of_texts();

// Traits that have no key, because kinds follow from them.
struct RawTrait {
    std::string_view name;
    Field field;
};
inline constexpr RawTrait raw_traits[] = {
    {"part", Field::part}, {"target", Field::target}, {"group", Field::group}};

// Whatever is wrong is reported and left out.
void read_raw_object(const toml::node &node, ObjectSource &object, Diagnostics &diagnostics);
RawForm read_raw_form(const toml::node &node, Diagnostics &diagnostics);

std::string bytes_of_number(std::uint32_t number);

} // namespace velform
