#include "form_check.h"

#include <algorithm>

#include <fmt/format.h>

#include "trait_check.h"

namespace velform {
namespace {

constexpr std::size_t longest_entry = 64;
// Drawing moves a window that is further left or up to here, without its dependents.
constexpr std::int64_t leftmost_window = 11;
constexpr std::int64_t topmost_window = 25;

class ObjectCheck {
public:
    ObjectCheck(const Form &form, const FormObject &object, Diagnostics &diagnostics)
        : form_(form), object_(object), diagnostics_(diagnostics) {}

    void run() {
        if (!object_.source->is_made) {
            check_own_keys();
            check_strings();
            check_area();
            check_type();
        }
        check_place();
        check_dependents();
    }

private:
    bool is(std::uint32_t type) const { return object_.type() == type; }
    bool is_field() const { return is(VEL_TYPE_ENTRY) || is(VEL_TYPE_NUMBER); }
    bool is_frame_button() const { return object_.number <= VEL_FRAME_BUTTONS; }
    bool is_master_a_chain() const {
        return object_.master != 0 && form_.object(object_.master).type() == VEL_TYPE_CHAIN;
    }
    const std::optional<Setting> &setting(Field field) const { return object_.settings[field]; }
    const std::string &string(Field field) const { return setting(field)->string(); }
    bool is_faulty(Field field) const { return setting(field)->is_faulty; }

    // Where a field was set, or the object when it never was.
    Position place_of(Field field) const {
        const bool is_said = setting(field) && setting(field)->where != Setting{}.where;
        return is_said ? setting(field)->where : object_.source->where;
    }
    void error(Field field, std::string message) {
        diagnostics_.error(place_of(field), std::move(message));
    }
    void warn(Field field, std::string message) {
        diagnostics_.warning(place_of(field), std::move(message));
    }
    std::string a_type() const { return type_with_article(object_.type()); }

    // Styles are shared by objects of many types, so only what the object says itself counts.
    void check_own_keys() {
        if (is_faulty(Field::type)) return;
        for (const RecordField &row : whole_table()) {
            const std::optional<Setting> &own = object_.source->own[row.field];
            if (!own || means_something(row, object_.type())) continue;
            std::string message = fmt::format("`{}` means nothing for {}", row.key, a_type());
            if (row.field == Field::text) {
                diagnostics_.error(own->where, message + "; a caption is a `label`");
            } else {
                diagnostics_.warning(own->where, std::move(message));
            }
        }
        if (object_.source->own[Field::hidden] && !can_be_hidden()) {
            warn(Field::hidden, "a dependent that is no menu starts visible whatever it says");
        }
    }

    bool can_be_hidden() const {
        return object_.master == 0 || is(VEL_TYPE_MENU) || object_.value(Field::hidden) == 0;
    }

    void check_strings() {
        const std::size_t length = string(Field::label).size();
        if (is_field() && length > longest_entry) {
            error(Field::label, fmt::format("`label` has {} characters; {} holds at most {}",
                                            length, a_type(), longest_entry));
        }
        if (is_field() && object_.value(Field::max_chars) > std::int64_t{longest_entry}) {
            warn(Field::max_chars,
                 fmt::format("{} takes at most {} characters, whatever `max_chars` says", a_type(),
                             longest_entry));
        }
        if (object_.value(Field::font_choice) == 1 && string(Field::font_file).empty() &&
            !is_faulty(Field::font_file)) {
            error(Field::font_choice, "the own font has no file; add a `font_file`");
        }
        if (is(VEL_TYPE_PICTURE_UNLOADED) && string(Field::picture).empty() &&
            !is_faulty(Field::picture)) {
            error(Field::picture, "the picture has no file; add a `picture`");
        }
    }

    bool has_frame() const {
        const std::int64_t border = object_.value(Field::border);
        return border == VEL_BORDER_FRAME || border == VEL_BORDER_FRAME_FITTED;
    }

    void check_place() {
        const Range range = record_field(Field::x).range;
        for (const Field field : {Field::x, Field::y}) {
            const std::int64_t place = object_.value(field);
            if (place >= range.first && place <= range.last) continue;
            error(field, fmt::format("`{}` lies at {} on the display; it must be from {} to {} "
                                     "together with that of the objects around it",
                                     record_field(field).key, place, range.first, range.last));
        }
        if (!is(VEL_TYPE_WINDOW) || object_.master != 0 || is_frame_button()) return;
        warn_of_edge(Field::x, leftmost_window);
        warn_of_edge(Field::y, topmost_window);
    }

    void warn_of_edge(Field field, std::int64_t least) {
        if (is_faulty(field) || object_.value(field) >= least) return;
        warn(field, fmt::format("a window is moved to `{}` {} when it is drawn, without what is in "
                                "it; begin there",
                                record_field(field).key, least));
    }

    void check_area() {
        const std::int64_t border = object_.value(Field::border);
        const bool is_fitted = object_.master != 0 &&
                               (border == VEL_BORDER_FITTED || border == VEL_BORDER_FRAME_FITTED ||
                                border == VEL_BORDER_SHADOW_FITTED);
        if (is_fitted || is(VEL_TYPE_EMPTY) || is(VEL_TYPE_PICTURE_UNLOADED)) return;
        for (const Field field : {Field::width, Field::height}) {
            if (object_.value(field) != 0 || is_faulty(field)) continue;
            warn(field, fmt::format("the object has no {}, so it is never drawn",
                                    record_field(field).key));
        }
    }

    void check_dependents() {
        if (object_.dependents.size() <= VEL_MAX_DEPENDENTS) return;
        const FormObject &first_too_many = form_.object(object_.dependents[VEL_MAX_DEPENDENTS]);
        diagnostics_.error(first_too_many.source->where,
                           fmt::format("an object holds at most {} objects, and this is one more; "
                                       "put some of them into an object of their own",
                                       VEL_MAX_DEPENDENTS));
    }

    void check_type() {
        if (is(VEL_TYPE_LABEL) && has_frame() && !string(Field::label).empty()) {
            warn(Field::border, "a frame follows the margins, which centre the caption of a label; "
                                "use border = \"shadow\" for an outline");
        }
        if (is(VEL_TYPE_WINDOW) && object_.master != 0) {
            warn(Field::type, "a window inside an object is only a box with a text; windows that "
                              "are opened are at the top level");
        }
        if (is(VEL_TYPE_TEXT) && object_.master == 0 && !is_frame_button()) {
            warn(Field::type, "a text at the top level is never drawn; put it into a window");
        }
        if (is(VEL_TYPE_CHAIN) && object_.master != 0 && !is_master_a_chain()) {
            warn(Field::type, "a chain inside another object is never filled; put its head at the "
                              "top level");
        }
        if (is_chain_member(form_, object_) && object_.source->own[Field::text]) {
            error(Field::text, "the text of a chain flows from its head; write the `text` there");
        }
        if (!is(VEL_TYPE_CHAIN) && is_master_a_chain()) {
            warn(Field::type, "the chain ends before this object, because it is no chain");
        }
    }

    const Form &form_;
    const FormObject &object_;
    Diagnostics &diagnostics_;
};

} // namespace

void check_form(const Form &form, Diagnostics &diagnostics) {
    for (const FormObject &object : form.objects) ObjectCheck(form, object, diagnostics).run();
    check_traits(form, diagnostics);
}

} // namespace velform
