#include "form/form_builder.h"

#include <algorithm>
#include <map>
#include <unordered_map>

#include <fmt/format.h>

#include "base/suggestion.h"
#include "form/numbering.h"
#include "form/traits.h"
#include "kinds/pieces.h"
#include "source/styles.h"

namespace velform {
namespace {

// As the edges of the pictures that come with velform, see scripts/draw-frame-pictures.
constexpr std::int64_t frame_button_edge = 0x93A1B5, close_button_edge = 0xB02E36;

// The window manager places and shows the buttons. Their outline is all that the library draws of a
// button whose picture is not there.
Settings frame_button_settings(const FormSource &source, std::uint32_t button) {
    const auto size = Setting{VEL_FRAME_BUTTON_SIZE, {}};
    Settings settings;
    settings[Field::type] = Setting{VEL_TYPE_PICTURE_UNLOADED, {}};
    settings[Field::width] = settings[Field::height] = size;
    settings[Field::hidden] = Setting{1, {}};
    settings[Field::picture] =
        Setting{frame_picture_path(source.frame_pictures, button), source.frame_pictures_where};
    settings[Field::border] = Setting{VEL_BORDER_SHADOW, {}};
    settings[Field::border_colour] =
        Setting{button == VEL_BUTTON_CLOSE ? close_button_edge : frame_button_edge, {}};
    return settings;
}

class Builder {
public:
    Builder(const FormSource &source, Diagnostics &diagnostics, Lock *lock)
        : source_(source), diagnostics_(diagnostics), styles_(source, diagnostics),
          numbering_(lock, source, diagnostics) {}

    Form build() {
        std::size_t count = VEL_FRAME_BUTTONS;
        for (const ObjectSource &object : source_.objects) count += count_of(object);
        form_.objects.reserve(count);
        for (std::uint32_t button = 1; button <= VEL_FRAME_BUTTONS; ++button) {
            const ObjectSource &source = source_.frame_buttons[button - 1];
            Settings settings = frame_button_settings(source_, button);
            settings.overlay(styles_.resolve(source));
            add(source, 0, settings, Role::bare);
        }
        add_list(source_.objects, 0);
        add_tip_label();
        numbering_.number_objects(form_);
        note_ids();
        for (FormObject &object : form_.objects) {
            add_text(object);
            link_menu(object);
            link_scroll_bar(object);
            number_group(object);
        }
        form_.texts.resize(
            std::max<std::size_t>(form_.texts.size(), numbering_.skip_locked_texts()));
        if (source_.raw.writes_traits) add_traits();
        add_raw_texts();
        refuse_raw_texts_beyond();
        check_text_count();
        form_.raw = source_.raw;
        return std::move(form_);
    }

private:
    void add_list(const std::vector<ObjectSource> &list, std::uint32_t master) {
        for (const ObjectSource &source : list) {
            const Settings said = styles_.resolve(source);
            const std::uint32_t number = add(source, master, said, role_of(source, master, said));
            if (master != 0) form_.objects[master - 1].dependents.push_back(number);
            add_list(source.objects, number);
        }
    }

    // The part that an object plays, which gives it its looks.
    Role role_of(const ObjectSource &source, std::uint32_t master, const Settings &said) const {
        if (source.role != Role::by_type) return source.role;
        const auto is_set = [&said](Field field) { return said[field] && said[field]->number(); };
        switch (type_of(source, said)) {
        case VEL_TYPE_WINDOW:
            return Role::window;
        case VEL_TYPE_LABEL:
            return role_of_label(source, master, said);
        case VEL_TYPE_TEXT:
            return is_set(Field::editable) ? Role::note : Role::text;
        case VEL_TYPE_ENTRY:
        case VEL_TYPE_NUMBER:
            if (said[Field::editable] && !is_set(Field::editable)) return Role::line;
            return type_of(source, said) == VEL_TYPE_ENTRY ? Role::field : Role::number;
        case VEL_TYPE_MENU:
            return Role::menu;
        case VEL_TYPE_CHAIN:
            return is_set(Field::editable) ? Role::note : Role::chain;
        default:
            return Role::bare;
        }
    }

