// A source compiled in memory, and its record fields by the names of the public header.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>

#include <velumo.h>

#include "form_builder.h"
#include "form_check.h"
#include "header.h"
#include "records.h"
#include "toml_text.h"

namespace test {

struct Compiled {
    std::string form, texts, header, messages;
    bool is_good = false;

    explicit Compiled(const std::string &source) {
        velform::Diagnostics diagnostics;
        if (const auto root = velform::parse_toml(source, diagnostics)) {
            const auto read = velform::read_form_source(*root, diagnostics);
            const auto built = velform::build_form(read, diagnostics);
            velform::check_form(built, diagnostics);
            form = velform::form_file_bytes(built);
            texts = velform::text_file_bytes(built);
            header = velform::header_text(built, "F", diagnostics);
        }
        std::ostringstream out;
        diagnostics.print(out, "f");
        messages = out.str();
        is_good = !diagnostics.has_errors();
    }

    std::size_t object_count() const { return form.size() / sizeof(vel_object_file_rec); }
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
        return form.substr(sizeof(vel_object_file_rec) * (object - 1) + offset, VEL_STRING_SIZE)
            .c_str();
    }
    std::string text(std::uint32_t number) const {
        return texts
            .substr(sizeof(vel_text_rec) * (number - 1) + offsetof(vel_text_rec, text),
                    VEL_TEXT_SIZE)
            .c_str();
    }
};

#define WORD(compiled, object, field) (compiled).word(object, offsetof(vel_object_file_rec, field))
#define STRING(compiled, object, field)                                                            \
    (compiled).string(object, offsetof(vel_object_file_rec, field))

} // namespace test
