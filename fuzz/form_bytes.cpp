// A form is written as
//
//   number of records, number of texts, switches
//   for each record: type, x, y, width, height, master, then fields: a count, and for each its
//   number and its value. Fields below 194 are the words of a record, the others strings and lists.
//   for each text: first word, cursor, length, and a pattern that is repeated up to the length
//
// or, of the form that has each part (parts.toml),
//
//   number of changes, a byte, switches
//   for each change: number of a record, then fields as above
#include "form_bytes.h"

#include <cstring>

#include "parts.h"

namespace fuzz {
namespace {

using Record = vel_object_file_rec;

constexpr u8 record_words = sizeof(Record) / sizeof(u32);
constexpr u8 most_records = 40, most_texts = 6, most_fields = 48;

enum Field : u8 { label = record_words, font_path, image_path, dependents, raw_bytes, from_here };

enum Switch : u8 {
    lists_follow_masters = 1, // each record is listed by its master
    form_has_rest = 2,        // bytes after the last whole record
    text_has_rest = 4,
    of_parts = written_parts[2]
};

constexpr const char *paths[] = {"",
                                 "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf",
                                 "frame/close.png",
                                 "/missing/file",
                                 "/dev/zero",
                                 ".",
                                 "%s%n%1000d",
                                 "\033]0;\a\200\377"};

void set_string(char (&to)[VEL_STRING_SIZE], const std::string &from) {
    std::memcpy(to, from.data(), std::min(from.size(), sizeof to));
}

void set_field(Input &input, Record &record) {
    const u8 field = input.byte();
    if (field < record_words) {
        const u32 value = input.number();
        std::memcpy(reinterpret_cast<u8 *>(&record) + field * sizeof value, &value, sizeof value);
        return;
    }
    switch (std::min<u8>(field, from_here)) {
    case label:
        return set_string(record.label, input.string());
    case font_path:
        return set_string(record.font_path, paths[input.byte() % std::size(paths)]);
    case image_path:
        return set_string(record.image_path, paths[input.byte() % std::size(paths)]);
    case dependents: {
        const Bytes list = input.block();
        std::copy_n(list.begin(), std::min<std::size_t>(list.size(), VEL_MAX_DEPENDENTS),
                    record.dep_objs);
        return;
    }
    default: {
        const std::size_t place = input.pair() % sizeof record;
        const Bytes bytes = input.block();
        std::memcpy(reinterpret_cast<u8 *>(&record) + place, bytes.data(),
                    std::min(bytes.size(), sizeof record - place));
    }
    }
}

void set_fields(Input &input, Record &record) {
    for (u32 fields = input.byte() % most_fields; fields > 0; --fields) set_field(input, record);
}

Record read_record(Input &input) {
    Record record{};
    record.type = input.number();
    record.x = input.number();
    record.y = input.number();
    record.width = input.number();
    record.height = input.number();
    record.master = input.number();
    // Most forms have colours that differ.
    record.fill_r = 200, record.fill_g = 220, record.border_b = 255;
    set_fields(input, record);
    return record;
}

vel_text_rec read_text(Input &input) {
    vel_text_rec record{};
    record.first_word = input.number();
    record.cursor_index = input.number();
    const std::size_t length = std::min<std::size_t>(input.pair(), VEL_TEXT_SIZE);
    const Bytes pattern = input.block();
    for (std::size_t k = 0; k < length && !pattern.empty(); ++k) {
        record.text[k] = static_cast<char>(pattern[k % pattern.size()]);
    }
    return record;
}

void list_dependents(std::vector<Record> &records) {
    std::vector<u32> listed(records.size() + 1);
    for (u32 k = 0; k < records.size(); ++k) {
        const u32 master = records[k].master;
        if (master == 0 || master > records.size() || listed[master] == VEL_MAX_DEPENDENTS)
            continue;
        records[master - 1].dep_objs[listed[master]++] = k + 1;
    }
}

template <class Row> std::vector<u8> bytes_of(const std::vector<Row> &records, std::size_t rest) {
    std::vector<u8> bytes(records.size() * sizeof(Row) + rest);
    if (!records.empty()) std::memcpy(bytes.data(), records.data(), bytes.size() - rest);
    return bytes;
}

void put_number(u32 value, std::vector<u8> &to) {
    if (value < plain_numbers) return to.push_back(static_cast<u8>(value));
    to.push_back(written_out);
    for (int shift = 0; shift < 32; shift += 8) to.push_back(static_cast<u8>(value >> shift));
}

// The words that are not 0; each costs two to six bytes.
void put_record(const Record &record, std::vector<u8> &to) {
    u32 words[record_words];
    std::memcpy(words, &record, sizeof words);
    for (const u32 value : {record.type, record.x, record.y, record.width, record.height}) {
        put_number(value, to);
    }
    put_number(record.master, to);
    const std::size_t count_place = to.size();
    to.push_back(0);
    u8 count = 0;
    for (u8 k = 4; k < record_words && count < most_fields - 1; ++k) {
        const bool is_said = k == offsetof(Record, type) / 4 || k == offsetof(Record, master) / 4;
        const bool is_listed =
            k >= offsetof(Record, dep_objs) / 4 && k < offsetof(Record, reserved_scroll_x) / 4;
        const bool is_preset = k == 4 || k == 5 || k == offsetof(Record, border_b) / 4;
        if (is_said || is_listed || (words[k] == 0 && !is_preset)) continue;
        to.push_back(k);
        put_number(words[k], to);
        ++count;
    }
    to[count_place] = count;
}

void put_text(const vel_text_rec &text, std::vector<u8> &to) {
    put_number(text.first_word, to);
    put_number(text.cursor_index, to);
    const auto length = static_cast<u8>(std::min<std::size_t>(strnlen(text.text, 1000), 250));
    to.push_back(length);
    to.push_back(0);
    to.push_back(length);
    to.insert(to.end(), text.text, text.text + length);
}

FormBytes changed_parts(u32 changes, Input &input) {
    FormBytes files = form_of_parts();
    for (; changes > 0; --changes) {
        u8 *const place = &files.form[input.byte() * sizeof(Record) % files.form.size()];
        Record record;
        std::memcpy(&record, place, sizeof record);
        set_fields(input, record);
        std::memcpy(place, &record, sizeof record);
    }
    return files;
}

} // namespace

const u32 list_of_parts = PARTS_LIST;

FormBytes form_of_parts() {
    const auto bytes = [](const void *from, std::size_t size) {
        return std::vector<u8>(static_cast<const u8 *>(from), static_cast<const u8 *>(from) + size);
    };
    return {bytes(PARTS_FORM.form, PARTS_FORM.form_size),
            bytes(PARTS_FORM.text, PARTS_FORM.text_size)};
}

FormBytes read_form(Input &input) {
    const u32 record_count = input.byte() % (most_records + 1);
    const u32 text_count = input.byte() % (most_texts + 1);
    const u8 switches = input.byte();
    if ((switches & of_parts) != 0) return changed_parts(record_count, input);
    std::vector<Record> records(record_count);
    for (Record &record : records) record = read_record(input);
    if ((switches & lists_follow_masters) != 0) list_dependents(records);
    std::vector<vel_text_rec> texts(text_count);
    for (vel_text_rec &text : texts) text = read_text(input);
    return {bytes_of(records, (switches & form_has_rest) != 0 ? sizeof(Record) - 1 : 0),
            bytes_of(texts, (switches & text_has_rest) != 0 ? 1 : 0)};
}

std::vector<u8> write_form(const FormBytes &files, std::size_t size) {
    std::vector<u8> to{0, 0, lists_follow_masters};
    const auto put_all = [&]<class Row>(const std::vector<u8> &from, std::size_t most, u8 &count,
                                        void (*put)(const Row &, std::vector<u8> &)) {
        for (std::size_t k = 0; k < from.size() / sizeof(Row) && count < most; ++k) {
            Row row;
            std::memcpy(&row, from.data() + k * sizeof(Row), sizeof row);
            std::vector<u8> bytes;
            put(row, bytes);
            if (to.size() + bytes.size() > size) return;
            to.insert(to.end(), bytes.begin(), bytes.end());
            ++count;
        }
    };
    u8 records = 0, texts = 0;
    put_all(files.form, most_records, records, put_record);
    put_all(files.text, most_texts, texts, put_text);
    to[0] = records;
    to[1] = texts;
    return to;
}

} // namespace fuzz
