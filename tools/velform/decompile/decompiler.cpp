#include "decompile/decompiler.h"

#include <algorithm>
#include <cstddef>
#include <set>

#include "decompile/longest_rise.h"
#include "decompile/made_up_ids.h"
#include "decompile/trait_words.h"
#include "form/form_builder.h"
#include "form/form_check.h"
#include "form/header.h"
#include "form/records.h"
#include "form/traits.h"
#include "kinds/pieces.h"
#include "source/identifier.h"
#include "source/raw_reader.h"

namespace velform {
namespace {

constexpr int deepest_object = 16; // a key of a source has at most 32 parts
constexpr int most_rounds = 12;
constexpr std::uint32_t id_column = 2 + static_cast<std::uint32_t>(field_count);

std::uint32_t record_number(std::string_view record, Field field) {
    return number_at(record, record_field(field).offset);
}

// Where the compiler finds something, so that what it complains of leads back here: the line is the
// number of an object and one more, the column a field and two more.
Position place_of(std::uint32_t number, Field field) {
    return {number + 1, static_cast<std::uint32_t>(field) + 2};
}

// Works like a person with the compiler: says what is certain, compiles, compares, says what is
// missing, and writes down the bytes of what cannot be said. Saying more about one object changes
// the looks of others at most once, so a few rounds are enough.
class Decompiler {
public:
    Decompiler(const FormBytes &bytes, const KnownNames &names, const DecompileChoice &choice)
        : bytes_(bytes), records_(bytes.form, sizeof(vel_object_file_rec)),
          texts_(bytes.text, sizeof(vel_text_rec)), names_(names), choice_(choice) {}

    std::optional<FormSource> run() {
        source_.theme = choice_.theme;
        if (!names_.prefix.empty()) source_.prefix = names_.prefix;
        source_.raw.form_tail = records_.tail;
        source_.raw.text_tail = texts_.tail;
        source_.raw.writes_traits = choice_.has_traits;
        find_frame_pictures();
        find_traits();
        plant_objects();
        choose_texts();
        for (std::uint32_t number = 1; number <= count(); ++number) begin(number);
        if (records_.count() < VEL_FRAME_BUTTONS) source_.raw.records = records_.count();
        if (!settle() || !add_patches()) return {};
        leave_out_tip_label();
        return std::move(source_);
    }

private:
    std::uint32_t count() const { return static_cast<std::uint32_t>(objects_.size() - 1); }
    bool is_recorded(std::uint32_t number) const { return number <= records_.count(); }
    bool has_text(std::uint32_t number) const { return number != 0 && number <= texts_.count(); }

    // Their folder, if that of the first one is like the standard one.
    void find_frame_pictures() {
        const RecordField &row = record_field(Field::picture);
        if (records_.count() == 0 || choice_.is_plain) return;
        std::string_view path = string_at(records_[1], row.offset, row.size);
        const std::string name = frame_picture_path("", 1);
        const std::size_t longest =
            row.size - 1 - frame_picture_path("", VEL_BUTTON_HEIGHT_LESS).size();
        if (!path.ends_with(name) || !is_readable_path(path)) return;
        path.remove_suffix(name.size());
        if (path.size() <= longest) source_.frame_pictures = path;
    }

    void find_traits() {
        if (!choice_.has_traits || records_.count() == 0) return;
        first_trait_ = last_trait_ = record_number(records_[1], Field::text);
        std::vector<std::string_view> lines;
        while (has_text(last_trait_) &&
               text_of_record(texts_[last_trait_]).starts_with(trait_signature)) {
            lines.push_back(text_of_record(texts_[last_trait_++]));
        }
        traits_ = read_trait_words(lines);
    }
    bool is_trait_text(std::uint32_t text) const {
        return text >= first_trait_ && text < last_trait_;
    }

    // An object is inside another one in the source where both say so and the order of the records
    // is that of a source.
    void plant_objects() {
        objects_ = {nullptr};
        masters_.assign(std::size_t{std::max(records_.count(), 7U)} + 1, 0);
        for (ObjectSource &button : source_.frame_buttons) objects_.push_back(&button);
        std::uint32_t next = VEL_FRAME_BUTTONS + 1;
        source_.objects = planted(0, next, 0);
        note_objects(source_.objects);
    }

