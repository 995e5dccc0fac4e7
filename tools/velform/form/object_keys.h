// What the objects of a form are called in its lock file.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "form/form.h"

namespace velform {

// An id is a key, in small letters. An object without one is called after the one around it, its
// part or type, and its place among those that are like it there: "letter/caption.2".
class ObjectKeys {
public:
    // Takes the objects in the order of the source, those around others first. Frame buttons, which
    // keep their numbers anyway, have no keys.
    void add(const FormObject &object);

    // The key of the object that was added at a place, from 0.
    const std::string &operator[](std::size_t place) const { return keys_[place]; }

private:
    std::string called_after(const FormObject &object);

    std::vector<std::string> keys_;
    std::map<std::string, std::uint32_t> likes_;             // how many there are, by their key
    std::map<std::string, std::string, std::less<>> owners_; // of what has an alias
};

} // namespace velform
