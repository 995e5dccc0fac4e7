#include "form/header.h"

#include <charconv>
#include <filesystem>
#include <sstream>

#include <fmt/format.h>

#include "form/embed.h"
#include "source/identifier.h"

namespace velform {
namespace {

constexpr std::string_view guard_line = "#ifndef VELFORM_";
constexpr std::string_view indent = "    ";
constexpr std::string_view spare_title = "Spare objects of the form, the first and how many.";

// What becomes a constant.
struct Named {
    std::string_view name;
    Position where;
    std::string_view kind; // of name
};

class HeaderWriter {
public:
    HeaderWriter(const Form &form, std::string_view prefix, Diagnostics &diagnostics,
                 bool is_embedded)
        : form_(form), prefix_(prefix), guard_(fmt::format("VELFORM_{}_H", prefix)),
          data_(is_embedded ? name_of_data(prefix) : ""), diagnostics_(diagnostics) {}

    std::string write() {
        std::string objects, texts, spare;
        for (const FormObject &object : form_.objects) {
            if (object.source->id.empty()) continue;
            const Named named{object.source->id, object.source->id_where, "id"};
            objects += constant(named, "", object.number);
            if (object.text != 0) texts += constant(named, "_TEXT", object.text);
        }
        for (const SpareNumbers &numbers : form_.spare) {
            const Named named{numbers.run->name, numbers.run->where, "name"};
            spare += constant(named, "", numbers.first);
            spare += constant(named, "_COUNT", numbers.count);
        }
        return fmt::format("/* Made by velform: change the form source, not this. */\n"
                           "#ifndef {0}\n#define {0}\n{1}{2}{3}{4}\n#endif\n",
                           guard_, list("Objects of the form.", objects),
                           list("Texts of the form.", texts), list(spare_title, spare),
                           declaration());
    }

private:
    // C has no empty lists of constants.
    static std::string list(std::string_view title, const std::string &constants) {
        if (constants.empty()) return {};
        return fmt::format("\n/** {} */\nenum {{\n{}}};\n", title, constants);
    }

    std::string declaration() const {
        if (data_.empty()) return {};
        return fmt::format("\n#include <velumo.h>\n\n"
                           "#ifdef __cplusplus\nextern \"C\"\n#else\nextern\n#endif\n"
                           "/** The form, for vel_load_forms_from_memory(). */\n"
                           "const vel_form_data {};\n",
                           data_);
    }

    std::string constant(const Named &named, std::string_view suffix, std::uint32_t number) {
        const std::string name = fmt::format("{}_{}{}", prefix_, upper_case(named.name), suffix);
        const auto [first, is_new] = names_.try_emplace(name, named);
        if (!is_new || name == guard_) report_clash(named, first->second, name);
        if (name == data_) {
            diagnostics_.error(named.where, fmt::format("the {} '{}' becomes {} in the header, as "
                                                        "the embedded form does; choose another",
                                                        named.kind, named.name, name));
        }
        return fmt::format("    {} = {},\n", name, number);
    }

    void report_clash(const Named &named, const Named &first, const std::string &name) {
        const std::string what =
            first.name == named.name
                ? fmt::format("the {} '{}' is taken", named.kind, named.name)
                : fmt::format("the {} '{}' becomes {} in the header, as '{}' does", named.kind,
                              named.name, name, first.name);
        diagnostics_.error(named.where,
                           fmt::format("{}, see line {}; choose another", what, first.where.line),
                           Rule::duplicate_name);
    }

    const Form &form_;
    const std::string_view prefix_;
    const std::string guard_;
    const std::string data_; // empty when the form is not embedded
    Diagnostics &diagnostics_;
    std::map<std::string, Named> names_;
};

} // namespace

std::string prefix_for(std::string_view source_path) {
    std::string prefix = upper_case(std::filesystem::path(source_path).stem().string());
    for (char &c : prefix) {
        if (!is_letter(c) && !is_digit(c)) c = '_';
    }
    return is_identifier(prefix) ? prefix : "FORM_" + prefix;
}

std::string header_text(const Form &form, std::string_view prefix, Diagnostics &diagnostics,
                        bool is_embedded) {
    return HeaderWriter(form, prefix, diagnostics, is_embedded).write();
}

HeaderNames::HeaderNames(const std::string &header) {
    std::istringstream lines(header);
    // The list of objects comes first; that of texts must not be taken for it.
    bool is_objects = true, is_spare = false;
    for (std::string line; std::getline(lines, line);) {
        is_spare = is_spare || line.find(spare_title) != line.npos;
        is_objects = is_objects && !is_spare && line != "};";
        const std::size_t equals = line.find(" = ");
        if (line.starts_with(guard_line)) {
            prefix_ = line.substr(guard_line.size(), line.rfind('_') + 1 - guard_line.size());
        } else if (line.starts_with(indent) && equals != std::string::npos) {
            const std::string name = line.substr(indent.size(), equals - indent.size());
            std::uint32_t number = 0;
            std::from_chars(line.data() + equals + 3, line.data() + line.size(), number);
            if (is_objects) objects_[name] = number;
            if (is_spare) add_spare(name, number);
        }
    }
}

// The first record, and in the next line how many there are.
void HeaderNames::add_spare(std::string_view name, std::uint32_t number) {
    if (!name.starts_with(prefix_)) return;
    const std::string id = lower_case(name.substr(prefix_.size()));
    if (!spare_.empty() && id == spare_.back().id + "_count") {
        spare_.back().count = number;
    } else if (is_identifier(id)) {
        spare_.push_back({id, number, 0});
    }
}

std::uint32_t HeaderNames::object(std::string_view name) const {
    for (const std::string &wanted : {upper_case(name), prefix_ + upper_case(name)}) {
        const auto found = objects_.find(wanted);
        if (found != objects_.end()) return found->second;
    }
    return 0;
}

std::map<std::string, std::uint32_t> HeaderNames::ids() const {
    std::map<std::string, std::uint32_t> ids;
    for (const auto &[name, number] : objects_) {
        const bool is_ours = !prefix_.empty() && name.starts_with(prefix_);
        if (is_ours) ids.emplace(lower_case(name.substr(prefix_.size())), number);
    }
    return ids;
}

std::map<std::uint32_t, std::string> HeaderNames::ids_by_number() const {
    std::map<std::uint32_t, std::string> ids;
    for (const auto &[name, number] : objects_) {
        if (!name.starts_with(prefix_)) continue;
        const std::string id = lower_case(std::string_view(name).substr(prefix_.size()));
        if (is_identifier(id)) ids.try_emplace(number, id);
    }
    return ids;
}

} // namespace velform
