#include "read/object_finder.h"

#include <charconv>

#include <fmt/format.h>

#include "base/status.h"
#include "source/identifier.h"

namespace velform {
namespace {

std::optional<std::uint32_t> number_in(std::string_view text) {
    std::uint32_t number = 0;
    const char *const end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data(), end, number);
    if (fault != std::errc{} || stop != end) return std::nullopt;
    return number;
}

} // namespace

bool is_top_level_window(const vel_context &ctx, std::uint32_t object) {
    return ctx.objects[object].master == 0 && ctx.objects[object].type == VEL_TYPE_WINDOW;
}

std::uint32_t ObjectFinder::find(const vel_context &ctx, const std::string &name) {
    const auto number = number_in(name);
    const std::uint32_t object = number ? *number : form_.names().object(name);
    if (object == 0 || object > ctx.object_count) {
        throw WrongUsage(fmt::format("there is no object '{}'", name));
    }
    return object;
}

std::uint32_t ObjectFinder::find_window(const vel_context &ctx, const std::string &name) {
    const std::uint32_t window = find(ctx, name);
    if (!is_top_level_window(ctx, window)) {
        throw WrongUsage(fmt::format("'{}' is no window of the top level", name));
    }
    return window;
}

std::string ObjectFinder::name_of(std::uint32_t object) {
    if (!ids_) read_ids();
    const auto found = ids_->find(object);
    return found == ids_->end() ? std::string{} : found->second;
}

bool ObjectFinder::has_names() {
    if (!ids_) read_ids();
    return !ids_->empty();
}

// A form without a header has no names, which is no fault.
void ObjectFinder::read_ids() {
    ids_.emplace();
    if (!form_.has_names()) return;
    for (const auto &[id, number] : form_.names().ids()) {
        if (is_identifier(id)) ids_->emplace(number, id);
    }
}

} // namespace velform
