#include "check/check_form.h"

#include <algorithm>

#include <fmt/format.h>

namespace velform {
namespace {

constexpr std::int64_t least_target = 12;   // pixels
constexpr std::size_t most_compared = 1000; // siblings after an object, so that it ends

class PlaceCheck {
public:
    PlaceCheck(const CheckedForm &form, Box display) : form_(form), display_(display) {}

    void run() {
        note_scrolled();
        find_visible();
        std::vector<const CheckedObject *> top;
        for (const CheckedObject &o : form_.own_objects()) {
            if (o.root == 0) continue;
            if (o.master == 0) top.push_back(&o);
            check_siblings(dependents_of(o));
            if (o.is_piece || !has_area(o)) continue;
            if (o.master == 0) check_on_display(o);
            if (o.master != 0 && !form_.is_fitted(o)) check_in_master(o);
            check_target(o);
        }
        check_siblings(top);
    }

private:
    static bool has_area(const CheckedObject &o) {
        return o.type != VEL_TYPE_EMPTY && !o.box.is_empty();
    }

    std::vector<const CheckedObject *> dependents_of(const CheckedObject &o) const {
        std::vector<const CheckedObject *> objects;
        for (const std::uint32_t number : o.dependents) {
            const CheckedObject &dependent = form_.object(number);
            if (dependent.master == o.number && std::ranges::count(objects, &dependent) == 0)
                objects.push_back(&dependent);
        }
        return objects;
    }

    // What has scroll bars or buttons shows what is to the right of it or below it.
    void note_scrolled() {
        scrolls_.resize(form_.objects().size());
        for (const CheckedObject &o : form_.own_objects()) {
            if (form_.is_top_level_window(o) && !form_.is_whole(o) &&
                form_.number(o, Field::window_kind) == VEL_WINDOW_FULL)
                scrolls_[o.number] = true;
            const auto target = static_cast<std::size_t>(form_.number(o, Field::target));
            if (target < scrolls_.size()) scrolls_[target] = true;
        }
    }

    // The part of the display on which an object can show, from the outer ones inwards.
    void find_visible() {
        visible_.resize(form_.objects().size());
        std::vector<const CheckedObject *> order;
        for (const CheckedObject &o : form_.objects()) order.push_back(&o);
        std::ranges::stable_sort(order, {}, &CheckedObject::depth);
        for (const CheckedObject *o : order) {
            if (o->master == 0) continue;
            const CheckedObject &master = form_.object(o->master);
            const bool is_by_margins = form_.number(*o, Field::clip) == VEL_CLIP_MARGINS;
            Box room = is_by_margins ? form_.inside(master) : master.box;
            if (scrolls_[master.number]) {
                room.right = std::max(room.right, o->box.right);
                room.bottom = std::max(room.bottom, o->box.bottom);
            }
            visible_[o->number] =
                master.master == 0 ? room : shared_part(room, visible_[master.number]);
        }
    }

    void check_in_master(const CheckedObject &o) const {
        if (!shared_part(o.box, visible_[o.number]).is_empty()) return;
        const std::string master = form_.form().title(o.master);
        if (form_.is_editable(o)) {
            form_.report(
                Rule::unreachable_field, o, Field::x,
                fmt::format("nobody can type into it: no pixel of it is inside {}", master));
        } else {
            form_.report(Rule::outside_master, o, Field::x,
                         fmt::format("no pixel of it is inside {}, so it is never seen", master));
        }
    }

    void check_on_display(const CheckedObject &o) const {
        if (form_.is_whole(o) || o.type == VEL_TYPE_MENU || o.part == "tip_label") return;
        const std::int64_t right = o.box.right - display_.right;
        const std::int64_t bottom = o.box.bottom - display_.bottom;
        if (right <= 0 && bottom <= 0) return;
        const std::int64_t beyond = std::max(right, bottom);
        form_.report(Rule::outside_screen, o, right >= bottom ? Field::x : Field::y,
                     fmt::format("it reaches {} pixel{} beyond the display of {} x {}", beyond,
                                 beyond == 1 ? "" : "s", display_.right, display_.bottom));
    }

    void check_target(const CheckedObject &o) const {
        const bool is_pressed = form_.is_button(o) || o.part == "check" || o.part == "radio";
        const std::int64_t side = std::min(o.box.width(), o.box.height());
        if (!is_pressed || side >= least_target) return;
        const bool is_narrow = o.box.width() == side;
        form_.report(Rule::small_target, o, is_narrow ? Field::width : Field::height,
                     fmt::format("a button of {} pixel{} is hard to hit; give it {}", side,
                                 side == 1 ? "" : "s", least_target));
    }

    // Popups cover what they want to, and a part looks after its own pieces.
    bool can_overlap(const CheckedObject &o) const {
        const bool is_popup = o.type == VEL_TYPE_MENU || form_.is_top_level_window(o);
        return has_area(o) && !is_popup && !o.is_piece && !form_.is_fitted(o) &&
               o.type != VEL_TYPE_CHAIN && o.part != "tip_label";
    }

    bool is_used(const CheckedObject &o) const {
        return form_.is_editable(o) || form_.is_button(o) || !o.part.empty();
    }
    bool says_something(const CheckedObject &o) const {
        return is_used(o) || !form_.caption(o).empty() || o.type == VEL_TYPE_PICTURE_UNLOADED;
    }

    // A panel may have others on it.
    bool disturbs(const CheckedObject &later, const CheckedObject &earlier) const {
        if (shared_part(later.box, earlier.box).is_empty() || !says_something(earlier))
            return false;
        if (later.box.holds(earlier.box)) return true;
        return earlier.box.holds(later.box) ? is_used(earlier) : says_something(later);
    }

    void check_siblings(const std::vector<const CheckedObject *> &all) const {
        for (std::size_t k = 0; k < all.size(); ++k) {
            if (!can_overlap(*all[k])) continue;
            const std::size_t end = std::min(all.size(), k + 1 + most_compared);
            for (std::size_t n = k + 1; n < end; ++n) {
                if (!can_overlap(*all[n]) || !disturbs(*all[n], *all[k])) continue;
                report_overlap(*all[n], *all[k]);
                break;
            }
        }
    }

    void report_overlap(const CheckedObject &later, const CheckedObject &earlier) const {
        const Box part = shared_part(later.box, earlier.box);
        if (later.box.holds(earlier.box) && form_.is_editable(earlier)) {
            form_.report(Rule::unreachable_field, earlier, Field::x,
                         fmt::format("nobody can type into it: {} covers it", form_.title(later)));
            return;
        }
        form_.report(Rule::overlap, later, Field::x,
                     fmt::format("it covers {} x {} pixels of {}", part.width(), part.height(),
                                 form_.title(earlier)));
    }

    const CheckedForm &form_;
    const Box display_;
    std::vector<bool> scrolls_;
    std::vector<Box> visible_;
};

} // namespace

void check_places(const CheckedForm &form, Box display) { PlaceCheck(form, display).run(); }

} // namespace velform
