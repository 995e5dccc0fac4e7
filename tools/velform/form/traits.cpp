#include "form/traits.h"

#include <fmt/format.h>

namespace velform {
namespace {

bool is_said(const FormObject &object, Field field) {
    return object.settings[field].has_value() &&
           means_something(record_field(field), object.type());
}

// A caption is centred unless something else is said.
bool is_worth_a_word(const FormObject &object, Field field) {
    return is_said(object, field) && (field != Field::align || object.value(field) != 0);
}

bool is_in_menu(const Form &form, const FormObject &object) {
    std::uint32_t at = object.master;
    while (at != 0 && form.object(at).type() != VEL_TYPE_MENU) at = form.object(at).master;
    return at != 0;
}

// Labels and pictures that look like buttons: they have an edge of their own and hold nothing.
// Those of menus and frames have ways of their own to be reached.
bool is_button(const Form &form, const FormObject &object) {
    if (object.source->is_made) return false;
    if (!means_something(record_field(Field::focus), object.type())) return false;
    const std::int64_t border = object.value(Field::border);
    const bool has_edge = border == VEL_BORDER_FRAME || border == VEL_BORDER_SHADOW;
    return (has_edge || !access_key(object).empty()) && object.dependents.empty() &&
           object.menu == 0 && object.number > VEL_FRAME_BUTTONS && !is_in_menu(form, object);
}

// As in " cancel key=s"; empty when there is nothing to say.
std::string words_of(const Form &form, const FormObject &object) {
    const vel_answer answer = answer_of(form, object);
    const std::string letter = access_key(object);
    std::string words;
#define ANSWER(field, key, word, code, ...)                                                        \
    if (answer == (code)) words += " " word;
#define LETTER(field, key, word, ...)                                                              \
    if (!letter.empty()) words += " " word "=" + letter;
#define MARK(field, key, word, ...)                                                                \
    if (is_set(object, Field::field)) words += " " word;
#define VALUE(field, kind, key, word, ...)                                                         \
    if (is_worth_a_word(object, Field::field))                                                     \
        words += fmt::format(" " word "={}", object.value(Field::field));
// These go to the end of the line.
#define PHRASE(field, key, word, ...)                                                              \
    if (is_said(object, Field::field))                                                             \
        words += " " word "=" + object.settings[Field::field]->string();
#include "model/traits.inc"
    return words;
}

} // namespace

bool is_set(const FormObject &object, Field flag) {
    return is_said(object, flag) && object.value(flag) != 0;
}

vel_answer answer_of(const Form &form, const FormObject &object) {
    if (is_set(object, Field::default_answer)) return VEL_ANSWER_DEFAULT;
    if (is_set(object, Field::cancel_answer)) return VEL_ANSWER_CANCEL;
    const bool has_focus =
        is_said(object, Field::focus) ? is_set(object, Field::focus) : is_button(form, object);
    return has_focus ? VEL_ANSWER_PLAIN : VEL_ANSWER_NONE;
}

std::string access_key(const FormObject &object) {
    return is_said(object, Field::access_key) ? object.settings[Field::access_key]->string() : "";
}

std::vector<std::string> trait_texts(const Form &form) {
    std::vector<std::string> texts;
    for (const FormObject &object : form.objects) {
        const std::string words = words_of(form, object);
        if (words.empty()) continue;
        const std::string line = fmt::format("\n{}{}", object.number, words);
        const bool has_room =
            !texts.empty() && texts.back().size() + line.size() < std::size_t{VEL_TEXT_SIZE};
        if (!has_room) texts.emplace_back(trait_signature);
        texts.back() += line;
    }
    return texts;
}

} // namespace velform
