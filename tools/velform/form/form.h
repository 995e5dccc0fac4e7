// A form with numbers, places on the display and texts: all that its files hold.
#pragma once

#include <string>
#include <vector>

#include "source/form_source.h"

namespace velform {

struct FormObject {
    FormObject(const ObjectSource *said_by, Settings all)
        : source(said_by), settings(std::move(all)) {}

    const ObjectSource *source;
    Settings
        settings; // of all fields that have a key but the text; x and y are those of the record
    std::uint32_t number = 0;
    std::uint32_t master = 0;
    std::uint32_t text = 0; // number of its text
    std::uint32_t menu = 0; // number of the menu that it opens
    std::uint32_t text_length = 0;
    bool is_empty = false; // all zero: spare, or of a number that nothing has
    std::vector<std::uint32_t> dependents;

    std::int64_t value(Field field) const { return settings[field]->number(); }
    std::uint32_t type() const { return static_cast<std::uint32_t>(value(Field::type)); }
};

struct SpareNumbers {
    const SpareRun *run;
    std::uint32_t first, count;
};

struct Form {
    std::vector<FormObject> objects; // object 1 comes first
    std::vector<SpareNumbers> spare;
    std::vector<std::string> texts; // text 1 comes first
    RawForm raw;

    const FormObject &object(std::uint32_t number) const { return objects[number - 1]; }
};

// The settings that an object of a type has when nothing is said.
Settings standard_settings(std::uint32_t type);

FormObject empty_record(std::uint32_t number);

// Whether the text of a chain flows into the object from the head of the chain.
inline bool is_chain_member(const Form &form, const FormObject &object) {
    return object.type() == VEL_TYPE_CHAIN && object.master != 0 &&
           form.object(object.master).type() == VEL_TYPE_CHAIN;
}

} // namespace velform
