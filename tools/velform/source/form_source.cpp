#include "source/form_source.h"

#include <algorithm>

#include <fmt/format.h>

#include "base/suggestion.h"
#include "kinds/file_dialog.h"
#include "kinds/part_reader.h"
#include "kinds/parts.h"
#include "source/field_value.h"
#include "source/identifier.h"
#include "source/raw_reader.h"
#include "source/toml_text.h"

namespace velform {
namespace {

using Keys = std::vector<std::string_view>;

struct ListKey {
    std::string_view key;
    std::optional<std::uint32_t> type; // what its objects are unless they say it
};

constexpr std::size_t most_styles = 10000;
constexpr std::size_t most_hints = 1000; // beyond these, hints would only take time
constexpr std::string_view file_dialog_key = "file_dialog";
constexpr std::string_view raw_key = "raw", spare_key = "spare";

constexpr ListKey list_keys[] = {
    {"object", {}}, {"objects", {}}, {"window", VEL_TYPE_WINDOW}, {"windows", VEL_TYPE_WINDOW}};

const ListKey *find_list_key(std::string_view key) {
    const auto found = std::ranges::find(list_keys, key, &ListKey::key);
    return found == std::end(list_keys) ? nullptr : found;
}

Keys keys_of_lists() {
    Keys keys;
    for (const ListKey &list : list_keys) keys.push_back(list.key);
    return keys;
}

Keys keys_of_blocks() {
    Keys keys{"style"};
    for (const RecordField &field : whole_table()) {
        if (!field.key.empty()) keys.push_back(field.key);
    }
    for (const Shorthand &shorthand : shorthands()) keys.push_back(shorthand.key);
    return keys;
}

Keys keys_of_file_dialogs() {
    Keys keys{"id", "style", "rect", "rows"};
    for (const Field field : find_shorthand("rect")->fields) {
        keys.push_back(record_field(field).key);
    }
    for (const FileDialogText &text : file_dialog_texts()) keys.push_back(text.key);
    for (const FileDialogStyle &style : file_dialog_styles()) keys.push_back(style.key);
    return keys;
}

Keys operator+(Keys a, const Keys &b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

// Objects are large: they are moved only when several lists have to be merged.
void sort_by_place(std::vector<ObjectSource> &objects) {
    if (std::ranges::is_sorted(objects, {}, &ObjectSource::where)) return;
    std::ranges::stable_sort(objects, {}, &ObjectSource::where);
}

class Reader {
public:
    explicit Reader(Diagnostics &diagnostics) : diagnostics_(diagnostics) {}

    FormSource read(const toml::table &root) {
        FormSource source;
        refuse_unknown_keys(
            root,
            Keys{"prefix", "theme", "styles", "frame", raw_key, spare_key, file_dialog_key} +
                keys_of_lists(),
            "a form");
        if (const toml::node *theme = root.get("theme")) source.theme = read_theme(*theme);
        theme_ = source.theme;
        if (const toml::node *prefix = root.get("prefix")) {
            source.prefix = read_identifier(*prefix, "prefix");
            source.prefix_where = position_of(*prefix);
        }
        if (const toml::table *styles = table_in(root, "styles")) read_styles(*styles, source);
        if (const toml::table *frame = table_in(root, "frame")) read_frame(*frame, source);
        if (const toml::node *raw = root.get(raw_key)) {
            source.raw = read_raw_form(*raw, diagnostics_);
        }
        // What is wrong with styles is reported when all objects are built.
        Diagnostics unused;
        styles_.emplace(source, unused);
        source.objects = read_lists(root);
        if (const toml::node *dialogs = root.get(file_dialog_key)) {
            for_each_table(file_dialog_key, *dialogs, [&](const toml::table &table) {
                read_file_dialog(table, source.objects);
            });
            sort_by_place(source.objects);
        }
        std::ranges::move(last_objects_, std::back_inserter(source.objects));
        source.tip_label = tip_label();
        if (const toml::table *spare = table_in(root, spare_key)) read_spare(*spare, source.spare);
        return source;
    }

private:
    void refuse_unknown_keys(const toml::table &table, const Keys &known, std::string_view what) {
        for (const auto &[key, value] : table) {
            if (std::ranges::find(known, key.str()) != known.end()) continue;
            const std::string hint = hints_left_ == 0 ? "" : did_you_mean(key.str(), known);
            if (hints_left_ > 0) --hints_left_;
            diagnostics_.error(position_of(key),
                               fmt::format("{} has no key '{}'{}", what, key.str(), hint));
        }
    }

    // Returns null when the key is absent or its value is no table, which is reported.
    const toml::table *table_in(const toml::table &table, std::string_view key) {
        const toml::node *node = table.get(key);
        return node == nullptr ? nullptr : as_table(*node, fmt::format("`{}`", key));
    }

    const toml::table *as_table(const toml::node &node, std::string_view what) {
        const toml::table *table = node.as_table();
        if (table == nullptr) {
            diagnostics_.error(position_of(node),
                               fmt::format("{} must be a table, not {}", what, kind_of(node)));
        }
        return table;
    }

    std::string read_string(const toml::node &node, std::string_view what) {
        if (const auto *string = node.as_string()) return string->get();
        diagnostics_.error(position_of(node), fmt::format("`{}` must be a string in quotes, not {}",
                                                          what, kind_of(node)));
        return {};
    }

    // Returns an empty string after an error.
    std::string read_identifier(const toml::node &node, std::string_view what) {
        const auto *string = node.as_string();
        if (string != nullptr && is_identifier(string->get())) return string->get();
        diagnostics_.error(position_of(node),
                           fmt::format("`{}` must be a letter followed by letters, digits and '_', "
                                       "as a string of at most {} characters",
                                       what, longest_identifier));
        return {};
    }

    const Theme *read_theme(const toml::node &node) {
        const std::string name = read_string(node, "theme");
        if (const Theme *theme = find_theme(name)) return theme;
        if (node.is_string()) {
            Keys names;
            for (const Theme &theme : themes()) names.push_back(theme.name);
            diagnostics_.error(position_of(node),
                               fmt::format("`theme` must be one of \"{}\", not \"{}\"{}",
                                           fmt::join(names, "\", \""), name,
                                           did_you_mean(name, names)));
        }
        return find_theme(standard_theme);
    }

    void read_styles(const toml::table &styles, FormSource &source) {
        if (styles.size() > most_styles) {
            diagnostics_.error(position_of(styles),
                               fmt::format("a form holds at most {} styles", most_styles));
            return;
        }
        for (const auto &[name, node] : styles) {
            const toml::table *table = as_table(node, fmt::format("the style '{}'", name.str()));
            if (table == nullptr) continue;
            refuse_unknown_keys(*table, keys_of_blocks(), "a style");
            Block &style = source.styles[std::string(name.str())];
            style.where = position_of(name);
            read_block(*table, style);
        }
    }

    void read_frame(const toml::table &frame, FormSource &source) {
        const Keys buttons(frame_button_names.begin(), frame_button_names.end());
        refuse_unknown_keys(frame, Keys{"pictures"} + buttons, "the frame");
        if (const toml::node *pictures = frame.get("pictures")) {
            source.frame_pictures = read_folder(*pictures);
            source.frame_pictures_where = position_of(*pictures);
        }
        for (std::size_t k = 0; k < buttons.size(); ++k) {
            const toml::table *table = table_in(frame, buttons[k]);
            if (table == nullptr) continue;
            refuse_unknown_keys(*table, Keys{raw_key} + keys_of_blocks(), "a frame button");
            source.frame_buttons[k].where = position_of(*table);
            read_block(*table, source.frame_buttons[k]);
            read_raw(*table, source.frame_buttons[k]);
        }
    }

    // The names of the pictures follow it in the record.
    std::string read_folder(const toml::node &node) {
        constexpr std::size_t limit =
            VEL_STRING_SIZE - 1 - std::string_view("/height_less.png").size();
        std::string folder = read_string(node, "pictures");
        if (folder.size() > limit || folder.find('\0') != std::string::npos) {
            diagnostics_.error(
                position_of(node),
                fmt::format("`pictures` must have at most {} bytes, none of them 0", limit));
        }
        return folder;
    }

    void read_spare(const toml::table &table, std::vector<SpareRun> &spare) {
        constexpr auto most = static_cast<std::int64_t>(most_records - VEL_FRAME_BUTTONS);
        for (const auto &[key, node] : table) {
            const auto count = node.value_exact<std::int64_t>();
            if (!is_identifier(key.str())) {
                diagnostics_.error(position_of(key),
                                   fmt::format("the name of spare objects must be a letter "
                                               "followed by letters, digits and '_', of at most "
                                               "{} characters",
                                               longest_identifier));
            } else if (!count || *count < 1 || *count > most) {
                diagnostics_.error(position_of(node),
                                   fmt::format("`{}` must be how many spare objects there are, "
                                               "from 1 to {}",
                                               key.str(), most));
            } else if (take_room(static_cast<std::size_t>(*count), position_of(key))) {
                spare.push_back(
                    {std::string(key.str()), position_of(key), static_cast<std::uint32_t>(*count)});
            }
        }
        std::ranges::sort(spare, {}, &SpareRun::where);
    }

    void read_block(const toml::table &table, Block &block) {
        for (const auto &[key, node] : table) {
            if (const RecordField *field = find_field(key.str())) {
                block.own[field->field] = read_value(*field, node, diagnostics_);
            }
        }
        for (const Shorthand &shorthand : shorthands()) {
            const toml::node *node = table.get(shorthand.key);
            if (node != nullptr) read_shorthand(shorthand, *node, block.own, diagnostics_);
        }
        if (const toml::node *style = table.get("style")) {
            read_style_uses("style", *style, block.styles);
        }
    }

    void read_raw(const toml::table &table, ObjectSource &object) {
        const toml::node *raw = table.get(raw_key);
        if (raw != nullptr) read_raw_object(*raw, object, diagnostics_);
    }

    void read_style_uses(std::string_view key, const toml::node &node,
                         std::vector<StyleUse> &styles) {
        const auto add = [&](const toml::node &entry) {
            std::string name = read_string(entry, key);
            if (!name.empty()) styles.push_back({std::move(name), position_of(entry)});
        };
        const toml::array *list = node.as_array();
        if (list == nullptr) {
            add(node);
            return;
        }
        for (const toml::node &entry : *list) add(entry);
    }

    // The objects of all lists in a table, in the order of the source.
    std::vector<ObjectSource> read_lists(const toml::table &table) {
        std::vector<ObjectSource> objects;
        for (const auto &[key, node] : table) {
            const ListKey *list = find_list_key(key.str());
            if (list != nullptr) read_list(*list, node, objects);
        }
        sort_by_place(objects);
        return objects;
    }

    void read_list(const ListKey &list, const toml::node &node,
                   std::vector<ObjectSource> &objects) {
        // Objects are large, and a list that grows moves them again and again.
        if (const toml::array *entries = node.as_array()) {
            objects.reserve(objects.size() + std::min(entries->size(), room_));
        }
        for_each_table(list.key, node, [&](const toml::table &table) {
            if (!take_room(1, position_of(table))) return;
            objects.push_back(read_object(table, list.type));
        });
    }

    template <class Read>
    void for_each_table(std::string_view key, const toml::node &node, Read read) {
        const toml::array *entries = node.as_array();
        if (entries == nullptr) {
            const std::string hint = node.is_table()
                                         ? fmt::format("; write [[{}]] instead of [{}]", key, key)
                                         : std::string{};
            diagnostics_.error(position_of(node),
                               fmt::format("`{}` must be a list of tables{}", key, hint));
            return;
        }
        for (const toml::node &entry : *entries) {
            const toml::table *table = as_table(entry, fmt::format("an entry of `{}`", key));
            if (table != nullptr) read(*table);
        }
    }

    // A value under another key than its field's.
    std::optional<Setting> read_as(RecordField field, std::string_view key,
                                   const toml::table &table) {
        const toml::node *node = table.get(key);
        if (node == nullptr) return {};
        field.key = key;
        return read_value(field, *node, diagnostics_);
    }

    void read_file_dialog(const toml::table &table, std::vector<ObjectSource> &objects) {
        if (is_full_) return;
        refuse_unknown_keys(table, keys_of_file_dialogs(), "a file dialog");
        FileDialog dialog;
        dialog.where = position_of(table);
        const Shorthand &rect = *find_shorthand("rect");
        for (const Field field : rect.fields) {
            dialog.place[field] = read_as(record_field(field), record_field(field).key, table);
        }
        if (const toml::node *node = table.get(rect.key)) {
            read_shorthand(rect, *node, dialog.place, diagnostics_);
        }
        if (const toml::node *style = table.get("style")) {
            read_style_uses("style", *style, dialog.style);
        }
        RecordField rows = record_field(Field::height);
        rows.range = {1, VEL_MAX_DEPENDENTS};
        dialog.rows = read_as(rows, "rows", table);
        for (const FileDialogText &text : file_dialog_texts()) {
            dialog.*text.text = read_as(record_field(Field::label), text.key, table);
        }
        for (const FileDialogStyle &style : file_dialog_styles()) {
            const toml::node *node = table.get(style.key);
            if (node != nullptr) read_style_uses(style.key, *node, dialog.*style.styles);
        }
        if (const toml::node *id = table.get("id")) {
            dialog.id = read_identifier(*id, "id");
            dialog.id_where = position_of(*id);
        } else {
            diagnostics_.error(dialog.where, "a file dialog needs an `id`, which the program calls "
                                             "it by");
        }
        PartContext context{*theme_, *styles_, diagnostics_, last_objects_};
        ObjectSource window = file_dialog_window(dialog, context);
        if (take_room(count_of(window), dialog.where)) objects.push_back(std::move(window));
    }

    // What has no room in the file is left out, and the first of it is reported.
    bool take_room(std::size_t count, Position where) {
        const bool has_room = !is_full_ && count <= room_;
        if (!has_room && !is_full_) {
            diagnostics_.error(where, fmt::format("a form holds at most {} objects, with its frame "
                                                  "buttons; take some out",
                                                  most_records));
        }
        is_full_ = is_full_ || !has_room;
        if (has_room) room_ -= count;
        return has_room;
    }

    ObjectSource read_object(const toml::table &table, std::optional<std::uint32_t> type) {
        refuse_unknown_keys(
            table, Keys{"id", raw_key} + keys_of_lists() + keys_of_blocks() + keys_of_parts(),
            "an object");
        ObjectSource object;
        object.where = position_of(table);
        // Also of a kind that does not exist, whose fault is enough.
        object.default_type = table.contains("kind") ? VEL_TYPE_LABEL : type;
        read_block(table, object);
        read_raw(table, object);
        if (const toml::node *id = table.get("id")) {
            object.id = read_identifier(*id, "id");
            object.id_where = position_of(*id);
        }
        const bool is_window = type == VEL_TYPE_WINDOW && depth_ == 0;
        ++depth_;
        object.objects = read_lists(table);
        const auto read_objects = [this](const toml::table &page) { return read_lists(page); };
        auto part = read_part(table, is_window, read_objects, diagnostics_);
        --depth_;
        if (part) add_part(object, *part);
        return object;
    }

    void add_part(ObjectSource &object, PartSource &part) {
        if (is_full_) return;
        const std::size_t others = last_objects_.size();
        PartContext context{*theme_, *styles_, diagnostics_, last_objects_};
        make_part(object, part, context);
        std::size_t count = count_of_pieces(object);
        for (std::size_t k = others; k < last_objects_.size(); ++k) {
            count += count_of_pieces(last_objects_[k]);
        }
        if (take_room(count, object.where)) return;
        object.objects.clear();
        last_objects_.resize(others);
    }

    Diagnostics &diagnostics_;
    const Theme *theme_ = find_theme(standard_theme);
    std::optional<StyleResolver> styles_;
    std::vector<ObjectSource> last_objects_; // of the form
    int depth_ = 0;
    std::size_t room_ = most_records - VEL_FRAME_BUTTONS;
    bool is_full_ = false;
    std::size_t hints_left_ = most_hints;
};

} // namespace

std::size_t count_of(const ObjectSource &object) {
    std::size_t count = 1;
    for (const ObjectSource &inner : object.objects) count += count_of(inner);
    return count;
}

std::size_t count_of_pieces(const ObjectSource &object) {
    std::size_t count = object.is_made ? 1 : 0;
    for (const ObjectSource &inner : object.objects) count += count_of_pieces(inner);
    return count;
}

FormSource read_form_source(const toml::table &root, Diagnostics &diagnostics) {
    return Reader(diagnostics).read(root);
}

} // namespace velform
