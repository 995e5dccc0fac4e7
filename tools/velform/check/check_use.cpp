#include "check/check_form.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

namespace velform {
namespace {

bool has_frame_buttons(const CheckedForm &form, const CheckedObject &o) {
    return form.is_top_level_window(o) && !form.is_whole(o) &&
           form.number(o, Field::window_kind) < VEL_WINDOW_PLAIN;
}

void check_frame_buttons(const CheckedForm &form) {
    const auto window = std::ranges::find_if(
        form.own_objects(), [&form](const CheckedObject &o) { return has_frame_buttons(form, o); });
    if (window == form.own_objects().end()) return;
    const bool is_full = form.number(*window, Field::window_kind) == VEL_WINDOW_FULL;
    for (std::uint32_t button = 1; button <= VEL_FRAME_BUTTONS; ++button) {
        const bool is_shown = is_full || button == VEL_BUTTON_MOVE || button == VEL_BUTTON_CLOSE;
        if (!is_shown || form.object(button).type == VEL_TYPE_PICTURE_UNLOADED) continue;
        form.report(Rule::missing_frame_buttons, *window, Field::window_kind,
                    fmt::format("{} is no picture, so the window has no such button",
                                form.form().title(button)));
    }
}

void check_closing(const CheckedForm &form) {
    std::vector<bool> has_button(form.objects().size());
    for (const CheckedObject &o : form.own_objects()) {
        if (o.root != 0 && form.is_button(o)) has_button[o.root] = true;
    }
    for (const CheckedObject &o : form.own_objects()) {
        const bool is_bare =
            form.is_top_level_window(o) && !form.is_whole(o) && !has_frame_buttons(form, o);
        if (!is_bare || has_button[o.number]) continue;
        form.report(Rule::dialog_without_close, o, Field::window_kind,
                    "nobody can close the window: it has no frame buttons and holds no button");
    }
}

void check_menus(const CheckedForm &form) {
    for (const CheckedObject &o : form.own_objects()) {
        if (!means_something(record_field(Field::menu), o.type)) continue;
        const std::uint32_t number = form.form().link(o.number, Field::menu);
        if (number == 0) continue;
        const CheckedObject &menu = form.object(number);
        if (menu.type != VEL_TYPE_MENU || menu.box.width() >= o.box.width()) continue;
        form.report(Rule::narrow_menu, menu, Field::width,
                    fmt::format("the menu is {} pixels narrower than {}, and closes when the "
                                "pointer is beside it",
                                o.box.width() - menu.box.width(), form.title(o)));
    }
}

void check_fields_in_menus(const CheckedForm &form) {
    for (const CheckedObject &o : form.own_objects()) {
        if (!form.is_editable(o) || o.root == 0 || o.root == o.number) continue;
        if (form.object(o.root).type != VEL_TYPE_MENU) continue;
        form.report(Rule::unreachable_field, o, Field::type,
                    "nobody can type into it, because a menu takes no keys");
    }
}

} // namespace

void check_use(const CheckedForm &form) {
    if (form.own_objects().empty()) return;
    check_frame_buttons(form);
    check_closing(form);
    check_menus(form);
    check_fields_in_menus(form);
}

} // namespace velform
