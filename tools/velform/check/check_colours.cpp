#include "check/check_form.h"

#include <algorithm>
#include <array>
#include <cmath>

#include <fmt/format.h>

#include "form/record_bytes.h"

namespace velform {
namespace {

constexpr double least_contrast = 4.5;

using Rgb = std::array<std::uint8_t, 3>;

// Of each part only the low byte counts.
Rgb colour_of(const CheckedForm &form, const CheckedObject &o, Field field) {
    const std::string_view bytes = form.form().bytes(o.number, record_field(field));
    const auto part = [bytes](std::size_t at) {
        return static_cast<std::uint8_t>(number_at(bytes, at));
    };
    return {part(0), part(4), part(8)};
}

// Relative luminance, from 0 for black to 1 for white.
double luminance(const Rgb &colour) {
    constexpr std::array weights{0.2126, 0.7152, 0.0722};
    double sum = 0;
    for (std::size_t k = 0; k < colour.size(); ++k) {
        const double share = colour[k] / 255.0;
        sum += weights[k] *
               (share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4));
    }
    return sum;
}

// From 1 for none to 21 for black on white.
double contrast(const Rgb &a, const Rgb &b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

std::string words_for(const Rgb &colour) {
    return fmt::format("#{:02x}{:02x}{:02x}", colour[0], colour[1], colour[2]);
}

} // namespace

void check_colours(const CheckedForm &form) {
    for (const CheckedObject &o : form.own_objects()) {
        if (form.caption(o).empty() && !form.is_field(o) && !form.is_editable(o)) continue;
        const Rgb text = colour_of(form, o, Field::text_colour);
        const Rgb fill = colour_of(form, o, Field::fill);
        const double found = contrast(text, fill);
        if (found >= least_contrast) continue;
        // Rounded down, so that 4.49 is not shown as 4.5.
        form.report(Rule::low_contrast, o, Field::text_colour,
                    fmt::format("{} on {} has a contrast of {:.1f} : 1; at least {} : 1 can be "
                                "read well",
                                words_for(text), words_for(fill), std::floor(found * 10) / 10,
                                least_contrast));
    }
}

} // namespace velform
