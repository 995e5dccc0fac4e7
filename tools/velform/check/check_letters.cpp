#include "check/check_form.h"

#include <algorithm>

#include <fmt/format.h>

#include "form/record_bytes.h"

namespace velform {
namespace {

constexpr std::uint8_t byte_of(char c) { return static_cast<std::uint8_t>(c); }

// Bytes that ISO 8859-1 keeps for control characters are letters of code page 437 or 850, or
// of Windows.
bool is_foreign(char c) { return byte_of(c) >= 0x80 && byte_of(c) < 0xA0; }

// A letter of ISO 8859-1 as its two bytes in UTF-8.
bool is_pair_of_utf8(std::string_view text, std::size_t at) {
    return at + 1 < text.size() && (byte_of(text[at]) & 0xFE) == 0xC2 &&
           (byte_of(text[at + 1]) & 0xC0) == 0x80;
}

std::string fault_of(std::string_view latin1) {
    for (std::size_t k = 0; k < latin1.size(); ++k) {
        if (is_pair_of_utf8(latin1, k)) {
            return fmt::format("bytes {:02X} {:02X} are a letter of UTF-8; texts are in ISO 8859-1",
                               byte_of(latin1[k]), byte_of(latin1[k + 1]));
        }
        if (is_foreign(latin1[k])) {
            return fmt::format("byte {:02X} is no letter of ISO 8859-1, but of another code page",
                               byte_of(latin1[k]));
        }
    }
    return {};
}

} // namespace

void check_letters(const CheckedForm &form) {
    const ReadForm &read = form.form();
    for (const CheckedObject &o : form.own_objects()) {
        if (form.caption(o).empty()) continue;
        const std::uint32_t text = read.text_of(o.number);
        const RecordField &label = record_field(Field::label);
        std::string fault = text != 0
                                ? fault_of(read.text(text))
                                : fault_of(string_at(read.bytes(o.number, label), 0, label.size));
        if (!fault.empty()) {
            form.report(Rule::wrong_code_page, o, text != 0 ? Field::text : Field::label,
                        std::move(fault));
        }
    }
}

} // namespace velform
