#include "form_source.h"

#include <algorithm>

#include <fmt/format.h>

#include "field_value.h"
#include "identifier.h"
#include "suggestion.h"
#include "toml_text.h"

namespace velform {
namespace {

using Keys = std::vector<std::string_view>;

struct ListKey {
    std::string_view key;
    std::optional<std::uint32_t> type; // what its objects are unless they say it
};

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
    for (const RecordField &field : record_table()) {
        if (!field.key.empty()) keys.push_back(field.key);
    }
    for (const Shorthand &shorthand : shorthands()) keys.push_back(shorthand.key);
    return keys;
}

Keys operator+(Keys a, const Keys &b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

class Reader {
public:
    explicit Reader(Diagnostics &diagnostics) : diagnostics_(diagnostics) {}

    FormSource read(const toml::table &root) {
        FormSource source;
        refuse_unknown_keys(root, Keys{"prefix", "styles", "frame"} + keys_of_lists(), "a form");
        if (const toml::node *prefix = root.get("prefix")) {
            source.prefix = read_identifier(*prefix, "prefix");
            source.prefix_where = position_of(*prefix);
        }
        if (const toml::table *styles = table_in(root, "styles")) read_styles(*styles, source);
        if (const toml::table *frame = table_in(root, "frame")) read_frame(*frame, source);
        source.objects = read_lists(root);
        return source;
    }

private:
    void refuse_unknown_keys(const toml::table &table, const Keys &known, std::string_view what) {
        for (const auto &[key, value] : table) {
            if (std::ranges::find(known, key.str()) != known.end()) continue;
            diagnostics_.error(position_of(key),
                               fmt::format("{} has no key '{}'{}", what, key.str(),
                                           did_you_mean(key.str(), known)));
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
                                       "as a string",
                                       what));
        return {};
    }

    void read_styles(const toml::table &styles, FormSource &source) {
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
        }
        for (std::size_t k = 0; k < buttons.size(); ++k) {
            const toml::table *table = table_in(frame, buttons[k]);
            if (table == nullptr) continue;
            refuse_unknown_keys(*table, keys_of_blocks(), "a frame button");
            source.frame_buttons[k].where = position_of(*table);
            read_block(*table, source.frame_buttons[k]);
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
        if (const toml::node *style = table.get("style")) read_style_uses(*style, block);
    }

    void read_style_uses(const toml::node &node, Block &block) {
        const toml::array *list = node.as_array();
        if (list == nullptr) {
            add_style_use(node, block);
            return;
        }
        for (const toml::node &entry : *list) add_style_use(entry, block);
    }

    void add_style_use(const toml::node &node, Block &block) {
        std::string name = read_string(node, "style");
        if (!name.empty()) block.styles.push_back({std::move(name), position_of(node)});
    }

    // The objects of all lists in a table, in the order of the source.
    std::vector<ObjectSource> read_lists(const toml::table &table) {
        std::vector<ObjectSource> objects;
        for (const auto &[key, node] : table) {
            const ListKey *list = find_list_key(key.str());
            if (list != nullptr) read_list(*list, node, objects);
        }
        std::ranges::stable_sort(objects, {}, &ObjectSource::where);
        return objects;
    }

    void read_list(const ListKey &list, const toml::node &node,
                   std::vector<ObjectSource> &objects) {
        const toml::array *entries = node.as_array();
        if (entries == nullptr) {
            const std::string hint =
                node.is_table() ? fmt::format("; write [[{}]] instead of [{}]", list.key, list.key)
                                : std::string{};
            diagnostics_.error(position_of(node),
                               fmt::format("`{}` must be a list of tables{}", list.key, hint));
            return;
        }
        for (const toml::node &entry : *entries) {
            const toml::table *table = as_table(entry, fmt::format("an entry of `{}`", list.key));
            if (table == nullptr) continue;
            objects.push_back(read_object(*table));
            objects.back().default_type = list.type;
        }
    }

    ObjectSource read_object(const toml::table &table) {
        refuse_unknown_keys(table, Keys{"id"} + keys_of_lists() + keys_of_blocks(), "an object");
        ObjectSource object;
        object.where = position_of(table);
        read_block(table, object);
        if (const toml::node *id = table.get("id")) {
            object.id = read_identifier(*id, "id");
            object.id_where = position_of(*id);
        }
        object.objects = read_lists(table);
        return object;
    }

    Diagnostics &diagnostics_;
};

} // namespace

FormSource read_form_source(const toml::table &root, Diagnostics &diagnostics) {
    return Reader(diagnostics).read(root);
}

} // namespace velform