    Role role_of_label(const ObjectSource &source, std::uint32_t master,
                       const Settings &said) const {
        const auto is_set = [&said](Field field) { return said[field] && said[field]->number(); };
        const std::int64_t border = said[Field::border] ? said[Field::border]->number() : 0;
        const bool has_edge = border == VEL_BORDER_FRAME || border == VEL_BORDER_SHADOW;
        if (is_set(Field::default_answer)) return Role::main_button;
        if (is_set(Field::cancel_answer) || is_set(Field::focus)) return Role::button;
        if (said[Field::menu]) return Role::title;
        if (is_in_menu(master)) return Role::item;
        const bool is_plain = said[Field::focus] || !source.objects.empty();
        return has_edge && !is_plain ? Role::button : Role::caption;
    }

    bool is_in_menu(std::uint32_t master) const {
        while (master != 0 && form_.object(master).type() != VEL_TYPE_MENU) {
            master = form_.object(master).master;
        }
        return master != 0;
    }

    std::uint32_t add(const ObjectSource &source, std::uint32_t master, const Settings &said,
                      Role role) {
        FormObject object(&source, standard_settings(type_of(source, said)));
        object.number = static_cast<std::uint32_t>(form_.objects.size() + 1);
        object.master = master;
        object.settings.overlay(looks_of(*source_.theme, role));
        object.settings.overlay(said);
        if (role == Role::window && said[Field::text]) leave_room_for_title(object, said);
        take_colours_of_master(object);
        object.settings[Field::type]->value = std::int64_t{type_of(source, said)};
        if (styles_.lacks_style(source)) {
            object.settings.mark_faulty_unless_in(source.own);
        } else if (!said[Field::type] && !source.default_type) {
            report_missing_type(source);
        }
        if (!said[Field::font_choice]) choose_font(object);
        if (master != 0) make_absolute(object);
        form_.objects.push_back(std::move(object));
        return form_.objects.back().number;
    }

    // Not at its right and bottom edges, where objects may reach further.
    void leave_room_for_title(FormObject &window, const Settings &said) const {
        constexpr std::int64_t left = 16, top = 12;
        if (!source_.theme->dresses_types) return;
        if (!said[Field::margin_left]) window.settings[Field::margin_left] = Setting{left, {}};
        if (!said[Field::margin_top]) window.settings[Field::margin_top] = Setting{top, {}};
    }

    // Of the nearest one that has a body.
    void take_colours_of_master(FormObject &object) const {
        for (const Field field : {Field::fill, Field::text_colour}) {
            if (object.value(field) != colour_of_master) continue;
            std::uint32_t at = object.master;
            while (at != 0 && !means_something(record_field(field), form_.object(at).type())) {
                at = form_.object(at).master;
            }
            const Colour top = field == Field::fill ? source_.theme->desk : source_.theme->ink;
            object.settings[field]->value = at == 0 ? top : form_.object(at).value(field);
        }
    }

    static std::uint32_t type_of(const ObjectSource &source, const Settings &said) {
        if (!said[Field::type]) return source.default_type.value_or(VEL_TYPE_EMPTY);
        return static_cast<std::uint32_t>(said[Field::type]->number());
    }

    void report_missing_type(const ObjectSource &source) {
        diagnostics_.error(source.where, "the object has no type; add one, as in type = \"label\"");
    }

    static void choose_font(FormObject &object) {
        const bool has_own = !object.settings[Field::font_file]->string().empty();
        object.settings[Field::font_choice]->value = std::int64_t{has_own ? 1 : 0};
    }

    void make_absolute(FormObject &object) {
        const FormObject &master = form_.object(object.master);
        for (const Field field : {Field::x, Field::y}) {
            object.settings[field]->value = object.value(field) + master.value(field);
        }
    }

