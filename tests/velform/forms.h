// Forms compiled in memory, and the program as its users start it.
#pragma once

#include "support.h"

#include <algorithm>
#include <sstream>
#include <sys/wait.h>

#include "check/check_form.h"
#include "form/form_builder.h"
#include "form/form_check.h"
#include "form/header.h"
#include "form/record_table.h"
#include "form/records.h"
#include "source/toml_text.h"

namespace test {

// Where a member of the record is.
inline std::size_t place_of(const std::string &member) {
    for (const velform::RecordField &row : velform::record_table()) {
        const std::string names = " " + std::string(row.name) + ",";
        const std::size_t at = names.find(" " + member + ",");
        const auto before = names.substr(0, at);
        const auto commas = std::count(before.begin(), before.end(), ',');
        if (at != std::string::npos) return row.offset + 4 * static_cast<std::size_t>(commas);
    }
    throw std::out_of_range(member);
}

inline std::string object(std::string_view type, const std::string &keys) {
    return "[[object]]\ntype = '" + std::string(type) + "'\n" + keys + "\n";
}

struct Compiled {
    std::string form, texts, header, messages;
    bool is_good = false;

    explicit Compiled(const std::string &source, velform::Lock *lock = nullptr) {
        velform::Diagnostics diagnostics;
        if (auto root = velform::parse_toml(source, diagnostics)) {
            // Most tests are of what a source says, and those of themes say which one.
            if (!root->contains("theme")) root->insert("theme", "none");
            const auto read = velform::read_form_source(*root, diagnostics);
            const auto built = velform::build_form(read, diagnostics, lock);
            velform::check_form(built, diagnostics);
            form = velform::form_file_bytes(built);
            texts = velform::text_file_bytes(built);
            header = velform::header_text(built, "F", diagnostics);
            if (!diagnostics.has_errors()) {
                const velform::ReadForm records(built);
                velform::check_types(velform::CheckedForm(records, &built, diagnostics));
            }
        }
        std::ostringstream out;
        diagnostics.print(out, {"f"});
        messages = out.str();
        is_good = !diagnostics.has_errors();
    }

    // Not the record itself, so that the test holds on every host.
    std::uint32_t word(std::uint32_t object, std::size_t offset) const {
        std::uint32_t result = 0;
        for (std::size_t k = 0; k < 4; ++k) {
            const char byte = form.at(sizeof(vel_object_file_rec) * (object - 1) + offset + k);
            result |= std::uint32_t{static_cast<std::uint8_t>(byte)} << 8 * k;
        }
        return result;
    }
    std::string string(std::uint32_t object, std::size_t offset) const {
        return form.substr(sizeof(vel_object_file_rec) * (object - 1) + offset).c_str();
    }
    std::string text(std::uint32_t number) const {
        return texts.substr(sizeof(vel_text_rec) * (number - 1) + offsetof(vel_text_rec, text))
            .c_str();
    }
};

// Sources and words, as in "8.x=-1 9.dep_objs.2=11 10.label=Yes".
inline void expect_words(const std::vector<std::array<std::string, 2>> &cases) {
    for (const auto &[source, words] : cases) {
        SCOPED_TRACE(source);
        const Compiled c(source);
        EXPECT_TRUE(c.is_good) << c.messages;
        std::istringstream tokens(words);
        for (std::string object, member, value; std::getline(tokens >> std::ws, object, '.');) {
            std::getline(tokens, member, '=');
            tokens >> value;
            const auto number = static_cast<std::uint32_t>(std::stoul(object));
            const std::size_t dot = std::min(member.find('.'), member.size());
            const std::size_t entry = dot < member.size() ? std::stoul(member.substr(dot + 1)) : 0;
            const std::size_t place = place_of(member.substr(0, dot)) + 4 * entry;
            SCOPED_TRACE(object + "." + member);
            if (value.find_first_not_of("-0123456789") == std::string::npos) {
                EXPECT_EQ(static_cast<std::int32_t>(c.word(number, place)), std::stol(value));
            } else {
                EXPECT_EQ(c.string(number, place), value);
            }
        }
    }
}

struct Result {
    int status = -1; // -1 when it was ended by a signal
    std::string output;
};

// The arguments may redirect; what comes before them is for the shell.
inline Result run(const std::string &arguments, const std::string &before = "") {
    Result result;
    FILE *pipe = popen((before + VELFORM_PATH " 2>&1 " + arguments).c_str(), "r");
    for (int c; (c = std::fgetc(pipe)) != EOF;) result.output += static_cast<char>(c);
    const int code = pclose(pipe);
    if (WIFEXITED(code)) result.status = WEXITSTATUS(code);
    return result;
}

} // namespace test
