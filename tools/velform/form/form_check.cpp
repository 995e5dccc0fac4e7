#include "form/form_check.h"

#include <algorithm>

#include <fmt/format.h>

#include "form/trait_check.h"

namespace velform {
namespace {

constexpr std::size_t longest_entry = 64;

class ObjectCheck {
public:
    ObjectCheck(const Form &form, const FormObject &object, Diagnostics &diagnostics)
        : form_(form), object_(object), diagnostics_(diagnostics) {}

    void run() {
        if (!object_.source->is_made) {
            check_own_keys();
            check_strings();
            check_chain();
        }
        check_place();
        check_dependents();
    }

private:
    bool is(std::uint32_t type) const { return object_.type() == type; }
    bool is_field() const { return is(VEL_TYPE_ENTRY) || is(VEL_TYPE_NUMBER); }
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
                diagnostics_.warning(own->where, Rule::meaningless_key, std::move(message));
            }
        }
        if (object_.source->own[Field::hidden] && !can_be_hidden()) {
            diagnostics_.warning(place_of(Field::hidden), Rule::always_visible,
                                 "a dependent that is no menu starts visible whatever it says");
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
        if (object_.value(Field::font_choice) == 1 && string(Field::font_file).empty() &&
            !is_faulty(Field::font_file)) {
            error(Field::font_choice, "the own font has no file; add a `font_file`");
        }
        if (is(VEL_TYPE_PICTURE_UNLOADED) && string(Field::picture).empty() &&
            !is_faulty(Field::picture)) {
            error(Field::picture, "the picture has no file; add a `picture`");
        }
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
    }

    void check_dependents() {
        if (object_.dependents.size() <= VEL_MAX_DEPENDENTS) return;
        const FormObject &first_too_many = form_.object(object_.dependents[VEL_MAX_DEPENDENTS]);
        diagnostics_.error(first_too_many.source->where,
                           fmt::format("an object holds at most {} objects, and this is one more; "
                                       "put some of them into an object of their own",
                                       VEL_MAX_DEPENDENTS));
    }

    void check_chain() {
        if (is_chain_member(form_, object_) && object_.source->own[Field::text]) {
            error(Field::text, "the text of a chain flows from its head; write the `text` there");
        }
    }

    const Form &form_;
    const FormObject &object_;
    Diagnostics &diagnostics_;
};

} // namespace

void check_form(const Form &form, Diagnostics &diagnostics) {
    for (const FormObject &object : form.objects) {
        if (!object.is_empty) ObjectCheck(form, object, diagnostics).run();
    }
    check_traits(form, diagnostics);
}

} // namespace velform