    void add_text(FormObject &object) {
        const std::optional<Setting> &text = object.settings[Field::text];
        if (object.source->raw.text) {
            object.text = *object.source->raw.text;
        } else if (!object.source->rows.empty()) {
            object.text = put_text(numbering_.text_for(object), object.source->rows);
        } else if (takes_text(form_, object)) {
            const std::string words = text ? text->string() : std::string{};
            object.text = put_text(numbering_.text_for(object), words);
            object.text_length = static_cast<std::uint32_t>(words.size());
        } else if (means_something(record_field(Field::label), object.type())) {
            const std::string &label = object.settings[Field::label]->string();
            object.text_length = static_cast<std::uint32_t>(label.size());
        }
    }

    std::uint32_t put_text(std::uint32_t number, const std::string &text) {
        if (form_.texts.size() < number) form_.texts.resize(number);
        form_.texts[number - 1] = text;
        return number;
    }

    // Up to the first that has neither a place among the others nor is next to one.
    void add_raw_texts() {
        for (const auto &[number, text] : source_.raw.texts) {
            if (number > form_.texts.size() + 1) return;
            if (text.text) put_text(number, *text.text);
        }
    }

    void refuse_raw_texts_beyond() {
        for (const auto &[number, text] : source_.raw.texts) {
            if (number <= form_.texts.size()) continue;
            diagnostics_.error(text.where, fmt::format("the form has {} texts, so there can be no "
                                                       "text {}",
                                                       form_.texts.size(), number));
        }
    }

    // A text that is empty gives the program, or the person who types, a place to write to.
    static bool takes_text(const Form &form, const FormObject &object) {
        if (is_chain_member(form, object)) return true;
        if (!means_something(record_field(Field::text), object.type())) return false;
        if (object.settings[Field::text].has_value()) return true;
        return object.type() != VEL_TYPE_CHAIN && object.value(Field::editable) != 0;
    }

    // After the texts of all objects, whose numbers are the same whether there are traits or not.
    void add_traits() {
        const std::vector<std::string> texts = trait_texts(form_);
        if (texts.empty()) return;
        FormObject &first = form_.objects.front();
        if (means_something(record_field(Field::text), first.type())) {
            diagnostics_.error(first.source->where,
                               "the form keeps what it says of keys and answers in the text of the "
                               "first frame button, which must be a label or a picture for it");
            return;
        }
        first.text = put_text(numbering_.next_text(), texts.front());
        for (std::size_t k = 1; k < texts.size(); ++k) {
            put_text(numbering_.next_text(), texts[k]);
        }
    }

    void check_text_count() {
        if (form_.texts.size() <= most_records) return;
        diagnostics_.error({}, fmt::format("a form holds at most {} texts, with those for what it "
                                           "says of keys and answers and those that a lock file "
                                           "keeps; take some out",
                                           most_records));
    }

    void note_ids() {
        for (const FormObject &object : form_.objects) {
            const std::string_view id = object.source->id;
            const std::string_view alias = object.source->alias;
            if (!alias.empty()) numbers_.try_emplace(alias, object.number);
            if (id.empty()) continue;
            numbers_.try_emplace(id, object.number);
            ids_.add(id);
            if (object.type() == VEL_TYPE_MENU) menus_.add(id);
        }
    }

    void link_menu(FormObject &object) {
        const Setting &menu = *object.settings[Field::menu];
        if (menu.string().empty() || menu.is_faulty) return;
        if (!means_something(record_field(Field::menu), object.type())) return;
        const auto named = numbers_.find(menu.string());
        if (named == numbers_.end()) {
            refuse_menu(menu, fmt::format("there is no object '{}'", menu.string()));
            return;
        }
        const std::uint32_t type = form_.object(named->second).type();
        if (type == VEL_TYPE_MENU) {
            object.menu = named->second;
        } else {
            refuse_menu(menu, fmt::format("'{}' is no menu but {}", menu.string(),
                                          type_with_article(type)));
        }
    }

