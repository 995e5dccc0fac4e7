// From what a source says of a part to the objects that it is made of. The order of the pieces is
// that in which the library finds them, see enum Part in model/state.h.
#pragma once

#include "kinds/part_source.h"
#include "source/styles.h"

namespace velform {

// What parts are made with.
struct PartContext {
    const Theme &theme;
    StyleResolver &styles;
    Diagnostics &diagnostics;
    std::vector<ObjectSource> &last_objects; // of the form: the menus of choices
};

// Adds all that a part is beyond what its author has said of it.
void make_part(ObjectSource &object, PartSource &part, PartContext &context);

// The label that shows the tips of a form.
ObjectSource tip_label();

} // namespace velform
