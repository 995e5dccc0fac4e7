#include "read/read_form.h"

#include <charconv>
#include <cstddef>
#include <filesystem>

#include <fmt/format.h>

#include "base/destination.h"
#include "base/files.h"
#include "base/printable.h"
#include "form/header.h"
#include "form/record_bytes.h"
#include "form/records.h"
#include "source/identifier.h"
#include "source/source_form.h"

namespace velform {
namespace {

#define SIGNATURE(line) constexpr std::string_view signature = line;
#include "model/traits.inc"

// A word of the trait texts. What it says comes after a '=', or is the word alone.
struct TraitWord {
    Field field;
    std::string_view word;
    bool has_value, is_phrase;
};
constexpr TraitWord trait_words[] = {
#define ANSWER(field, key, word, ...) {Field::field, word, false, false},
#define MARK ANSWER
#define LETTER(field, key, word, ...) {Field::field, word, true, false},
#define VALUE(field, kind, key, word, ...) {Field::field, word, true, false},
#define PHRASE(field, key, word, ...) {Field::field, word, true, true},
#include "model/traits.inc"
};

struct PartName {
    std::uint32_t code;
    std::string_view name;
};
constexpr PartName part_names[] = {
#define PART(name, code) {code, #name},
#include "model/traits.inc"
};

constexpr std::size_t record_size = sizeof(vel_object_file_rec);
constexpr std::size_t text_record_size = sizeof(vel_text_rec);

// A field of characters without a NUL ends before its last byte, as in the library.
std::string_view string_in(std::string_view field) {
    return field.substr(0, std::min(field.find('\0'), field.size() - 1));
}

std::string_view take_until(char end, std::string_view &text) {
    const std::string_view piece = text.substr(0, text.find(end));
    text.remove_prefix(std::min(text.size(), piece.size() + 1));
    return piece;
}

std::uint32_t written_number(std::string_view digits) {
    std::int64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return static_cast<std::uint32_t>(number);
}

std::string joined_words(const RecordField &row, std::uint32_t bits) {
    std::string words;
    for (const Name &name : row.names) {
        if ((bits & name.code) == 0) continue;
        words += fmt::format("{}{}", words.empty() ? "" : " ", name.name);
        bits &= ~name.code;
    }
    return bits == 0 ? fmt::format("\"{}\"", words) : "";
}

// As a source says it, or as a number when it has no name.
std::string number_words(const RecordField &row, std::uint32_t number) {
    if (row.kind == Kind::flag && number <= 1) return number == 1 ? "true" : "false";
    if (row.kind == Kind::words) {
        const std::string words = joined_words(row, number);
        if (!words.empty()) return words;
    }
    for (const Name &name : row.names) {
        if (row.kind == Kind::code && name.code == number) return fmt::format("\"{}\"", name.name);
    }
    return fmt::format("{}", static_cast<std::int32_t>(number));
}

std::string colour_words(std::string_view bytes) {
    const std::uint32_t r = number_at(bytes, 0), g = number_at(bytes, 4), b = number_at(bytes, 8);
    if ((r | g | b) < 256) return fmt::format("\"#{:02x}{:02x}{:02x}\"", r, g, b);
    return fmt::format("{}, {}, {}", r, g, b);
}

// The file that goes with a form, or an empty path when it is not there.
std::string companion(const std::string &form, const char *suffix) {
    if (is_stream(form)) return {};
    const auto path = std::filesystem::path(form).replace_extension(suffix);
    std::error_code ignored;
    return std::filesystem::is_regular_file(path, ignored) ? path.string() : std::string{};
}

} // namespace

bool is_source(const std::string &path, const std::string &bytes) {
    const std::string suffix = std::filesystem::path(path).extension().string();
    if (suffix == ".form" || bytes.empty()) return false;
    return suffix == ".toml" || bytes.find('\0') == std::string::npos;
}

void refuse_companions(const FormPaths &paths) {
    if (paths.text.empty() && paths.header.empty()) return;
    throw WrongUsage(
        fmt::format("{} is a source, which has its texts and names in itself", paths.form));
}

std::string shown_in_quotes(std::string_view utf8) {
    std::string escaped;
    for (const char c : utf8) {
        if (c == '"' || c == '\\') escaped += '\\';
        escaped += c;
    }
    return fmt::format("\"{}\"", printable(escaped));
}

ReadForm::ReadForm(const Form &form) {
    take(form);
    read_traits();
}

ReadForm::ReadForm(const FormPaths &paths, std::string bytes) : form_(std::move(bytes)) {
    read_files(paths);
    refuse_too_many(paths.form);
    read_traits();
}

ReadForm::ReadForm(const FormPaths &paths, std::ostream &err) : form_(read_file(paths.form)) {
    if (is_source(paths.form, form_)) {
        refuse_companions(paths);
        read_source(paths.form, form_, err);
    } else {
        read_files(paths);
    }
    refuse_too_many(paths.form);
    read_traits();
}

void ReadForm::refuse_too_many(const std::string &path) const {
    if (object_count() <= most_records && text_count() <= most_records) return;
    throw FileProblem(
        fmt::format("cannot read {}: a form has at most {} objects and texts", path, most_records));
}

void ReadForm::take(const Form &form) {
    form_ = form_file_bytes(form);
    texts_ = text_file_bytes(form);
    has_texts_ = true;
    for (const FormObject &object : form.objects) {
        if (!object.source->id.empty()) names_[object.number] = lower_case(object.source->id);
    }
}

void ReadForm::read_source(const std::string &path, const std::string &bytes, std::ostream &err) {
    SourceForm source(path, bytes);
    source.refuse_errors(err);
    take(source.form()); // records hold only what has no faults
}

void ReadForm::read_files(const FormPaths &paths) {
    const std::string text = paths.text.empty() ? companion(paths.form, ".text") : paths.text;
    if (!text.empty()) {
        texts_ = read_file(text);
        has_texts_ = true;
    }
    const std::string header = paths.header.empty() ? companion(paths.form, ".h") : paths.header;
    if (header.empty()) return;
    for (const auto &[id, number] : HeaderNames(read_file(header)).ids()) {
        const bool is_there = number > VEL_FRAME_BUTTONS && number <= object_count();
        if (is_there && is_identifier(id)) names_.emplace(number, id);
    }
}

void ReadForm::forget_texts() {
    texts_.clear();
    traits_.clear();
    has_texts_ = false;
    first_trait_text_ = end_of_trait_texts_ = 0;
}

std::uint32_t ReadForm::object_count() const {
    return static_cast<std::uint32_t>(form_.size() / record_size);
}

std::uint32_t ReadForm::text_count() const {
    return static_cast<std::uint32_t>(texts_.size() / text_record_size);
}

std::string_view ReadForm::form_tail() const {
    return std::string_view(form_).substr(object_count() * record_size);
}

std::string_view ReadForm::text_tail() const {
    return std::string_view(texts_).substr(text_count() * text_record_size);
}

void ReadForm::read_traits() {
    if (object_count() == 0) return;
    first_trait_text_ = end_of_trait_texts_ = number(1, Field::text);
    if (first_trait_text_ == 0) return;
    for (; end_of_trait_texts_ <= text_count(); ++end_of_trait_texts_) {
        std::string_view lines = text(end_of_trait_texts_);
        if (take_until('\n', lines) != signature) return;
        while (!lines.empty()) read_trait_line(take_until('\n', lines));
    }
}

void ReadForm::read_trait_line(std::string_view line) {
    const std::uint32_t object = written_number(take_until(' ', line));
    if (object == 0 || object > object_count()) return;
    while (!line.empty()) {
        const std::string_view rest = line, said = take_until(' ', line);
        for (const auto &[field, word, has_value, is_phrase] : trait_words) {
            const std::size_t equals = said.find('=');
            if (said.substr(0, equals) != word || has_value != (equals != said.npos)) continue;
            const std::string_view all = is_phrase ? rest : said;
            traits_[object][field] = has_value ? all.substr(word.size() + 1) : "true";
            if (is_phrase) line = {};
        }
    }
}

std::string ReadForm::name(std::uint32_t object) const {
    if (object <= VEL_FRAME_BUTTONS) return fmt::format("frame.{}", frame_button_names[object - 1]);
    const auto found = names_.find(object);
    return found == names_.end() ? std::string{} : found->second;
}

std::string ReadForm::title(std::uint32_t object) const {
    const std::string kind = part(object).empty() ? type_words(object) : part(object);
    const std::string id = name(object);
    return id.empty() ? fmt::format("{} {}", kind, object)
                      : fmt::format("{} ({} {})", id, kind, object);
}

std::string ReadForm::type_words(std::uint32_t object) const {
    const std::string_view known = type_name(type(object));
    return known.empty() ? fmt::format("type {}", type(object)) : std::string(known);
}

std::string ReadForm::part(std::uint32_t object) const {
    const std::string code = value(object, Field::part);
    for (const PartName &row : part_names) {
        if (fmt::format("{}", row.code) == code) return std::string(row.name);
    }
    return {};
}

std::uint32_t ReadForm::master(std::uint32_t object) const {
    const std::uint32_t found = link(object, Field::master);
    return found == object ? 0 : found;
}

std::vector<std::uint32_t> ReadForm::dependents(std::uint32_t object) const {
    const std::string_view list = bytes(object, record_field(Field::dependents));
    std::vector<std::uint32_t> numbers;
    for (std::size_t at = 0; at < list.size() && number_at(list, at) != 0; at += 4) {
        if (number_at(list, at) <= object_count()) numbers.push_back(number_at(list, at));
    }
    return numbers;
}

std::array<std::int32_t, 4> ReadForm::rect_on_display(std::uint32_t object) const {
    const auto side = [this, object](Field field) {
        return static_cast<std::int32_t>(number(object, field));
    };
    return {side(Field::x), side(Field::y), side(Field::width), side(Field::height)};
}

std::array<std::int32_t, 4> ReadForm::rect(std::uint32_t object) const {
    auto rect = rect_on_display(object);
    if (const std::uint32_t around = master(object); around != 0) {
        rect[0] = static_cast<std::int32_t>(number(object, Field::x) - number(around, Field::x));
        rect[1] = static_cast<std::int32_t>(number(object, Field::y) - number(around, Field::y));
    }
    return rect;
}

std::string ReadForm::caption(std::uint32_t object) const {
    if (text_of(object) != 0) return utf8_of(text(text_of(object)));
    return utf8_of(string_in(bytes(object, record_field(Field::label))));
}

std::uint32_t ReadForm::number(std::uint32_t object, Field field) const {
    const RecordField &row = record_field(field);
    if (row.size != 0) return number_at(bytes(object, row), 0);
    const std::string said = value(object, field);
    return said.empty() ? 0 : written_number(said);
}

std::uint32_t ReadForm::link(std::uint32_t object, Field field) const {
    if (field == Field::menu && !means_something(record_field(field), type(object))) return 0;
    const std::uint32_t named = number(object, field);
    return named <= object_count() ? named : 0;
}

std::string ReadForm::value(std::uint32_t object, Field field) const {
    const RecordField &row = record_field(field);
    if (row.size == 0) {
        const auto all = traits_.find(object);
        if (all == traits_.end() || !all->second.contains(field)) return {};
        const std::string &said = all->second.at(field);
        if (row.kind == Kind::caption || row.kind == Kind::letter)
            return shown_in_quotes(utf8_of(said));
        return row.names.empty() ? said : number_words(row, written_number(said));
    }
    switch (row.kind) {
    case Kind::colour:
        return colour_words(bytes(object, row));
    case Kind::caption:
        return shown_in_quotes(utf8_of(string_in(bytes(object, row))));
    case Kind::path:
        return shown_in_quotes(string_in(bytes(object, row)));
    case Kind::text:
        return text_of(object) == 0 ? "none" : shown_in_quotes(utf8_of(text(text_of(object))));
    default:
        break;
    }
    if (field == Field::x || field == Field::y) {
        return fmt::format("{}", rect(object)[field == Field::x ? 0 : 1]);
    }
    return number_words(row, number(object, field));
}

std::string_view ReadForm::bytes(std::uint32_t object, const RecordField &row) const {
    return std::string_view(form_).substr((object - 1) * record_size + row.offset, row.size);
}

std::uint32_t ReadForm::text_of(std::uint32_t object) const {
    const std::uint32_t named = number(object, Field::text);
    return is_trait_text(named) ? 0 : named;
}

std::string_view ReadForm::text_record(std::uint32_t text) const {
    if (text == 0 || text > text_count()) return {};
    return std::string_view(texts_).substr((text - 1) * text_record_size, text_record_size);
}

std::string_view ReadForm::text(std::uint32_t number) const {
    const std::string_view record = text_record(number);
    return record.empty() ? record : string_in(record.substr(offsetof(vel_text_rec, text)));
}

bool ReadForm::is_trait_text(std::uint32_t number) const {
    return number >= first_trait_text_ && number < end_of_trait_texts_;
}

} // namespace velform
