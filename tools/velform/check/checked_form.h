// A form as the rules see it: what its records say, whether they come from a source or from files,
// and where to say what is wrong with them.
#pragma once

#include <string>
#include <vector>

#include "base/diagnostics.h"
#include "form/form.h"
#include "read/read_form.h"

namespace velform {

// Pixels of the display, without those at right and bottom.
struct Box {
    std::int64_t left = 0, top = 0, right = 0, bottom = 0;

    std::int64_t width() const { return right - left; }
    std::int64_t height() const { return bottom - top; }
    bool is_empty() const { return left >= right || top >= bottom; }
    bool holds(const Box &other) const {
        return left <= other.left && top <= other.top && other.right <= right &&
               other.bottom <= bottom;
    }
};
Box shared_part(const Box &a, const Box &b);

struct CheckedObject {
    std::uint32_t number = 0;
    std::uint32_t type = 0;
    std::uint32_t master = 0; // 0 as well where it leads nowhere or round in a circle
    std::uint32_t root = 0;   // the object of the top level that it is in, or itself
    std::uint32_t depth = 0;  // masters around it
    Box box;
    std::string part{};    // as in "check"
    bool is_piece = false; // of a part: no author can change it
    std::vector<std::uint32_t> dependents{};
};

class CheckedForm {
public:
    // All live as long as this. The source is null for a form from files.
    CheckedForm(const ReadForm &form, const Form *source, Diagnostics &diagnostics);

    const ReadForm &form() const { return form_; }
    const Form *source() const { return source_; }
    // Place 0 is an empty object.
    const std::vector<CheckedObject> &objects() const { return objects_; }
    const CheckedObject &object(std::uint32_t number) const { return objects_[number]; }
    // All but the frame buttons.
    std::span<const CheckedObject> own_objects() const;

    std::int64_t number(const CheckedObject &o, Field field) const {
        return form_.number(o.number, field);
    }
    bool has(const CheckedObject &o, Field trait) const {
        return !form_.value(o.number, trait).empty();
    }
    std::string title(const CheckedObject &o) const { return form_.title(o.number); }
    bool is_whole(const CheckedObject &o) const { return o.part == "whole"; }
    bool is_top_level_window(const CheckedObject &o) const {
        return o.type == VEL_TYPE_WINDOW && o.master == 0;
    }
    bool is_field(const CheckedObject &o) const {
        return o.type == VEL_TYPE_ENTRY || o.type == VEL_TYPE_NUMBER;
    }
    bool is_editable(const CheckedObject &o) const {
        return number(o, Field::editable) == 1 && o.type != VEL_TYPE_CHAIN;
    }
    // Something that the user presses.
    bool is_button(const CheckedObject &o) const;
    // What its margins leave of it.
    Box inside(const CheckedObject &o) const;
    bool is_fitted(const CheckedObject &o) const;
    // What it shows: a caption, a text, or nothing.
    std::string caption(const CheckedObject &o) const;

    // Reports at the field, or at the object where its source does not say the field.
    void report(Rule rule, const CheckedObject &o, Field field, std::string message) const;
    void report(Rule rule, Position where, std::string message) const;
    // At the file as a whole.
    void report(Rule rule, std::string message) const;

private:
    void find_masters();
    Position place(const CheckedObject &o, Field field) const;

    const ReadForm &form_;
    const Form *source_;
    Diagnostics &diagnostics_;
    std::vector<CheckedObject> objects_;
};

// Positions of a form from files are the record and, as the column, one more than the Field; column
// 0 is the record as a whole, and record 0 the file. As in ": record 12, field master".
std::string place_in_record(Position where);

} // namespace velform