    std::vector<ObjectSource> planted(std::uint32_t master, std::uint32_t &next, int depth) {
        std::vector<ObjectSource> objects;
        while (is_recorded(next) && objects.size() < most_inside(master) &&
               (master == 0 || (depth < deepest_object && is_inside(next, master)))) {
            masters_[next] = master;
            const std::uint32_t number = next++;
            ObjectSource object;
            object.objects = planted(number, next, depth + 1);
            objects.push_back(std::move(object));
        }
        return objects;
    }
    static std::size_t most_inside(std::uint32_t master) {
        return master == 0 ? most_records : std::size_t{VEL_MAX_DEPENDENTS};
    }

    bool is_inside(std::uint32_t number, std::uint32_t master) const {
        if (choice_.is_plain || record_number(records_[number], Field::master) != master) {
            return false;
        }
        const std::uint32_t list = record_field(Field::dependents).offset;
        for (std::uint32_t k = 0; k < VEL_MAX_DEPENDENTS; ++k) {
            const std::uint32_t entry = number_at(records_[master], list + k * number_size);
            if (entry == number) return true;
            if (entry == 0) return false;
        }
        return false;
    }

    void note_objects(std::vector<ObjectSource> &objects) {
        for (ObjectSource &object : objects) {
            objects_.push_back(&object);
            note_objects(object.objects);
        }
    }

    // The texts of objects whose numbers rise with those of the objects; all others are raw.
    void choose_texts() {
        std::vector<std::uint32_t> owners, numbers;
        for (std::uint32_t number = 1; number <= records_.count() && !choice_.is_plain; ++number) {
            if (!can_own_text(number)) continue;
            owners.push_back(number);
            numbers.push_back(record_number(records_[number], Field::text));
        }
        for (const std::size_t k : longest_rise(numbers)) owned_texts_[owners[k]] = numbers[k];
        std::set<std::uint32_t> owned;
        for (const auto &[owner, text] : owned_texts_) owned.insert(text);
        for (std::uint32_t text = 1; text <= texts_.count(); ++text) {
            if (owned.contains(text) || is_trait_text(text)) continue;
            source_.raw.texts[text].text = readable_text(text);
        }
    }
    std::string readable_text(std::uint32_t text) const {
        return choice_.is_plain ? "" : readable(text_of_record(texts_[text]), true);
    }

    bool can_own_text(std::uint32_t number) const {
        const std::uint32_t text = record_number(records_[number], Field::text);
        if (!has_text(text) || is_trait_text(text)) return false;
        const std::uint32_t type = said_type(number);
        if (!means_something(record_field(Field::text), type)) return false;
        return !is_chain_member(number) || text_of_record(texts_[text]).empty();
    }
    bool is_chain_member(std::uint32_t number) const {
        return masters_[number] != 0 && said_type(number) == VEL_TYPE_CHAIN &&
               said_type(masters_[number]) == VEL_TYPE_CHAIN;
    }

    // That of the record, if a source can say it.
    std::uint32_t said_type(std::uint32_t number) const {
        const std::uint32_t type = record_number(records_[number], Field::type);
        const Range range = record_field(Field::type).range;
        const bool has_file = type != VEL_TYPE_PICTURE_UNLOADED || names_a_picture(number);
        const bool is_sayable = type <= range.last && has_file && !choice_.is_plain;
        return is_sayable && !bare_.contains(number) ? type : standard_type(number);
    }
    static std::uint32_t standard_type(std::uint32_t number) {
        return number <= VEL_FRAME_BUTTONS ? VEL_TYPE_PICTURE_UNLOADED : VEL_TYPE_EMPTY;
    }
    bool names_a_picture(std::uint32_t number) const {
        const RecordField &row = record_field(Field::picture);
        return is_readable_path(string_at(records_[number], row.offset, row.size));
    }

    void begin(std::uint32_t number) {
        ObjectSource &object = *objects_[number];
        object.where = object.id_where = {number + 1, 1};
        object.id_where.column = id_column;
        if (!is_recorded(number)) return;
        if (number > VEL_FRAME_BUTTONS || said_type(number) != standard_type(number)) {
            say(number, Field::type, std::int64_t{said_type(number)});
        }
        if (choice_.is_plain) return;
        if (number > VEL_FRAME_BUTTONS) object.id = id_of(number);
        if (names_a_picture(number) && said_type(number) == VEL_TYPE_PICTURE_UNLOADED &&
            number > VEL_FRAME_BUTTONS) {
            const RecordField &row = record_field(Field::picture);
            say(number, row.field, std::string(string_at(records_[number], row.offset, row.size)));
        }
        say_text(number);
        say_traits(number);
    }

