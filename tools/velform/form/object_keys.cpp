#include "form/object_keys.h"

#include <iterator>

#include <fmt/format.h>

#include "source/identifier.h"

namespace velform {
namespace {

// As they are in lock files; a name that changes is a number that is lost.
constexpr std::string_view role_names[] = {
    "",      "",       "window",     "caption",       "button",     "button",   "title", "item",
    "field", "number", "line",       "note",          "text",       "menu",     "chain", "check",
    "radio", "list",   "scroll_bar", "choice",        "slider",     "progress", "tabs",  "tip",
    "whole", "holder", "box",        "mark",          "mark_cover", "ring",     "track", "knob",
    "bar",   "thumb",  "sample",     "head",          "row",        "cell",     "arrow", "marker",
    "tab",   "page",   "drop_down",  "drop_down_list"};
static_assert(std::size(role_names) == static_cast<std::size_t>(Role::drop_down_list) + 1);

std::string_view kind_in_key(const FormObject &object) {
    const std::string_view role = role_names[static_cast<std::size_t>(object.source->role)];
    return role.empty() ? type_name(object.type()) : role;
}

} // namespace

void ObjectKeys::add(const FormObject &object) {
    const ObjectSource &source = *object.source;
    if (object.number <= VEL_FRAME_BUTTONS) return keys_.emplace_back(), void();
    keys_.push_back(source.id.empty() ? called_after(object) : lower_case(source.id));
    // The menu of a choice is far from it, at the end of the form.
    const std::optional<Setting> &menu = source.own[Field::menu];
    if (menu) owners_.try_emplace(menu->string(), keys_.back());
}

std::string ObjectKeys::called_after(const FormObject &object) {
    const auto owner = owners_.find(object.source->alias);
    std::string around = object.master == 0 ? "" : keys_[object.master - 1];
    if (!object.source->alias.empty() && owner != owners_.end()) around = owner->second;
    const std::string like = fmt::format("{}/{}", around, kind_in_key(object));
    return fmt::format("{}.{}", like, ++likes_[like]);
}

} // namespace velform
