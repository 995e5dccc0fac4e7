#include "commands/list.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>
#include <velumo.h>

#include "base/json.h"

namespace velform {
namespace {

constexpr std::size_t longest_caption = 60; // bytes
constexpr std::size_t deepest_indent = 30;  // levels

// The beginning of a text, as far as it fits into a line.
std::string short_words(std::string text) {
    if (text.size() <= longest_caption) return shown_in_quotes(text);
    std::size_t end = longest_caption;
    while ((text[end] & 0xC0) == 0x80) --end;
    return shown_in_quotes(text.substr(0, end)) + "...";
}

std::string rect_words(const std::array<std::int32_t, 4> &rect) {
    return fmt::format("[{}]", fmt::join(rect, ", "));
}

// Depth first, in the order of the lists of dependents. An object comes below its master only if
// that one lists it, too; the others come after all, so that each object is there once.
class Tree {
public:
    Tree(const ReadForm &form, std::ostream &out)
        : form_(form), out_(out), is_done_(form.object_count() + 1) {}

    void print(std::uint32_t first) {
        const std::uint32_t end = form_.object_count() + 1;
        for (std::uint32_t object = 1; object < std::min(first, end); ++object) {
            is_done_[object] = true;
        }
        for (std::uint32_t object = first; object < end; ++object) {
            if (form_.master(object) == 0) print_with_dependents(object, "");
        }
        for (std::uint32_t object = first; object < end; ++object) {
            if (is_done_[object]) continue;
            print_with_dependents(object,
                                  fmt::format("  (in {})", form_.title(form_.master(object))));
        }
    }

private:
    struct Place {
        std::uint32_t object;
        std::size_t depth;
    };

    // The stack is our own: a form may nest its objects thousands of levels deep.
    void print_with_dependents(std::uint32_t top, std::string note) {
        std::vector<Place> waiting{{top, 0}};
        while (!waiting.empty()) {
            const auto [object, depth] = waiting.back();
            waiting.pop_back();
            if (is_done_[object]) continue;
            is_done_[object] = true;
            print_line(object, depth, std::exchange(note, {}));
            const std::vector<std::uint32_t> dependents = form_.dependents(object);
            for (auto at = dependents.rbegin(); at != dependents.rend(); ++at) {
                if (form_.master(*at) == object) waiting.push_back({*at, depth + 1});
            }
        }
    }

    void print_line(std::uint32_t object, std::size_t depth, const std::string &note) {
        const std::string name = form_.name(object), part = form_.part(object);
        const std::string caption = form_.caption(object);
        out_ << fmt::format("{:>5}  {:{}}{}{}{}  {}{}{}\n", object, "",
                            2 * std::min(depth, deepest_indent), name, name.empty() ? "" : "  ",
                            part.empty() ? form_.type_words(object) : part,
                            rect_words(form_.rect(object)),
                            caption.empty() ? "" : "  " + short_words(caption), note);
    }

    const ReadForm &form_;
    std::ostream &out_;
    std::vector<bool> is_done_;
};

std::string json_or_null(const std::string &utf8) {
    return utf8.empty() ? "null" : json_string(utf8);
}

std::string json_of(const ReadForm &form, std::uint32_t object) {
    return fmt::format(
        "  {{\"number\": {}, \"name\": {}, \"type\": {}, \"kind\": {}, "
        "\"master\": {}, \"rect\": {}, \"rect_on_display\": {}, \"hidden\": {}, "
        "\"caption\": {}, \"objects\": [{}]}}",
        object, json_or_null(form.name(object)), json_string(form.type_words(object)),
        json_or_null(form.part(object)), form.master(object), rect_words(form.rect(object)),
        rect_words(form.rect_on_display(object)), form.number(object, Field::hidden) != 0,
        json_string(form.caption(object)), fmt::join(form.dependents(object), ", "));
}

void print_json(const ReadForm &form, std::ostream &out) {
    out << "[\n";
    for (std::uint32_t object = 1; object <= form.object_count(); ++object) {
        out << json_of(form, object) << (object < form.object_count() ? ",\n" : "\n");
    }
    out << "]\n";
}

} // namespace

Status list(const ListOptions &options, std::ostream &out, std::ostream &err) {
    const ReadForm form(options.form, err);
    if (options.json) {
        print_json(form, out);
    } else {
        Tree(form, out).print(options.all ? 1 : VEL_FRAME_BUTTONS + 1);
    }
    return Status::done;
}

} // namespace velform
