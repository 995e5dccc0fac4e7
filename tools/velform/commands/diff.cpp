#include "commands/diff.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <set>

#include <fmt/format.h>
#include <velumo.h>

#include "base/files.h"
#include "read/matching.h"

namespace velform {
namespace {

constexpr std::size_t git_arguments = 7, git_arguments_of_renamed = 9;

struct DiffedFiles {
    std::string before, after;
};

class Comparison {
public:
    Comparison(const DiffedFiles &files, std::ostream &out, std::ostream &err)
        : before_({files.before}, err), after_({files.after}, err), matching_(before_, after_),
          out_(out) {
        if (have_texts()) return;
        before_.forget_texts();
        after_.forget_texts();
    }

    // Returns whether there is any difference.
    bool print() {
        for (std::uint32_t object = 1; object <= after_.object_count(); ++object) {
            const std::uint32_t old = matching_.before(object);
            if (old == 0) {
                report(fmt::format("{} is new{}", after_.title(object), place(after_, object)));
            } else {
                compare_objects(old, object);
            }
        }
        for (std::uint32_t object = 1; object <= before_.object_count(); ++object) {
            if (matching_.after(object) != 0) continue;
            report(fmt::format("{} is gone{}", before_.title(object), place(before_, object)));
        }
        compare_order("objects outside of others", top_level(before_), top_level(after_));
        compare_numbers();
        compare_rest();
        return has_differences_;
    }

private:
    bool have_texts() const { return before_.has_texts() && after_.has_texts(); }

    void report(const std::string &line) {
        out_ << line << '\n';
        has_differences_ = true;
    }

    // As in ", in main: [20, 30, 100, 26] "OK"".
    static std::string place(const ReadForm &form, std::uint32_t object) {
        const std::uint32_t master = form.master(object);
        const std::string caption = form.caption(object);
        return fmt::format("{}: [{}]{}",
                           master == 0 ? "" : fmt::format(", in {}", form.title(master)),
                           fmt::join(form.rect(object), ", "),
                           caption.empty() ? "" : fmt::format(" {}", shown_in_quotes(caption)));
    }

    void compare_objects(std::uint32_t old, std::uint32_t now) {
        changes_.clear();
        if (before_.has_names() && after_.has_names()) {
            note("id", name_or_none(before_, old), name_or_none(after_, now));
        }
        for (const RecordField &row : whole_table()) compare_field(row, old, now);
        if (!changes_.empty()) report(after_.title(now) + changes_);
        compare_order("objects in " + after_.title(now), before_.dependents(old),
                      after_.dependents(now));
    }

    void compare_field(const RecordField &row, std::uint32_t old, std::uint32_t now) {
        switch (row.field) {
        case Field::dependents:
        case Field::text_length: // follows from the caption
            return;
        case Field::max_chars: // is in the same bytes as the menu of a title
            if (!is_title(after_, now)) note(row, old, now);
            return;
        case Field::menu:
            if (!is_title(after_, now)) return;
            [[fallthrough]];
        case Field::master:
        case Field::target:
            compare_links(row, old, now);
            return;
        case Field::text:
            compare_texts(old, now);
            return;
        case Field::x: // from the edges of the object around them
        case Field::y:
            note(row, old, now);
            return;
        default:
            const bool is_trait = row.size == 0;
            if (is_trait || before_.bytes(old, row) != after_.bytes(now, row)) note(row, old, now);
        }
    }

    static bool is_title(const ReadForm &form, std::uint32_t object) {
        return means_something(record_field(Field::menu), form.type(object));
    }

    void note(const RecordField &row, std::uint32_t old, std::uint32_t now) {
        const std::string was = before_.value(old, row.field), is = after_.value(now, row.field);
        const bool is_string = row.kind == Kind::caption || row.kind == Kind::path;
        note(key_of(row), was, is);
        // What nobody reads, but what is in the file.
        if (is_string && was == is && before_.bytes(old, row) != after_.bytes(now, row)) {
            changes_ += fmt::format("\n    {}: other bytes after its end", key_of(row));
        }
    }

    void note(std::string_view key, const std::string &was, const std::string &is) {
        if (was == is) return;
        const auto words = [](const std::string &value) { return value.empty() ? "none" : value; };
        changes_ += fmt::format("\n    {}: {}, was {}", key, words(is), words(was));
    }

    // That of a source, also where one says it by other words.
    static std::string_view key_of(const RecordField &row) {
        if (!row.key.empty()) return row.key;
        if (row.field == Field::part) return "kind";
        if (row.field == Field::target) return "for";
        if (row.field == Field::group) return "group";
        return row.field == Field::master ? "inside" : row.name;
    }

    // Links lead to the same objects even if these have other numbers.
    void compare_links(const RecordField &row, std::uint32_t old, std::uint32_t now) {
        const std::uint32_t was = before_.link(old, row.field), is = after_.link(now, row.field);
        const bool are_same = was == 0 || is == 0
                                  ? before_.number(old, row.field) == after_.number(now, row.field)
                                  : matching_.after(was) == is;
        if (are_same) return;
        changes_ += fmt::format("\n    {}: {}, was {}", key_of(row), link_words(after_, now, row),
                                link_words(before_, old, row));
    }

