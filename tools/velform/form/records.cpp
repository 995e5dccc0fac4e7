#include "form/records.h"

#include <cstddef>

namespace velform {
namespace {

void put_number(std::string &bytes, std::size_t offset, std::uint32_t number) {
    for (std::uint32_t k = 0; k < number_size; ++k) {
        bytes[offset + k] = static_cast<char>(number >> 8 * k & 0xFF);
    }
}

void put_string(std::string &bytes, std::size_t offset, const std::string &string) {
    bytes.replace(offset, string.size(), string);
}

void put_colour(std::string &record, std::size_t offset, std::uint32_t rgb) {
    put_number(record, offset, rgb >> 16);
    put_number(record, offset + number_size, rgb >> 8 & 0xFF);
    put_number(record, offset + 2 * number_size, rgb & 0xFF);
}

void put_computed(std::string &record, const RecordField &row, const FormObject &object) {
    if (row.field == Field::text_length) put_number(record, row.offset, object.text_length);
    if (row.field == Field::master) put_number(record, row.offset, object.master);
    if (row.field != Field::dependents) return;
    std::size_t place = row.offset;
    for (const std::uint32_t number : object.dependents) {
        put_number(record, place, number);
        place += number_size;
    }
}

void put_field(std::string &record, const RecordField &row, const FormObject &object) {
    const std::optional<Setting> &setting = object.settings[row.field];
    switch (row.kind) {
    case Kind::object:
        // Its bytes belong to another field where there are no titles.
        if (means_something(row, object.type())) put_number(record, row.offset, object.menu);
        break;
    case Kind::number:
    case Kind::flag:
    case Kind::code:
        put_number(record, row.offset, static_cast<std::uint32_t>(setting->number()));
        break;
    case Kind::colour:
        put_colour(record, row.offset, static_cast<std::uint32_t>(setting->number()));
        break;
    case Kind::caption:
    case Kind::path:
        put_string(record, row.offset, setting->string());
        break;
    case Kind::text:
        put_number(record, row.offset, object.text);
        break;
    case Kind::computed:
        put_computed(record, row, object);
        break;
    case Kind::letter: // only traits have one
    case Kind::words:
    case Kind::reserved:
        break;
    }
}

void put_patches(std::string &record, const Patches &patches) {
    for (const Patch &patch : patches) put_string(record, patch.offset, patch.bytes);
}

void put_fields(std::string &record, const FormObject &object) {
    for (const RecordField &row : record_table()) put_field(record, row, object);
    put_patches(record, object.source->raw.patches);
}

} // namespace

std::string form_file_bytes(const Form &form) {
    std::string bytes;
    bytes.reserve(form.objects.size() * sizeof(vel_object_file_rec));
    for (const FormObject &object : form.objects) {
        std::string record(sizeof(vel_object_file_rec), '\0');
        if (!object.is_empty) put_fields(record, object);
        bytes += record;
    }
    if (form.raw.records) bytes.resize(sizeof(vel_object_file_rec) * *form.raw.records);
    return bytes + form.raw.form_tail;
}

std::string text_file_bytes(const Form &form) {
    std::string bytes;
    for (std::uint32_t number = 1; number <= form.texts.size(); ++number) {
        std::string record(sizeof(vel_text_rec), '\0');
        put_string(record, offsetof(vel_text_rec, text), form.texts[number - 1]);
        const auto raw = form.raw.texts.find(number);
        if (raw != form.raw.texts.end()) put_patches(record, raw->second.patches);
        bytes += record;
    }
    return bytes + form.raw.text_tail;
}

} // namespace velform
