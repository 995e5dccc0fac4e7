// Finds objects of a loaded form by what people call them. For render.
#pragma once

#include <optional>
#include <string>

#include <velumo.h>

#include "read/loadable_form.h"

namespace velform {

class ObjectFinder {
public:
    // The form lasts as long.
    explicit ObjectFinder(LoadableForm &form) : form_(form) {}

    // By number, or by name. Throws WrongUsage and FileProblem.
    std::uint32_t find(const vel_context &ctx, const std::string &name);
    std::uint32_t find_window(const vel_context &ctx, const std::string &name);

    // The name of an object in the header, or an empty one.
    std::string name_of(std::uint32_t object);
    bool has_names();

private:
    void read_ids();

    LoadableForm &form_;
    std::optional<std::map<std::uint32_t, std::string>> ids_;
};

bool is_top_level_window(const vel_context &ctx, std::uint32_t object);

} // namespace velform
