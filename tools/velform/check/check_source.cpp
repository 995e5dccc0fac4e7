#include "check/check_form.h"

#include <set>

#include <fmt/format.h>

namespace velform {
namespace {

class StyleUses {
public:
    explicit StyleUses(const FormSource &source) : source_(source) {
        for (const ObjectSource &button : source.frame_buttons) note(button);
        for (const ObjectSource &object : source.objects) note_all(object);
    }

    void report(const CheckedForm &form) const {
        for (const auto &[name, style] : source_.styles) {
            if (used_.contains(name)) continue;
            form.report(Rule::unused_style, style.where,
                        fmt::format("nothing uses the style '{}'", name));
        }
    }

private:
    void note_all(const ObjectSource &object) {
        note(object);
        for (const ObjectSource &inside : object.objects) note_all(inside);
    }

    void note(const Block &block) {
        for (const StyleUse &use : block.styles) {
            const auto style = source_.styles.find(use.name);
            if (style != source_.styles.end() && used_.insert(use.name).second) note(style->second);
        }
    }

    const FormSource &source_;
    std::set<std::string> used_;
};

// A title opens its menu by itself.
void check_ids(const CheckedForm &form) {
    for (const CheckedObject &o : form.own_objects()) {
        const ObjectSource &said = *form.source()->object(o.number).source;
        const bool is_pressed = form.is_button(o) && form.number(o, Field::menu) == 0;
        if (!is_pressed || o.is_piece || !said.id.empty()) continue;
        form.report(Rule::button_without_id, said.where,
                    "the button has no `id`, so the program cannot know that it was pressed");
    }
}

} // namespace

void check_source(const CheckedForm &form, const FormSource &source) {
    StyleUses(source).report(form);
    check_ids(form);
}

} // namespace velform
