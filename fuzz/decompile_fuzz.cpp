// Decompiles forms of any bytes, and compiles what comes out. The files are the same again, and the
// names that are made up at first stay as they are when they are given; so the source does, too.
// The first byte says what follows: a form file, a form written small, or a source, after which
// bytes of its files change.
#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "commands/decompile.h"
#include "form/form_builder.h"
#include "form/form_check.h"
#include "form/header.h"
#include "form/records.h"
#include "form_bytes.h"
#include "source/identifier.h"
#include "source/source_layout.h"
#include "source/toml_text.h"

namespace {

using namespace velform;

constexpr std::size_t most_bytes = std::size_t{64} << 10; // of a form, so that runs are short

// For the figures.
struct Count {
    std::size_t records = 0;
    ~Count() { std::fprintf(stderr, "decompiled: %zu records\n", records); }
};
Count &count() {
    static Count all;
    return all;
}

struct Compiled {
    FormBytes bytes;
    std::string header;
    bool is_good = false;
};

Compiled compiled(const std::string &text) {
    Diagnostics diagnostics;
    const auto root = parse_toml(text, diagnostics);
    if (!root) return {};
    const FormSource source = read_form_source(*root, diagnostics);
    const Form form = build_form(source, diagnostics);
    check_form(form, diagnostics);
    const std::string header =
        header_text(form, upper_case(source.prefix.value_or("fuzz")), diagnostics);
    if (diagnostics.has_errors()) return {};
    return {{form_file_bytes(form), text_file_bytes(form)}, header, true};
}

std::string string_of(fuzz::Bytes bytes) { return {bytes.begin(), bytes.end()}; }

FormBytes written_out(fuzz::Bytes bytes) {
    const std::size_t texts = bytes.size() / 4; // where a text file would be of use
    return {string_of(bytes.subspan(texts)), string_of(bytes.first(texts))};
}

FormBytes written_small(fuzz::Input input) {
    const fuzz::FormBytes files = fuzz::read_form(input);
    return {string_of(files.form), string_of(files.text)};
}

void change(std::string &bytes, fuzz::Input &input) {
    const std::size_t place = input.number();
    const char value = static_cast<char>(input.byte());
    if (!bytes.empty()) bytes[place % bytes.size()] = value;
}

// The source ends at a NUL.
FormBytes made_of_source(fuzz::Bytes bytes) {
    const auto end = std::find(bytes.begin(), bytes.end(), 0);
    fuzz::Input changes({end, bytes.end()});
    FormBytes files = compiled({bytes.begin(), end}).bytes;
    for (changes.byte(); !changes.is_empty();) {
        change((changes.byte() & 1) != 0 ? files.text : files.form, changes);
    }
    return files;
}

FormBytes files_of(fuzz::Bytes bytes) {
    enum Kind : fuzz::u8 { bare, small, source, source_of_this, kinds };
    const auto kind = static_cast<Kind>(bytes.empty() ? 0 : bytes[0] % kinds);
    if (kind == source_of_this) return made_of_source(bytes); // as sources begin, with '#' or '['
    const fuzz::Bytes rest = bytes.subspan(bytes.empty() ? 0 : 1);
    return kind == bare    ? written_out(rest)
           : kind == small ? written_small(fuzz::Input(rest))
                           : made_of_source(rest);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const FormBytes files = files_of({data, size});
    if (files.form.size() + files.text.size() > most_bytes) return 0;
    count().records += files.form.size() / sizeof(vel_object_file_rec);
    KnownNames given, found[2];
    for (KnownNames &names : found) {
        const Compiled again = compiled(laid_out(source_for(files, given)));
        const bool is_same = again.bytes.form == files.form && again.bytes.text == files.text;
        if (!again.is_good || !is_same) std::abort();
        given = names = names_in(again.header);
    }
    if (!(found[0] == found[1])) std::abort();
    return 0;
}
