#include "check/check_form.h"

#include <fmt/format.h>

namespace velform {
namespace {

constexpr std::int64_t longest_entry = 64;
// Drawing moves a window that is further left or up to here, without its dependents.
constexpr std::int64_t leftmost_window = 11;
constexpr std::int64_t topmost_window = 25;

class TypeCheck {
public:
    TypeCheck(const CheckedForm &form, const CheckedObject &object) : form_(form), o_(object) {}

    void run() {
        if (form_.is_top_level_window(o_)) {
            check_edge(Field::x, o_.box.left, leftmost_window);
            check_edge(Field::y, o_.box.top, topmost_window);
        }
        if (!o_.is_piece) {
            check_area();
            check_length();
            check_frame();
            check_master();
        }
    }

private:
    bool is(std::uint32_t type) const { return o_.type == type; }
    bool is_master_a_chain() const {
        return o_.master != 0 && form_.object(o_.master).type == VEL_TYPE_CHAIN;
    }
    void report(Rule rule, Field field, std::string message) const {
        form_.report(rule, o_, field, std::move(message));
    }

    void check_edge(Field field, std::int64_t place, std::int64_t least) const {
        if (place >= least || form_.is_whole(o_)) return;
        report(Rule::window_edge, field,
               fmt::format("a window is moved to `{}` {} when it is drawn, without what is in it; "
                           "begin there",
                           record_field(field).name, least));
    }

    void check_area() const {
        if (form_.is_fitted(o_) || is(VEL_TYPE_EMPTY) || is(VEL_TYPE_PICTURE_UNLOADED)) return;
        for (const Field field : {Field::width, Field::height}) {
            if (form_.number(o_, field) != 0) continue;
            report(Rule::zero_size, field,
                   fmt::format("the object has no {}, so it is never drawn",
                               record_field(field).name));
        }
    }

    void check_length() const {
        if (!form_.is_field(o_)) return;
        const std::int64_t most = form_.number(o_, Field::max_chars);
        if (most == 0 && form_.is_editable(o_)) {
            report(Rule::field_takes_less, Field::max_chars,
                   "nothing can be typed, because `max_chars` is 0");
        }
        if (most <= longest_entry) return;
        report(Rule::field_takes_less, Field::max_chars,
               fmt::format("{} takes at most {} characters, whatever `max_chars` says",
                           type_with_article(o_.type), longest_entry));
    }

    void check_frame() const {
        const std::int64_t border = form_.number(o_, Field::border);
        const bool has_frame = border == VEL_BORDER_FRAME || border == VEL_BORDER_FRAME_FITTED;
        if (!is(VEL_TYPE_LABEL) || !has_frame || form_.caption(o_).empty()) return;
        report(Rule::caption_frame, Field::border,
               "a frame follows the margins, which centre the caption of a label; use border = "
               "\"shadow\" for an outline");
    }

    void check_master() const {
        if (is(VEL_TYPE_WINDOW) && o_.master != 0) {
            report(Rule::window_in_object, Field::type,
                   "a window inside an object is only a box with a text; windows that are opened "
                   "are at the top level");
        }
        if (is(VEL_TYPE_TEXT) && o_.master == 0) {
            report(Rule::text_outside_window, Field::type,
                   "a text at the top level is never drawn; put it into a window");
        }
        if (is(VEL_TYPE_CHAIN) && o_.master != 0 && !is_master_a_chain()) {
            report(Rule::chain_in_object, Field::type,
                   "a chain inside another object is never filled; put its head at the top level");
        }
        if (!is(VEL_TYPE_CHAIN) && is_master_a_chain()) {
            report(Rule::chain_ends_early, Field::type,
                   "the chain ends before this object, because it is no chain");
        }
    }

    const CheckedForm &form_;
    const CheckedObject &o_;
};

} // namespace

void check_types(const CheckedForm &form) {
    for (const CheckedObject &o : form.own_objects()) TypeCheck(form, o).run();
}

} // namespace velform
