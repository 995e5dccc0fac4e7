#include "decompile.h"

#include <algorithm>
#include <filesystem>

#include "destination.h"
#include "files.h"
#include "form_builder.h"
#include "form_check.h"
#include "header.h"
#include "identifier.h"
#include "records.h"
#include "source_layout.h"
#include "source_writer.h"
#include "toml_text.h"

namespace velform {
namespace {

namespace fs = std::filesystem;

// Larger forms are not tried with every theme.
constexpr std::size_t most_bytes_for_all_themes = std::size_t{4} << 20;

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

// All sources worth comparing, the best first: those that say in words what the form says in the
// texts of its traits, and of them the shortest.
std::vector<std::string> sources_for(const FormBytes &bytes, const KnownNames &names) {
    std::vector<std::pair<bool, std::string>> sources;
    const bool is_large = bytes.form.size() + bytes.text.size() > most_bytes_for_all_themes;
    const bool says_traits = has_trait_texts(bytes);
    for (const Theme &theme : themes()) {
        if (is_large && &theme != &themes().back()) continue;
        for (const bool has_traits : {true, false}) {
            const auto source = decompiled(bytes, names, {&theme, has_traits, false});
            if (source) sources.emplace_back(says_traits && !has_traits, source_text(*source));
        }
    }
    std::ranges::stable_sort(sources, {}, [](const auto &source) {
        return std::pair(source.first, source.second.size());
    });
    std::vector<std::string> texts;
    for (auto &[is_raw, text] : sources) texts.push_back(std::move(text));
    return texts;
}

std::string next_to(const std::string &form, const char *suffix) {
    if (is_stream(form)) return {};
    const fs::path path = fs::path(form).replace_extension(suffix);
    std::error_code fault;
    return fs::is_regular_file(path, fault) ? path.string() : "";
}

KnownNames names_in(const std::string &header) {
    if (header.empty()) return {};
    const HeaderNames names(read_file(header));
    const bool is_prefix = is_identifier(names.prefix()) && names.prefix() != "VEL";
    return {lower_case(is_prefix ? names.prefix() : ""), names.ids_by_number(),
            !names.ids_by_number().empty()};
}

} // namespace

std::string source_for(const FormBytes &bytes, const KnownNames &names) {
    const std::string prefix = upper_case(names.prefix);
    for (std::string &source : sources_for(bytes, names)) {
        if (becomes(source, bytes, prefix)) return std::move(source);
    }
    const auto plain = decompiled(bytes, {}, {&themes().back(), false, true});
    std::string source = plain ? source_text(*plain) : "";
    if (!becomes(source, bytes, prefix)) throw std::logic_error("the form cannot be decompiled");
    return source;
}

Status decompile(const DecompileOptions &options, std::ostream &out) {
    const std::string text = options.text.empty() ? next_to(options.form, ".text") : options.text;
    const std::string header =
        options.header.empty() ? next_to(options.form, ".h") : options.header;
    const FormBytes bytes{read_file(options.form), text.empty() ? "" : read_file(text)};
    const std::string source = laid_out(source_for(bytes, names_in(header)));
    if (options.output.empty()) {
        out << source;
    } else {
        const OutputFile file{options.output, source};
        replace_files({&file, 1});
    }
    return Status::done;
}

} // namespace velform
