#include "commands/decompile.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <set>

#include "base/destination.h"
#include "base/files.h"
#include "decompile/source_writer.h"
#include "form/form_builder.h"
#include "form/form_check.h"
#include "form/header.h"
#include "form/records.h"
#include "source/identifier.h"
#include "source/source_layout.h"
#include "source/toml_text.h"

namespace velform {
namespace {

namespace fs = std::filesystem;

// Larger forms are not tried with every theme.
constexpr std::size_t most_bytes_for_all_themes = std::size_t{4} << 20;
constexpr Colour black = 0x000000, white = 0xFFFFFF;

bool becomes(const std::string &source, const FormBytes &bytes, const std::string &prefix) {
    Diagnostics diagnostics;
    const auto root = parse_toml(source, diagnostics);
    if (!root) return false;
    const FormSource read = read_form_source(*root, diagnostics);
    const Form form = build_form(read, diagnostics);
    check_form(form, diagnostics);
    header_text(form, prefix, diagnostics);
    return !diagnostics.has_errors() && form_file_bytes(form) == bytes.form &&
           text_file_bytes(form) == bytes.text;
}

// The spare records that a header names, if they are empty and all at the end of the form.
std::vector<SpareRun> spare_at_end(const RecordList &records, std::vector<NamedSpare> spare) {
    std::ranges::sort(spare, {}, &NamedSpare::first);
    std::uint64_t next = spare.empty() ? records.count() + 1 : spare.front().first;
    const std::uint64_t first = next;
    std::vector<SpareRun> runs;
    for (const NamedSpare &run : spare) {
        if (run.first != next || run.count == 0 || run.first <= VEL_FRAME_BUTTONS) return {};
        runs.push_back({run.id, {}, run.count});
        next += run.count;
    }
    if (next != records.count() + 1) return {};
    for (std::uint64_t number = first; number < next; ++number) {
        const std::string_view record = records[static_cast<std::uint32_t>(number)];
        if (record.find_first_not_of('\0') != record.npos) return {};
    }
    return runs;
}

FormBytes without(const FormBytes &bytes, const std::vector<SpareRun> &spare) {
    constexpr std::size_t size = sizeof(vel_object_file_rec);
    std::size_t count = 0;
    for (const SpareRun &run : spare) count += run.count;
    FormBytes rest = bytes;
    const RecordList records(bytes.form, size);
    rest.form.erase((records.count() - count) * size, count * size);
    return rest;
}

std::set<Colour> colours_in(const std::string &form) {
    std::set<Colour> colours;
    for (const std::string_view record : RecordList(form, sizeof(vel_object_file_rec)).records) {
        for (const RecordField &row : record_table()) {
            if (row.kind == Kind::colour) colours.insert(colour_at(record, row.offset));
        }
    }
    return colours;
}

// Those of which the form shows a colour that is not anybody's, and the one that has none.
std::vector<const Theme *> themes_for(const FormBytes &bytes) {
    std::vector<const Theme *> worth_trying;
    const std::set<Colour> shown = colours_in(bytes.form);
    const bool is_large = bytes.form.size() + bytes.text.size() > most_bytes_for_all_themes;
    for (const Theme &theme : themes()) {
        const bool shows = std::ranges::any_of(theme.colours(), [&](Colour colour) {
            return colour != black && colour != white && shown.contains(colour);
        });
        if (&theme == &themes().back() || (shows && !is_large)) worth_trying.push_back(&theme);
    }
    return worth_trying;
}

// One for each theme, the shortest first.
std::vector<std::string> sources_for(const FormBytes &bytes, const KnownNames &names,
                                     bool has_traits, const std::vector<SpareRun> &spare) {
    std::vector<std::string> sources;
    for (const Theme *theme : themes_for(bytes)) {
        auto source = decompiled(bytes, names, {theme, has_traits, false});
        if (!source) continue;
        source->spare = spare;
        sources.push_back(source_text(*source));
    }
    std::ranges::stable_sort(sources, {}, &std::string::size);
    return sources;
}

// Words are better than the bytes of their texts, however many they are.
std::optional<std::string> source_with(const std::vector<SpareRun> &spare, const FormBytes &bytes,
                                       const KnownNames &names) {
    const FormBytes said = without(bytes, spare);
    for (const bool has_traits : {true, false}) {
        for (std::string &source : sources_for(said, names, has_traits, spare)) {
            if (becomes(source, bytes, upper_case(names.prefix))) return std::move(source);
        }
    }
    return std::nullopt;
}

std::string next_to(const std::string &form, const char *suffix) {
    if (is_stream(form)) return {};
    const fs::path path = fs::path(form).replace_extension(suffix);
    std::error_code fault;
    return fs::is_regular_file(path, fault) ? path.string() : "";
}

} // namespace

KnownNames names_in(const std::string &header) {
    const HeaderNames names(header);
    const bool is_prefix = is_identifier(names.prefix()) && names.prefix() != "VEL";
    return {lower_case(is_prefix ? names.prefix() : ""), names.ids_by_number(),
            !names.ids_by_number().empty(), names.spare()};
}

std::string source_for(const FormBytes &bytes, const KnownNames &names) {
    const RecordList records(bytes.form, sizeof(vel_object_file_rec));
    const std::vector<SpareRun> spare = spare_at_end(records, names.spare);
    auto found = source_with(spare, bytes, names);
    if (!found && !spare.empty()) found = source_with({}, bytes, names);
    if (found) return std::move(*found);
    const auto plain = decompiled(bytes, {}, {&themes().back(), false, true});
    std::string source = plain ? source_text(*plain) : "";
    if (!becomes(source, bytes, upper_case(names.prefix)))
        throw std::logic_error("the form cannot be decompiled");
    return source;
}

Status decompile(const DecompileOptions &options, std::ostream &out) {
    const std::string text = options.text.empty() ? next_to(options.form, ".text") : options.text;
    const std::string header =
        options.header.empty() ? next_to(options.form, ".h") : options.header;
    const FormBytes bytes{read_file(options.form), text.empty() ? "" : read_file(text)};
    const KnownNames names = header.empty() ? KnownNames{} : names_in(read_file(header));
    const std::string source = laid_out(source_for(bytes, names));
    if (options.output.empty()) {
        out << source;
    } else {
        const OutputFile file{options.output, source};
        replace_files({&file, 1});
    }
    return Status::done;
}

} // namespace velform
