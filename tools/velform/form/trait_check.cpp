#include "form/trait_check.h"

#include <map>

#include <fmt/format.h>

#include "form/traits.h"

namespace velform {
namespace {

class TraitCheck {
public:
    TraitCheck(const Form &form, Diagnostics &diagnostics)
        : form_(form), diagnostics_(diagnostics) {}

    void run() {
        for (const FormObject &object : form_.objects) {
            if (object.number <= VEL_FRAME_BUTTONS) {
                check_frame_button(object);
            } else if (object.master == 0) {
                check_with_dependents(object);
            }
        }
    }

private:
    static Position place_of(const FormObject &object, Field field) {
        const Position where = object.settings[field]->where;
        return where == Setting{}.where ? object.source->where : where;
    }

    // In the order in which keys find them.
    void check_with_dependents(const FormObject &object) {
        check_answers(object);
        check_key(object);
        for (const std::uint32_t dependent : object.dependents) {
            check_with_dependents(form_.object(dependent));
        }
    }

    void check_frame_button(const FormObject &button) {
        for (const Field field :
             {Field::focus, Field::default_answer, Field::cancel_answer, Field::access_key}) {
            if (!button.settings[field]) continue;
            diagnostics_.warning(
                place_of(button, field), Rule::meaningless_key,
                fmt::format("`{}` means nothing for a frame button", record_field(field).key));
        }
    }

    void check_answers(const FormObject &object) {
        const bool is_default = is_set(object, Field::default_answer);
        const bool is_cancel = is_set(object, Field::cancel_answer);
        if (is_default && is_cancel) {
            diagnostics_.error(place_of(object, Field::cancel_answer),
                               "an object is the `default` answer or the `cancel` answer, not "
                               "both; take one out");
        }
        if (is_default) note_answer(object, Field::default_answer);
        if (is_cancel) note_answer(object, Field::cancel_answer);
    }

    void note_answer(const FormObject &object, Field answer) {
        const auto [first, is_new] = answers_.try_emplace({place_of_keys(object), answer}, &object);
        if (is_new) return;
        diagnostics_.error(place_of(object, answer),
                           fmt::format("the window has a `{}` answer already, see line {}; take "
                                       "one out",
                                       record_field(answer).key,
                                       place_of(*first->second, answer).line));
    }

    void check_key(const FormObject &object) {
        const std::string key = access_key(object);
        if (key.empty()) return;
        const auto [first, is_new] = keys_.try_emplace({place_of_keys(object), key}, &object);
        if (is_new) return;
        diagnostics_.warning(
            place_of(object, Field::access_key), Rule::taken_key,
            fmt::format("the key \"{}\" is taken, see line {}; only the first object gets it", key,
                        place_of(*first->second, Field::access_key).line));
    }

    // The window or menu that has the keys while it is in front; 0 is the desktop.
    std::uint32_t place_of_keys(const FormObject &object) const {
        std::uint32_t at = object.number;
        while (form_.object(at).master != 0) at = form_.object(at).master;
        const std::uint32_t type = form_.object(at).type();
        return type == VEL_TYPE_WINDOW || type == VEL_TYPE_MENU ? at : 0;
    }

    const Form &form_;
    Diagnostics &diagnostics_;
    std::map<std::pair<std::uint32_t, Field>, const FormObject *> answers_;
    std::map<std::pair<std::uint32_t, std::string>, const FormObject *> keys_;
};

} // namespace

void check_traits(const Form &form, Diagnostics &diagnostics) {
    TraitCheck(form, diagnostics).run();
}

} // namespace velform