    void add_tip_label() {
        const bool has_tips = std::ranges::any_of(form_.objects, [](const FormObject &object) {
            const std::optional<Setting> &tip = object.settings[Field::tip];
            return tip && !tip->string().empty();
        });
        const bool has_label = std::ranges::any_of(form_.objects, [](const FormObject &object) {
            const std::optional<Setting> &part = object.settings[Field::part];
            return part && part->number() == static_cast<std::int64_t>(PartCode::tip_label);
        });
        if (!has_tips || has_label) return;
        const ObjectSource &label = source_.tip_label;
        add(label, 0, label.own, label.role);
    }

    void link_scroll_bar(FormObject &object) {
        if (object.source->scrolls_master) set_trait(object, Field::target, object.master);
        const std::optional<Setting> &target = object.source->scrolls;
        if (!target || target->is_faulty) return;
        const auto named = numbers_.find(target->string());
        if (named == numbers_.end()) {
            diagnostics_.error(target->where,
                               fmt::format("there is no object '{}'{}", target->string(),
                                           ids_.hint(target->string())));
            return;
        }
        const FormObject &scrolled = form_.object(named->second);
        if (!can_be_scrolled(scrolled)) {
            diagnostics_.error(target->where,
                               fmt::format("'{}' is {}; a scroll bar is for a list, a text, a "
                                           "chain or a window",
                                           target->string(), type_with_article(scrolled.type())));
        }
        set_trait(object, Field::target, named->second);
    }

    static bool can_be_scrolled(const FormObject &object) {
        const Role role = object.source->role;
        return means_something(record_field(Field::text), object.type()) || role == Role::list ||
               role == Role::drop_down_list || role == Role::whole;
    }

    // Radio buttons of a name belong together in a window, those without one in their master.
    void number_group(FormObject &object) {
        if (!object.source->group) return;
        std::uint32_t around = object.master;
        if (!object.source->group->empty()) {
            while (around != 0 && form_.object(around).master != 0) {
                around = form_.object(around).master;
            }
        }
        const auto next = static_cast<std::uint32_t>(groups_.size() + 1);
        Group &group =
            groups_.try_emplace({around, *object.source->group}, Group{next}).first->second;
        set_trait(object, Field::group, group.number);
        if (object.value(Field::value) == 0) return;
        if (group.checked != nullptr) {
            diagnostics_.error(object.source->where,
                               fmt::format("a radio button of the group is checked already, see "
                                           "line {}; take one `checked` out",
                                           group.checked->where.line));
        }
        group.checked = object.source;
    }

    static void set_trait(FormObject &object, Field field, std::uint32_t number) {
        object.settings[field] = Setting{std::int64_t{number}, {}};
    }

    void refuse_menu(const Setting &menu, const std::string &fault) {
        diagnostics_.error(menu.where, fault + menus_.hint(menu.string()));
    }

    const FormSource &source_;
    Diagnostics &diagnostics_;
    StyleResolver styles_;
    Numbering numbering_;
    Form form_;
    std::unordered_map<std::string_view, std::uint32_t> numbers_; // by id; the first wins
    Suggestions menus_, ids_;
    struct Group {
        std::uint32_t number;
        const ObjectSource *checked = nullptr;
    };
    std::map<std::pair<std::uint32_t, std::string>, Group> groups_;
};

} // namespace

Settings standard_settings(std::uint32_t type) {
    Settings settings;
    for (const RecordField &row : record_table()) {
        if (row.kind == Kind::caption || row.kind == Kind::path || row.kind == Kind::object) {
            settings[row.field] = Setting{std::string{}, {}};
        } else if (!row.key.empty() && row.kind != Kind::text) {
            settings[row.field] = Setting{row.standard, {}};
        }
    }
    for (const TypeStandard &standard : type_standards()) {
        if (standard.type == type) settings[standard.field] = Setting{standard.value, {}};
    }
    return settings;
}

FormObject empty_record(std::uint32_t number) {
    static const ObjectSource nothing;
    FormObject record(&nothing, standard_settings(VEL_TYPE_EMPTY));
    record.number = number;
    record.is_empty = true;
    return record;
}

Form build_form(const FormSource &source, Diagnostics &diagnostics, Lock *lock) {
    return Builder(source, diagnostics, lock).build();
}

} // namespace velform
