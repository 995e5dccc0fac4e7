// velform list: the objects of a form, as a tree or as JSON.
#pragma once

#include "base/status.h"
#include "read/read_form.h"

namespace velform {

struct ListOptions {
    FormPaths form;
    bool json = false;
    bool all = false; // in a tree, the frame buttons as well
};

// Prints what is wrong with a source to err. Throws WrongUsage and FileProblem.
Status list(const ListOptions &options, std::ostream &out, std::ostream &err);

} // namespace velform
