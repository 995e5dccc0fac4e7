// Finds objects of a loaded form by what people call them. For render.
#pragma once

#include <optional>
#include <string>

#include <velumo.h>

#include "header.h"

namespace velform {

class ObjectFinder {
public:
    // The names are in a header, which is read only when one is needed.
    explicit ObjectFinder(std::string header) : header_(std::move(header)) {}

    // By number, or by name. Throws WrongUsage and FileProblem.
    std::uint32_t find(const vel_context &ctx, const std::string &name);
    std::uint32_t find_window(const vel_context &ctx, const std::string &name);

    // The name of an object in the header, or an empty one.
    std::string name_of(std::uint32_t object);
    bool has_names();

private:
    const HeaderNames &names();
    void read_ids();

    const std::string header_;
    std::optional<HeaderNames> names_;
    std::optional<std::map<std::uint32_t, std::string>> ids_;
};

bool is_top_level_window(const vel_context &ctx, std::uint32_t object);

} // namespace velform