    void say(std::uint32_t number, Field field, Setting::Value value) {
        if (unsayable_.contains({number, field})) return;
        objects_[number]->own[field] = Setting{std::move(value), place_of(number, field)};
    }

    std::string id_of(std::uint32_t number) {
        const auto known = names_.ids.find(number);
        if (known != names_.ids.end()) return known->second;
        const std::uint32_t type = record_number(records_[number], Field::type);
        const RecordField &label = record_field(Field::label);
        const bool is_blank = type == VEL_TYPE_EMPTY ||
                              (type == VEL_TYPE_LABEL &&
                               string_at(records_[number], label.offset, label.size).empty());
        if (type != VEL_TYPE_MENU && (names_.are_given || is_blank)) return {};
        const std::uint32_t text = record_number(records_[number], Field::text);
        return made_up_.id_for(records_[number],
                               has_text(text) ? text_of_record(texts_[text]) : "");
    }

    void say_text(std::uint32_t number) {
        const auto owned = owned_texts_.find(number);
        if (owned == owned_texts_.end()) return;
        std::string text = readable_text(owned->second);
        if (!text.empty()) say(number, Field::text, std::move(text));
    }

    // Those that no theme gives.
    void say_traits(std::uint32_t number) {
        const auto found = traits_.find(number);
        if (found == traits_.end()) return;
        for (const RecordField &row : trait_table()) {
            const std::optional<Setting> &trait = found->second[row.field];
            if (!trait || row.field == Field::focus || row.field == Field::align) continue;
            if (row.kind == Kind::caption && !is_short_and_readable(trait->string())) continue;
            say(number, row.field, trait->value);
        }
    }
    static bool is_short_and_readable(const std::string &text) {
        return text.size() < std::size_t{VEL_STRING_SIZE} && readable(text, false) == text;
    }

    // Until there is nothing left to say and nothing to complain of.
    bool settle() {
        for (int round = 0; round < most_rounds; ++round) {
            Diagnostics diagnostics;
            const Form form = build_form(source_, diagnostics);
            if (form.objects.size() > count()) return false;
            check_form(form, diagnostics);
            header_text(form, "", diagnostics);
            is_changed_ = false;
            if (diagnostics.has_errors() && !give_in(diagnostics.places_of_errors())) return false;
            for (std::uint32_t number = 1; number <= count(); ++number) compare(form, number);
            if (!is_changed_) return true;
        }
        return false;
    }

    bool give_in(const std::vector<Position> &places) {
        for (const auto &[line, column] : places) {
            const std::uint32_t number = line - 1;
            if (number == 0) continue; // of texts, which are not all there yet
            if (number > count()) return false;
            ObjectSource &object = *objects_[number];
            if (column == id_column) {
                object.id.clear();
            } else if (column >= 2 && !unsayable_.contains({number, field_at(column)})) {
                unsayable_.insert({number, field_at(column)});
                object.own[field_at(column)].reset();
            } else if (!give_up(number)) {
                return false;
            }
            is_changed_ = true;
        }
        return true;
    }
    static Field field_at(std::uint32_t column) { return static_cast<Field>(column - 2); }

    // Leaves all of an object to its bytes.
    bool give_up(std::uint32_t number) {
        if (owned_texts_.contains(number) || !bare_.insert(number).second) return false;
        objects_[number]->own = {};
        if (number > VEL_FRAME_BUTTONS) say(number, Field::type, std::int64_t{VEL_TYPE_EMPTY});
        return true;
    }

    void compare(const Form &form, std::uint32_t number) {
        if (!is_recorded(number) || bare_.contains(number)) return;
        const FormObject &object = form.object(number);
        compare_text(object);
        if (choice_.is_plain) return;
        if (choice_.has_traits) compare_traits(form, object);
        for (const RecordField &row : record_table()) compare_field(form, object, row);
    }

    void change(const FormObject &object, Field field, Setting::Value value) {
        if (unsayable_.contains({object.number, field})) return;
        say(object.number, field, std::move(value));
        is_changed_ = true;
    }

