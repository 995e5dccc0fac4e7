#include "check/checked_form.h"

#include <algorithm>
#include <array>

#include <fmt/format.h>

namespace velform {
namespace {

constexpr std::array<std::string_view, 7> parts_of_pieces{
    "check", "radio", "list", "scroll_bar", "choice", "slider", "progress"};

} // namespace

Box shared_part(const Box &a, const Box &b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

CheckedForm::CheckedForm(const ReadForm &form, const Form *source, Diagnostics &diagnostics)
    : form_(form), source_(source), diagnostics_(diagnostics), objects_(form.object_count() + 1) {
    for (std::uint32_t k = 1; k < objects_.size(); ++k) {
        CheckedObject &o = objects_[k];
        o.number = k;
        o.type = form.type(k);
        const auto [x, y, width, height] = form.rect_on_display(k);
        o.box = {x, y, std::int64_t{x} + width, std::int64_t{y} + height};
        o.part = form.part(k);
        o.dependents = form.dependents(k);
    }
    find_masters();
}

// Each object is visited once, from the outer ones inwards; what no walk from the top level reaches
// is in a circle.
void CheckedForm::find_masters() {
    std::vector<std::vector<std::uint32_t>> inside(objects_.size());
    for (CheckedObject &o : std::span(objects_).subspan(1)) {
        inside[form_.master(o.number)].push_back(o.number);
    }
    std::vector<std::uint32_t> waiting = inside[0];
    while (!waiting.empty()) {
        CheckedObject &o = objects_[waiting.back()];
        waiting.pop_back();
        if (o.root == 0) o.root = o.number;
        for (const std::uint32_t number : inside[o.number]) {
            CheckedObject &dependent = objects_[number];
            dependent.master = o.number;
            dependent.root = o.root;
            dependent.depth = o.depth + 1;
            dependent.is_piece = o.is_piece || std::ranges::count(parts_of_pieces, o.part) != 0;
            waiting.push_back(number);
        }
    }
    if (source_ == nullptr) return;
    for (const FormObject &object : source_->objects) {
        if (object.source->is_made) objects_[object.number].is_piece = true;
    }
}

std::span<const CheckedObject> CheckedForm::own_objects() const {
    return std::span(objects_).subspan(
        std::min<std::size_t>(VEL_FRAME_BUTTONS + 1, objects_.size()));
}

bool CheckedForm::is_button(const CheckedObject &o) const {
    if (o.type != VEL_TYPE_LABEL && o.type != VEL_TYPE_PICTURE_UNLOADED) return false;
    return has(o, Field::focus) || has(o, Field::default_answer) || has(o, Field::cancel_answer) ||
           number(o, Field::menu) != 0;
}

Box CheckedForm::inside(const CheckedObject &o) const {
    return {o.box.left + number(o, Field::margin_left), o.box.top + number(o, Field::margin_top),
            o.box.right - number(o, Field::margin_right),
            o.box.bottom - number(o, Field::margin_bottom)};
}

bool CheckedForm::is_fitted(const CheckedObject &o) const {
    const std::int64_t border = number(o, Field::border);
    return o.master != 0 && (border == VEL_BORDER_FITTED || border == VEL_BORDER_FRAME_FITTED ||
                             border == VEL_BORDER_SHADOW_FITTED);
}

std::string CheckedForm::caption(const CheckedObject &o) const {
    const bool has_text =
        o.type == VEL_TYPE_WINDOW || o.type == VEL_TYPE_TEXT || o.type == VEL_TYPE_CHAIN;
    if (!has_text && o.type != VEL_TYPE_LABEL && !is_field(o)) return {};
    return form_.caption(o.number);
}

Position CheckedForm::place(const CheckedObject &o, Field field) const {
    if (source_ == nullptr) return {o.number, static_cast<std::uint32_t>(field) + 1};
    const FormObject &object = source_->object(o.number);
    const std::optional<Setting> &setting = object.settings[field];
    const bool is_said = setting && setting->where != Setting{}.where;
    return is_said ? setting->where : object.source->where;
}

void CheckedForm::report(Rule rule, const CheckedObject &o, Field field,
                         std::string message) const {
    report(rule, place(o, field), std::move(message));
}

void CheckedForm::report(Rule rule, Position where, std::string message) const {
    if (row_of(rule).severity == Severity::error) {
        diagnostics_.error(where, std::move(message), rule);
    } else {
        diagnostics_.warning(where, rule, std::move(message));
    }
}

void CheckedForm::report(Rule rule, std::string message) const {
    report(rule, source_ == nullptr ? Position{0, 0} : Position{}, std::move(message));
}

std::string place_in_record(Position where) {
    if (where.line == 0) return {};
    const std::string record = fmt::format(": record {}", where.line);
    if (where.column == 0) return record;
    const RecordField &row = record_field(static_cast<Field>(where.column - 1));
    return fmt::format("{}, field {}", record, row.size == 0 ? row.key : row.name);
}

} // namespace velform
