#include "form/embed.h"

#include <map>

#include <fmt/format.h>

#include "base/files.h"
#include "form/needed_files.h"
#include "form/records.h"

namespace velform {
namespace {

constexpr std::size_t longest_line = 100;

// C has no empty arrays, so there is a 0 after the bytes.
std::string array(std::string_view name, std::string_view bytes) {
    std::string code = fmt::format("static const unsigned char {}[] = {{\n", name);
    std::string line;
    for (const char byte : bytes) {
        line += fmt::format("{},", static_cast<unsigned char>(byte));
        if (line.size() + 4 <= longest_line) continue;
        code += line + '\n';
        line.clear();
    }
    return code + line + "0};\n";
}

// In quotes, whatever is in it.
std::string literal(std::string_view text) {
    std::string code;
    for (const char c : text) {
        const bool is_plain = c >= ' ' && c <= '~' && c != '"' && c != '\\' && c != '?';
        code +=
            is_plain ? std::string(1, c) : fmt::format("\\{:03o}", static_cast<unsigned char>(c));
    }
    return '"' + code + '"';
}

} // namespace

std::string name_of_data(std::string_view prefix) { return fmt::format("{}_FORM", prefix); }

std::vector<EmbeddedFile> files_to_embed(const Form &form, const std::vector<std::string> &folders,
                                         bool with_fonts) {
    std::map<std::string, std::string> files;
    for (const NeededFile &needed : needed_files(form)) {
        if (needed.is_font && !with_fonts) continue;
        const std::string place = place_in(folders, needed.name);
        if (!place.empty()) {
            files[needed.name] = read_file(place);
        } else if (!needed.standard.empty()) {
            files[needed.name] = needed.standard;
        }
    }
    std::vector<EmbeddedFile> embedded;
    for (auto &[path, bytes] : files) embedded.push_back({path, std::move(bytes)});
    return embedded;
}

std::string embedded_form(const Form &form, std::string_view prefix,
                          const std::vector<EmbeddedFile> &files) {
    const std::string records = form_file_bytes(form), texts = text_file_bytes(form);
    std::string code = "/* Made by velform: change the form source, not this. */\n"
                       "#include <velumo.h>\n\n";
    code += array("form", records) + array("text", texts);
    std::string list;
    for (std::size_t k = 0; k < files.size(); ++k) {
        const std::string name = fmt::format("file_{}", k);
        code += array(name, files[k].bytes);
        list += fmt::format("    {{{}, {}, {}}},\n", literal(files[k].path), name,
                            files[k].bytes.size());
    }
    if (!list.empty())
        code += fmt::format("static const vel_form_file files[] = {{\n{}}};\n", list);
    const std::string name = name_of_data(prefix);
    return code + fmt::format("\nextern const vel_form_data {0};\n"
                              "const vel_form_data {0} = {{form, {1}, text, {2}, {3}, {4}}};\n",
                              name, records.size(), texts.size(), list.empty() ? "NULL" : "files",
                              files.size());
}

} // namespace velform