    void compare_text(const FormObject &object) {
        const std::uint32_t wanted = record_number(records_[object.number], Field::text);
        std::optional<std::uint32_t> &raw = objects_[object.number]->raw.text;
        if (raw || (object.number == 1 && !traits_.empty())) return;
        if (owned_texts_.contains(object.number)) {
            if (object.text == 0) change(object, Field::text, std::string{});
        } else if (object.text != 0 || wanted != 0) {
            raw = wanted;
            is_changed_ = true;
        }
    }

    void compare_traits(const Form &form, const FormObject &object) {
        const auto found = traits_.find(object.number);
        const Settings wanted = found == traits_.end() ? Settings{} : found->second;
        const bool is_answer = answer_of(form, object) != VEL_ANSWER_NONE;
        const bool is_wanted =
            wanted[Field::focus] || wanted[Field::default_answer] || wanted[Field::cancel_answer];
        if (is_answer != is_wanted && !objects_[object.number]->own[Field::focus] &&
            means_something(record_field(Field::focus), object.type())) {
            change(object, Field::focus, std::int64_t{is_wanted ? 1 : 0});
        }
        const auto align_of = [](const Settings &settings) {
            return settings[Field::align] ? settings[Field::align]->number() : 0;
        };
        if (means_something(record_field(Field::align), object.type()) &&
            align_of(wanted) != align_of(object.settings)) {
            change(object, Field::align, align_of(wanted));
        }
    }

    void compare_field(const Form &form, const FormObject &object, const RecordField &row) {
        if (row.key.empty() || !means_something(row, object.type())) return;
        const std::string_view record = records_[object.number];
        const std::uint32_t word = number_at(record, row.offset);
        switch (row.kind) {
        case Kind::number:
        case Kind::flag:
        case Kind::code:
            compare_number(form, object, row, word);
            break;
        case Kind::colour:
            compare_colour(object, row);
            break;
        case Kind::caption:
        case Kind::path:
            compare_string(object, row);
            break;
        case Kind::object:
            compare_menu(form, object, word);
            break;
        default:
            break;
        }
    }

    void compare_number(const Form &form, const FormObject &object, const RecordField &row,
                        std::uint32_t word) {
        if (row.field == Field::type ||
            static_cast<std::uint32_t>(object.value(row.field)) == word) {
            return;
        }
        std::int64_t value = static_cast<std::int32_t>(word);
        const bool is_place = row.field == Field::x || row.field == Field::y;
        if (value < row.range.first || value > row.range.last) return;
        if (is_place && object.master != 0) value -= form.object(object.master).value(row.field);
        if (value < row.range.first || value > row.range.last) return;
        if (row.field == Field::hidden && object.master != 0 && value != 0 &&
            object.type() != VEL_TYPE_MENU) {
            return;
        }
        change(object, row.field, value);
    }

    void compare_colour(const FormObject &object, const RecordField &row) {
        const std::int64_t rgb = colour_at(records_[object.number], row.offset);
        if (rgb >= 0 && object.value(row.field) != rgb) change(object, row.field, rgb);
    }

    void compare_string(const FormObject &object, const RecordField &row) {
        const std::string_view bytes = string_at(records_[object.number], row.offset, row.size);
        const std::string said =
            row.kind == Kind::caption ? readable(bytes, false) : std::string(bytes);
        if (object.settings[row.field]->string() == said) return;
        if (row.kind == Kind::path && !said.empty() && !is_readable_path(said)) return;
        if (row.field == Field::picture && said.empty()) return;
        change(object, row.field, said);
    }

    void compare_menu(const Form &form, const FormObject &object, std::uint32_t menu) {
        if (object.menu == menu || menu == 0 || menu > count()) return;
        const std::string &id = objects_[menu]->id;
        if (id.empty() || form.object(menu).type() != VEL_TYPE_MENU) return;
        change(object, Field::menu, id);
    }

    // What is different still, in bytes.
    bool add_patches() {
        Diagnostics unused;
        const Form form = build_form(source_, unused);
        if (form.objects.size() != count() || form.texts.size() != texts_.count()) return false;
        const std::string objects = form_file_bytes(form), texts = text_file_bytes(form);
        for (std::uint32_t number = 1; number <= records_.count(); ++number) {
            const std::size_t size = sizeof(vel_object_file_rec);
            const std::string_view made =
                std::string_view(objects).substr((number - 1) * size, size);
            objects_[number]->raw.patches = patches_of_object(made, records_[number]);
        }
        for (std::uint32_t number = 1; number <= texts_.count(); ++number) {
            const std::size_t size = sizeof(vel_text_rec);
            const std::string_view made = std::string_view(texts).substr((number - 1) * size, size);
            if (is_trait_text(number) && text_of_record(made) != text_of_record(texts_[number])) {
                return false;
            }
            Patches patches = patches_of_text(made, texts_[number]);
            if (!patches.empty()) source_.raw.texts[number].patches = std::move(patches);
        }
        return true;
    }