    static std::string link_words(const ReadForm &form, std::uint32_t object,
                                  const RecordField &row) {
        const std::uint32_t link = form.link(object, row.field);
        if (link != 0) return form.title(link);
        const std::uint32_t number = form.number(object, row.field);
        return number == 0 ? "none" : fmt::format("object {}, which is not there", number);
    }

    // By what they say. Without text files, numbers say little: a new text changes many.
    void compare_texts(std::uint32_t old, std::uint32_t now) {
        const std::uint32_t was = before_.text_of(old), is = after_.text_of(now);
        if (!have_texts()) {
            note("text", was == 0 ? "none" : "one", is == 0 ? "none" : "one");
            return;
        }
        note("text", before_.value(old, Field::text), after_.value(now, Field::text));
        const std::string_view old_record = before_.text_record(was);
        const std::string_view record = after_.text_record(is);
        constexpr std::size_t text = offsetof(vel_text_rec, text);
        if (old_record.empty() || record.empty()) return;
        if (old_record.substr(0, text) != record.substr(0, text)) {
            changes_ += "\n    text: other bytes before it";
        } else if (old_record != record && before_.text(was) == after_.text(is)) {
            changes_ += "\n    text: other bytes after its end";
        }
    }

    static std::string name_or_none(const ReadForm &form, std::uint32_t object) {
        const std::string name = form.name(object);
        return name.empty() ? "none" : name;
    }

    static std::vector<std::uint32_t> top_level(const ReadForm &form) {
        std::vector<std::uint32_t> objects;
        for (std::uint32_t object = 1; object <= form.object_count(); ++object) {
            if (form.master(object) == 0) objects.push_back(object);
        }
        return objects;
    }

    // Of those that are in both lists; both hold objects that are there.
    void compare_order(const std::string &what, const std::vector<std::uint32_t> &old,
                       const std::vector<std::uint32_t> &now) {
        const std::set<std::uint32_t> listed_now(now.begin(), now.end());
        std::vector<std::uint32_t> was, is;
        for (const std::uint32_t object : old) {
            const std::uint32_t same = matching_.after(object);
            if (listed_now.contains(same)) was.push_back(same);
        }
        const std::set<std::uint32_t> listed_then(was.begin(), was.end());
        std::ranges::copy_if(now, std::back_inserter(is), [&listed_then](std::uint32_t object) {
            return listed_then.contains(object);
        });
        if (was != is) report(fmt::format("{} come in another order", what));
    }

    // Of all objects together, since one that is new gives a number to each after it.
    void compare_numbers() {
        std::uint32_t count = 0, first = 0;
        for (std::uint32_t object = 1; object <= after_.object_count(); ++object) {
            const std::uint32_t old = matching_.before(object);
            if (old == 0 || old == object) continue;
            ++count;
            if (first == 0) first = object;
        }
        if (count == 0) return;
        report(fmt::format("{} object{} another number, the first is {}, was {}", count,
                           count == 1 ? " has" : "s have", after_.title(first),
                           matching_.before(first)));
    }

    // What a program may use by number.
    static std::vector<std::string_view> texts_without_object(const ReadForm &form) {
        std::set<std::uint32_t> used;
        for (std::uint32_t object = 1; object <= form.object_count(); ++object) {
            used.insert(form.number(object, Field::text));
        }
        std::vector<std::string_view> texts;
        for (std::uint32_t text = 1; text <= form.text_count(); ++text) {
            if (used.contains(text) || form.is_trait_text(text)) continue;
            texts.push_back(form.text_record(text));
        }
        return texts;
    }

    void compare_rest() {
        if (have_texts() && texts_without_object(before_) != texts_without_object(after_)) {
            report("texts that no object has differ");
        }
        if (before_.form_tail() != after_.form_tail()) report("bytes after the last object differ");
        if (have_texts() && before_.text_tail() != after_.text_tail()) {
            report("bytes after the last text differ");
        }
        const bool differ = before_.form_bytes() != after_.form_bytes() ||
                            (have_texts() && before_.text_bytes() != after_.text_bytes());
        if (differ && !has_differences_) {
            report("the files differ, but not in what an object says: in the order of texts, in "
                   "lists after their end or in numbers of objects that are not there");
        }
    }

    ReadForm before_, after_;
    const Matching matching_;
    std::ostream &out_;
    std::string changes_; // of one object
    bool has_differences_ = false;
};

DiffedFiles files_of(const DiffOptions &options) {
    const std::vector<std::string> &files = options.files;
    if (std::ranges::count(files, standard_stream) > 1) {
        throw WrongUsage("standard input can be only one of the forms");
    }
    if (!options.for_git && files.size() == 2) return {files[0], files[1]};
    if (options.for_git &&
        (files.size() == git_arguments || files.size() == git_arguments_of_renamed)) {
        return {files[1], files[4]};
    }
    throw WrongUsage(options.for_git ? "--git takes what git gives an external diff"
                                     : "diff takes two forms or sources");
}

} // namespace

Status diff(const DiffOptions &options, std::ostream &out, std::ostream &err) {
    if (options.for_git) out << options.files.front() << '\n';
    const bool differ = Comparison(files_of(options), out, err).print();
    return differ && !options.for_git ? Status::differences : Status::done;
}

} // namespace velform
