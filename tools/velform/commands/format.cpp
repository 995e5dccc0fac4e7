#include "commands/format.h"

#include "base/destination.h"
#include "base/files.h"
#include "base/printable.h"
#include "source/source_layout.h"
#include "source/toml_text.h"

namespace velform {
namespace {

struct Formatted {
    std::string name;
    bool is_stream = false;
    std::string before, after; // the same after an error
};

Formatted formatted(const std::string &name, Diagnostics &diagnostics) {
    Formatted source{name, is_stream(name), read_file(name), {}};
    const bool is_good = parse_toml(source.before, diagnostics).has_value();
    source.after = is_good ? laid_out(source.before) : source.before;
    return source;
}

} // namespace

Status format(const FormatOptions &options, std::ostream &out, std::ostream &err) {
    bool are_good = true, would_change = false;
    std::vector<OutputFile> changed;
    std::string streams;
    for (const std::string &name : options.sources) {
        Diagnostics diagnostics;
        Formatted source = formatted(name, diagnostics);
        diagnostics.print(err, {name});
        are_good = are_good && !diagnostics.has_errors();
        const bool differs = source.after != source.before;
        if (differs && options.only_checks) out << printable(name) << '\n';
        would_change = would_change || differs;
        if (source.is_stream) {
            streams += source.after;
        } else if (differs) {
            changed.push_back({name, std::move(source.after)});
        }
    }
    if (!are_good) return Status::faulty_source;
    if (options.only_checks) return would_change ? Status::differences : Status::done;
    replace_files(changed);
    out << streams;
    return Status::done;
}

} // namespace velform
