#include "decompile/source_writer.h"

#include <algorithm>
#include <set>

#include <fmt/format.h>

#include "form/record_bytes.h"
#include "source/identifier.h"
#include "source/raw_reader.h"
#include "source/toml_quote.h"

namespace velform {
namespace {

struct Entry {
    std::string key, value;

    std::string line() const { return key + " = " + value + "\n"; }
};
using Entries = std::vector<Entry>;

std::string text_of(const Entries &entries) {
    std::string text;
    for (const Entry &entry : entries) text += entry.line();
    return text;
}

std::string code_text(const RecordField &row, std::int64_t number) {
    const auto found = std::ranges::find(row.names, number, &Name::code);
    return found == row.names.end() ? std::to_string(number) : in_quotes(found->name);
}

std::string words_text(const RecordField &row, std::int64_t bits) {
    std::vector<std::string_view> words;
    for (const auto &[name, bit] : row.names) {
        if ((bits & bit) != 0) words.push_back(name);
    }
    return in_quotes(fmt::format("{}", fmt::join(words, " ")));
}

std::string value_text(const RecordField &row, const Setting &setting) {
    switch (row.kind) {
    case Kind::colour:
        return in_quotes(fmt::format("#{:06x}", setting.number()));
    case Kind::flag:
        if (setting.number() > 1) return std::to_string(setting.number());
        return setting.number() == 1 ? "true" : "false";
    case Kind::code:
        return code_text(row, setting.number());
    case Kind::words:
        return words_text(row, setting.number());
    case Kind::caption:
    case Kind::text:
        return in_quotes(utf8_of(setting.string()));
    case Kind::path:
    case Kind::letter:
    case Kind::object:
        return in_quotes(setting.string());
    default:
        return std::to_string(setting.number());
    }
}

// Of a shorthand, if all its fields are said; "8" for all of them if they are the same.
std::string shorthand_text(const Shorthand &shorthand, const Settings &own) {
    std::vector<std::int64_t> numbers;
    for (const Field field : shorthand.fields) {
        if (!own[field]) return {};
        numbers.push_back(own[field]->number());
    }
    const bool are_same = std::ranges::count(numbers, numbers.front()) == std::ssize(numbers);
    if (shorthand.takes_one_for_all && are_same) return std::to_string(numbers.front());
    return fmt::format("[{}]", fmt::join(numbers, ", "));
}

std::string hex(std::string_view bytes) {
    std::string digits;
    for (const char c : bytes) digits += fmt::format("{:02x}", static_cast<std::uint8_t>(c));
    return in_quotes(digits);
}

std::int32_t raw_number(std::string_view bytes) {
    return static_cast<std::int32_t>(number_at(bytes, 0));
}

Entry list_entry(const Patch &patch) {
    std::vector<std::int32_t> numbers;
    for (std::size_t k = 0; k < patch.bytes.size(); k += 4) {
        numbers.push_back(raw_number(std::string_view(patch.bytes).substr(k)));
    }
    while (!numbers.empty() && numbers.back() == 0) numbers.pop_back();
    return {"dep_objs", fmt::format("[{}]", fmt::join(numbers, ", "))};
}

Entry patch_entry(const Patch &patch, std::span<const RawNumber> names) {
    const auto named = std::ranges::find(names, patch.offset, &RawNumber::offset);
    if (named != names.end() && patch.bytes.size() == 4) {
        return {std::string(named->name), std::to_string(raw_number(patch.bytes))};
    }
    return {std::to_string(patch.offset), hex(patch.bytes)};
}

// The value of `raw`; empty when there is none.
std::string raw_text(const ObjectSource &object) {
    Entries entries;
    for (const auto &[name, field] : raw_traits) {
        const std::optional<Setting> &trait = object.own[field];
        if (trait) entries.push_back({std::string(name), std::to_string(trait->number())});
    }
    if (object.raw.text) entries.push_back({"text_index", std::to_string(*object.raw.text)});
    const RecordField &list = record_field(Field::dependents);
    for (const Patch &patch : object.raw.patches) {
        const bool is_list = patch.offset == list.offset && patch.bytes.size() == list.size;
        entries.push_back(is_list ? list_entry(patch)
                                  : patch_entry(patch, raw_numbers_of_objects()));
    }
    if (entries.empty()) return {};
    std::vector<std::string> pairs;
    for (const Entry &entry : entries) pairs.push_back(entry.key + " = " + entry.value);
    return fmt::format("{{ {} }}", fmt::join(pairs, ", "));
}

// Keys that make up the looks of an object, which several objects may share.
bool belongs_to_looks(const RecordField &row) {
    switch (row.field) {
    case Field::fill:
    case Field::font_choice:
    case Field::font_size:
    case Field::font_file:
    case Field::text_colour:
    case Field::margin_left:
    case Field::margin_right:
    case Field::margin_top:
    case Field::margin_bottom:
    case Field::line_spacing:
    case Field::border:
    case Field::border_inset:
    case Field::border_colour:
    case Field::clip:
    case Field::align:
        return true;
    default:
        return false;
    }
}

class Writer {
public:
    explicit Writer(const FormSource &source) : source_(source) {
        for (const ObjectSource &object : source.objects) note_looks(object);
        name_styles();
    }

    std::string write() {
        if (source_.prefix) text_ += Entry{"prefix", in_quotes(*source_.prefix)}.line();
        text_ += Entry{"theme", in_quotes(source_.theme->name)}.line();
        add_spare();
        write_raw();
        for (const auto &[looks, style] : styles_) {
            if (!style.name.empty()) text_ += fmt::format("\n[styles.{}]\n{}", style.name, looks);
        }
        write_frame();
        for (const ObjectSource &object : source_.objects) write_object(object, "");
        return std::move(text_);
    }

private:
    struct Style {
        std::string name; // empty: not worth one
        std::size_t uses = 0;
        std::uint32_t type = 0; // of the first object
    };

