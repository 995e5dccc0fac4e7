#include "source/raw_reader.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <limits>

#include <fmt/format.h>

#include "source/field_value.h"
#include "source/toml_text.h"

namespace velform {
namespace {

constexpr Range any_word{std::numeric_limits<std::int32_t>::min(),
                         std::numeric_limits<std::uint32_t>::max()};
constexpr std::string_view list_name = "dep_objs";

// Of the row of a colour there are three, as in "fill_r, fill_g, fill_b".
std::vector<RawNumber> numbers_of_record() {
    std::vector<RawNumber> numbers;
    for (const RecordField &row : record_table()) {
        if (row.kind == Kind::caption || row.kind == Kind::path) continue;
        if (row.field == Field::dependents) continue;
        std::string_view names = row.name;
        for (std::uint32_t offset = row.offset; !names.empty(); offset += number_size) {
            const std::size_t end = std::min(names.find(", "), names.size());
            numbers.push_back({names.substr(0, end), offset});
            names.remove_prefix(std::min(end + 2, names.size()));
        }
    }
    return numbers;
}

// The tables of one kind of record.
struct RecordShape {
    std::string_view what;
    std::span<const RawNumber> numbers;
    std::size_t size;
};

class RawReader {
public:
    explicit RawReader(Diagnostics &diagnostics) : diagnostics_(diagnostics) {}

    void read_object(const toml::table &table, ObjectSource &object) {
        const RecordShape shape{"an object", raw_numbers_of_objects(), sizeof(vel_object_file_rec)};
        for (const auto &[key, node] : table) {
            if (key.str() == "text_index") {
                object.raw.text = static_cast<std::uint32_t>(number_in(key, node, any_word));
            } else if (key.str() == list_name) {
                read_list(key, node, object.raw.patches);
            } else if (!read_trait(key, node, object.own)) {
                read_patch(key, node, shape, object.raw.patches);
            }
        }
    }

    RawForm read_form(const toml::table &table) {
        RawForm form;
        for (const auto &[key, node] : table) {
            if (key.str() == "traits") {
                if (const auto *flag = node.as_boolean())
                    form.writes_traits = flag->get();
                else
                    refuse(node, "`traits` must be true or false");
            } else if (key.str() == "records") {
                form.records =
                    static_cast<std::uint32_t>(number_in(key, node, {0, VEL_FRAME_BUTTONS}));
            } else if (key.str() == "form_tail") {
                form.form_tail = bytes_in(key, node);
            } else if (key.str() == "text_tail") {
                form.text_tail = bytes_in(key, node);
            } else if (key.str() == "text") {
                read_texts(node, form);
            } else {
                refuse_key(key, "a form");
            }
        }
        return form;
    }

private:
    void refuse(const toml::node &node, std::string message) {
        diagnostics_.error(position_of(node), std::move(message));
    }
    void refuse_key(const toml::key &key, std::string_view what) {
        diagnostics_.error(position_of(key),
                           fmt::format("`raw` of {} has no key '{}'", what, key.str()));
    }

    std::int64_t number_in(const toml::key &key, const toml::node &node, Range range) {
        const auto *number = node.as_integer();
        if (number != nullptr && number->get() >= range.first && number->get() <= range.last) {
            return number->get();
        }
        refuse(node, fmt::format("`{}` must be a whole number from {} to {}", key.str(),
                                 range.first, range.last));
        return 0;
    }

    std::string bytes_in(const toml::key &key, const toml::node &node) {
        const auto *string = node.as_string();
        const std::string_view digits = string == nullptr ? "?" : std::string_view(string->get());
        std::string bytes;
        for (std::size_t k = 0; k + 1 < digits.size(); k += 2) {
            std::uint8_t byte = 0;
            const char *const end = digits.data() + k + 2;
            const auto [stop, fault] = std::from_chars(digits.data() + k, end, byte, 16);
            if (fault != std::errc{} || stop != end) break;
            bytes += static_cast<char>(byte);
        }
        if (2 * bytes.size() == digits.size()) return bytes;
        refuse(node, fmt::format("`{}` must be bytes: two hexadecimal digits for each, as in "
                                 "\"0a00ff\"",
                                 key.str()));
        return {};
    }

    bool read_trait(const toml::key &key, const toml::node &node, Settings &own) {
        const auto found = std::ranges::find(raw_traits, key.str(), &RawTrait::name);
        if (found == std::end(raw_traits)) return false;
        const std::int64_t number = number_in(key, node, record_field(found->field).range);
        own[found->field] = Setting{number, position_of(node)};
        return true;
    }