    static Patches patches_of_object(std::string_view made, std::string_view wanted) {
        Patches patches;
        for (const RecordField &row : record_table()) {
            if (row.field == Field::menu) continue; // its bytes were those of the row before
            const std::string_view bytes = wanted.substr(row.offset, row.size);
            if (row.kind == Kind::caption || row.kind == Kind::path) {
                add_runs(made, wanted, row.offset, row.size, patches);
            } else if (row.field != Field::dependents) {
                add_words(made, wanted, row.offset, row.size, patches);
            } else if (made.substr(row.offset, row.size) != bytes) {
                patches.push_back({row.offset, std::string(bytes)});
            }
        }
        return patches;
    }

    static Patches patches_of_text(std::string_view made, std::string_view wanted) {
        constexpr std::uint32_t numbers = offsetof(vel_text_rec, text);
        Patches patches;
        add_words(made, wanted, 0, numbers, patches);
        add_runs(made, wanted, numbers, VEL_TEXT_SIZE, patches);
        return patches;
    }

    static void add_words(std::string_view made, std::string_view wanted, std::uint32_t offset,
                          std::uint32_t size, Patches &patches) {
        for (std::uint32_t at = offset; at < offset + size; at += number_size) {
            const std::string_view bytes = wanted.substr(at, number_size);
            if (made.substr(at, number_size) != bytes) patches.push_back({at, std::string(bytes)});
        }
    }

    // Bytes that differ; a few between them that do not are cheaper than another key.
    static void add_runs(std::string_view made, std::string_view wanted, std::uint32_t offset,
                         std::uint32_t size, Patches &patches) {
        constexpr std::uint32_t shortest_gap = 5;
        std::uint32_t first = 0, last = 0; // none while they are the same
        const auto add = [&] {
            if (last > first)
                patches.push_back({first, std::string(wanted.substr(first, last - first))});
        };
        for (std::uint32_t at = offset; at < offset + size; ++at) {
            if (made[at] == wanted[at]) continue;
            if (last == first || at >= last + shortest_gap) {
                add();
                first = at;
            }
            last = at + 1;
        }
        add();
    }

    // The compiler adds one at the end by itself.
    void leave_out_tip_label() {
        if (source_.objects.empty() || &source_.objects.back() != objects_.back()) return;
        const std::optional<Setting> &part = objects_.back()->own[Field::part];
        if (!part || part->number() != static_cast<std::int64_t>(PartCode::tip_label)) return;
        ObjectSource label = std::move(source_.objects.back());
        source_.objects.pop_back();
        source_.tip_label = tip_label();
        Diagnostics diagnostics;
        const Form form = build_form(source_, diagnostics);
        const bool is_same = !diagnostics.has_errors() && form_file_bytes(form) == bytes_.form &&
                             text_file_bytes(form) == bytes_.text;
        if (!is_same) source_.objects.push_back(std::move(label));
    }

    const FormBytes &bytes_;
    const RecordList records_, texts_;
    const KnownNames &names_;
    const DecompileChoice choice_;
    MadeUpIds made_up_{names_.ids};
    FormSource source_;
    std::vector<ObjectSource *> objects_;                // object 1 is at 1
    std::vector<std::uint32_t> masters_;                 // in the source, by number
    std::map<std::uint32_t, std::uint32_t> owned_texts_; // by number of the object
    std::map<std::uint32_t, Settings> traits_;
    std::uint32_t first_trait_ = 0, last_trait_ = 0; // texts; the last is not one of them
    std::set<std::pair<std::uint32_t, Field>> unsayable_;
    std::set<std::uint32_t> bare_;
    bool is_changed_ = false;
};

} // namespace

std::optional<FormSource> decompiled(const FormBytes &bytes, const KnownNames &names,
                                     const DecompileChoice &choice) {
    return Decompiler(bytes, names, choice).run();
}

} // namespace velform