    void add_spare() {
        std::vector<std::string> runs;
        for (const SpareRun &run : source_.spare) {
            runs.push_back(fmt::format("{} = {}", run.name, run.count));
        }
        if (!runs.empty()) text_ += fmt::format("spare = {{ {} }}\n", fmt::join(runs, ", "));
    }

    static Entries entries_of(const Settings &own, bool of_looks) {
        Entries entries;
        std::set<Field> done;
        for (const RecordField &row : whole_table()) {
            if (!own[row.field] || row.key.empty() || row.field == Field::type) continue;
            if (belongs_to_looks(row) != of_looks || done.contains(row.field)) continue;
            const auto shorthand = std::ranges::find_if(shorthands(), [&](const Shorthand &s) {
                return std::ranges::find(s.fields, row.field) != s.fields.end() &&
                       !shorthand_text(s, own).empty();
            });
            if (shorthand == shorthands().end()) {
                entries.push_back({std::string(row.key), value_text(row, *own[row.field])});
                continue;
            }
            entries.push_back({std::string(shorthand->key), shorthand_text(*shorthand, own)});
            done.insert(shorthand->fields.begin(), shorthand->fields.end());
        }
        return entries;
    }

    void note_looks(const ObjectSource &object) {
        Style &style = styles_[text_of(entries_of(object.own, true))];
        if (style.uses++ == 0) style.type = type_of(object);
        for (const ObjectSource &inner : object.objects) note_looks(inner);
    }

    // Those that make the source shorter.
    void name_styles() {
        std::map<std::string, std::size_t> last;
        for (auto &[looks, style] : styles_) {
            const std::string type(type_name(style.type));
            const std::size_t extra = std::string("\n[styles._10]\nstyle = \"_10\"\n").size();
            const std::size_t cost = looks.size() + style.uses * (type.size() + extra);
            if (style.uses < 2 || cost >= style.uses * looks.size()) continue;
            style.name = fmt::format("{}_{}", type, ++last[type]);
        }
    }

    static std::uint32_t type_of(const ObjectSource &object) {
        const std::optional<Setting> &type = object.own[Field::type];
        return type ? static_cast<std::uint32_t>(type->number()) : std::uint32_t{VEL_TYPE_EMPTY};
    }

    void write_raw() {
        const RawForm &raw = source_.raw;
        Entries entries;
        if (!raw.writes_traits) entries.push_back({"traits", "false"});
        if (raw.records) entries.push_back({"records", std::to_string(*raw.records)});
        if (!raw.form_tail.empty()) entries.push_back({"form_tail", hex(raw.form_tail)});
        if (!raw.text_tail.empty()) entries.push_back({"text_tail", hex(raw.text_tail)});
        if (!entries.empty()) text_ += "\n[raw]\n" + text_of(entries);
        for (const auto &[number, text] : raw.texts) {
            text_ += "\n[[raw.text]]\n" + Entry{"number", std::to_string(number)}.line();
            if (text.text) text_ += Entry{"text", in_quotes(utf8_of(*text.text))}.line();
            for (const Patch &patch : text.patches) {
                text_ += patch_entry(patch, raw_numbers_of_texts()).line();
            }
        }
    }

    void write_frame() {
        if (source_.frame_pictures != standard_frame_folder) {
            text_ += "\n[frame]\n" + Entry{"pictures", in_quotes(source_.frame_pictures)}.line();
        }
        for (std::size_t k = 0; k < frame_button_names.size(); ++k) {
            const ObjectSource &button = source_.frame_buttons[k];
            const std::string type = type_line(button, {});
            const std::string text = type + block_text(button);
            if (!text.empty())
                text_ += fmt::format("\n[frame.{}]\n{}", frame_button_names[k], text);
        }
    }

    static std::string type_line(const ObjectSource &object,
                                 std::optional<std::uint32_t> standard) {
        const std::optional<Setting> &type = object.own[Field::type];
        if (!type || type_of(object) == standard) return {};
        return Entry{"type", value_text(record_field(Field::type), *type)}.line();
    }

    std::string block_text(const ObjectSource &object) const {
        std::string text;
        const std::string looks = text_of(entries_of(object.own, true));
        const auto style = styles_.find(looks);
        const bool has_style = style != styles_.end() && !style->second.name.empty();
        if (has_style) text += Entry{"style", in_quotes(style->second.name)}.line();
        text += text_of(entries_of(object.own, false));
        if (!has_style) text += looks;
        const std::string raw = raw_text(object);
        if (!raw.empty()) text += Entry{"raw", raw}.line();
        return text;
    }

    void write_object(const ObjectSource &object, const std::string &around) {
        const bool is_window = around.empty() && type_of(object) == VEL_TYPE_WINDOW;
        const std::string list = around + (is_window ? "window" : "object");
        text_ += fmt::format("\n[[{}]]\n", list);
        if (!object.id.empty()) text_ += Entry{"id", in_quotes(object.id)}.line();
        text_ += type_line(object, is_window ? std::optional<std::uint32_t>{VEL_TYPE_WINDOW}
                                             : std::nullopt);
        text_ += block_text(object);
        for (const ObjectSource &inner : object.objects) write_object(inner, list + ".");
    }

    const FormSource &source_;
    std::string text_;
    std::map<std::string, Style> styles_; // by their looks
};

} // namespace

std::string source_text(const FormSource &source) { return Writer(source).write(); }

} // namespace velform