    void read_list(const toml::key &key, const toml::node &node, Patches &patches) {
        const auto *list = node.as_array();
        if (list == nullptr || list->size() > VEL_MAX_DEPENDENTS) {
            refuse(node, fmt::format("`{}` must be a list of at most {} numbers", key.str(),
                                     VEL_MAX_DEPENDENTS));
            return;
        }
        const RecordField &row = record_field(Field::dependents);
        Patch patch{row.offset, {}};
        for (const toml::node &entry : *list) {
            patch.bytes +=
                bytes_of_number(static_cast<std::uint32_t>(number_in(key, entry, any_word)));
        }
        patch.bytes.resize(row.size);
        patches.push_back(std::move(patch));
    }

    void read_patch(const toml::key &key, const toml::node &node, const RecordShape &shape,
                    Patches &patches) {
        const auto named = std::ranges::find(shape.numbers, key.str(), &RawNumber::name);
        if (named != shape.numbers.end()) {
            const auto number = static_cast<std::uint32_t>(number_in(key, node, any_word));
            patches.push_back({named->offset, bytes_of_number(number)});
            return;
        }
        std::uint32_t offset = 0;
        const char *const end = key.str().data() + key.str().size();
        const auto [stop, fault] = std::from_chars(key.str().data(), end, offset);
        if (fault != std::errc{} || stop != end) {
            refuse_key(key, shape.what);
            return;
        }
        std::string bytes = bytes_in(key, node);
        if (offset > shape.size || bytes.size() > shape.size - offset) {
            refuse(node,
                   fmt::format("the bytes reach beyond the record, which has {}", shape.size));
            return;
        }
        patches.push_back({offset, std::move(bytes)});
    }

    void read_texts(const toml::node &node, RawForm &form) {
        const auto *list = node.as_array();
        const bool has_tables =
            list != nullptr && std::ranges::all_of(*list, &toml::node::is_table);
        if (!has_tables) {
            refuse(node, "`text` must be a list of tables; write [[raw.text]]");
            return;
        }
        for (const toml::node &entry : *list) read_text(*entry.as_table(), form);
    }

    void read_text(const toml::table &table, RawForm &form) {
        const RecordShape shape{"a text", raw_numbers_of_texts(), sizeof(vel_text_rec)};
        RawText text;
        text.where = position_of(table);
        std::optional<std::int64_t> number;
        for (const auto &[key, node] : table) {
            if (key.str() == "number") {
                number = number_in(key, node, {1, most_records});
            } else if (key.str() == "text") {
                text.text = read_value(record_field(Field::text), node, diagnostics_).string();
            } else {
                read_patch(key, node, shape, text.patches);
            }
        }
        if (!number) {
            refuse(table, "a raw text needs its `number`");
        } else if (!form.texts.try_emplace(static_cast<std::uint32_t>(*number), text).second) {
            refuse(table, fmt::format("text {} is there already", *number));
        }
    }

    Diagnostics &diagnostics_;
};

const toml::table *table_of(const toml::node &node, Diagnostics &diagnostics) {
    const toml::table *table = node.as_table();
    if (table == nullptr) {
        diagnostics.error(position_of(node),
                          fmt::format("`raw` must be a table, not {}", kind_of(node)));
    }
    return table;
}

} // namespace

std::span<const RawNumber> raw_numbers_of_objects() {
    static const std::vector<RawNumber> numbers = numbers_of_record();
    return numbers;
}

std::span<const RawNumber> raw_numbers_of_texts() {
    static constexpr RawNumber numbers[] = {
        {"first_word", offsetof(vel_text_rec, first_word)},
        {"cursor_index", offsetof(vel_text_rec, cursor_index)},
    };
    return numbers;
}

void read_raw_object(const toml::node &node, ObjectSource &object, Diagnostics &diagnostics) {
    const toml::table *table = table_of(node, diagnostics);
    if (table != nullptr) RawReader(diagnostics).read_object(*table, object);
}

RawForm read_raw_form(const toml::node &node, Diagnostics &diagnostics) {
    const toml::table *table = table_of(node, diagnostics);
    return table == nullptr ? RawForm{} : RawReader(diagnostics).read_form(*table);
}

std::string bytes_of_number(std::uint32_t number) {
    std::string bytes(number_size, '\0');
    for (std::uint32_t k = 0; k < number_size; ++k) {
        bytes[k] = static_cast<char>(number >> 8 * k & 0xFF);
    }
    return bytes;
}

} // namespace velform
