#include "source/lock_file.h"

#include <charconv>
#include <optional>
#include <vector>

#include <fmt/format.h>

#include "source/form_source.h"

namespace velform {
namespace {

constexpr std::string_view first_line = "# velform lock, version 1.";
constexpr std::string_view advice =
    "# The numbers of the form's objects and texts, which velform keeps. Commit this file.\n"
    "# To give back the numbers of an object that is gone, delete its line.\n";
constexpr std::string_view spare_prefix = "spare ";
constexpr std::string_view equals = " = ", up_to = " to ", text_word = ", text ", gone = ", gone";
constexpr std::string_view merge_marks[] = {"<<<<<<<", "|||||||", "=======", ">>>>>>>"};
constexpr std::size_t longest_shown_key = 60;

class LockReader {
public:
    LockReader(std::string_view bytes, Diagnostics &diagnostics)
        : rest_(bytes), diagnostics_(diagnostics), objects_(most_records + 1),
          texts_(most_records + 1) {}

    Lock read() {
        if (!rest_.starts_with(first_line)) {
            error(0, fmt::format("this is no lock file of this velform, which begins with '{}'; "
                                 "get the file back, or remove it to number all objects again",
                                 first_line));
            return {};
        }
        while (!rest_.empty() && !is_cut_off_) {
            line_ = next_line();
            if (!line_.empty() && !line_.starts_with('#')) read_line();
            ++number_;
        }
        return std::move(lock_);
    }

private:
    std::string_view next_line() {
        const std::size_t length = rest_.find('\n');
        if (length == rest_.npos) {
            is_cut_off_ = true;
            error(rest_.size(), "the lock file ends within a line; get the whole file back");
            return {};
        }
        std::string_view line = rest_.substr(0, length);
        rest_.remove_prefix(length + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        return line;
    }

    Position place(std::size_t at) const { return {number_, static_cast<std::uint32_t>(at) + 1}; }
    void error(std::size_t at, std::string message) {
        diagnostics_.error(place(at), std::move(message));
    }

    void read_line() {
        for (const std::string_view mark : merge_marks) {
            if (!line_.starts_with(mark)) continue;
            return error(0, "a merge has left its marks here; keep the lines of both sides, and "
                            "take out the marks");
        }
        at_ = line_.find(equals);
        if (at_ == line_.npos || at_ == 0) return refuse_line(0);
        const std::string key(line_.substr(0, at_));
        at_ += equals.size();
        LockedNumbers numbers;
        numbers.where = place(0);
        if (!read_objects(key, numbers) || !read_text(numbers)) return;
        numbers.is_gone = take(gone);
        if (at_ != line_.size()) return refuse_line(at_);
        const auto [entry, is_new] = lock_.try_emplace(key, numbers);
        if (!is_new) {
            error(0, fmt::format("'{}' has numbers in line {} already; delete one of the lines",
                                 key.substr(0, longest_shown_key), entry->second.where.line));
        }
    }

    void refuse_line(std::size_t at) {
        error(at, "a line of a lock file is like \"letter = 12\" or \"letter = 12, text 3\"");
    }

    bool take(std::string_view word) {
        if (!line_.substr(at_).starts_with(word)) return false;
        at_ += word.size();
        return true;
    }

    // Reports what is no number of a record that a form can have.
    std::optional<std::uint32_t> take_number(std::string_view what, std::uint32_t least) {
        std::uint32_t number = 0;
        const char *const begin = line_.data() + at_, *const end = line_.data() + line_.size();
        const auto [stop, fault] = std::from_chars(begin, end, number);
        if (stop == begin) return refuse_line(at_), std::nullopt;
        if (fault != std::errc{} || number < least || number > most_records) {
            error(at_,
                  fmt::format("the number of {} must be from {} to {}", what, least, most_records));
            return {};
        }
        at_ += static_cast<std::size_t>(stop - begin);
        return number;
    }

    bool read_objects(const std::string &key, LockedNumbers &numbers) {
        const std::size_t begin = at_;
        const auto first = take_number("an object", VEL_FRAME_BUTTONS + 1);
        if (!first) return false;
        auto last = first;
        if (key.starts_with(spare_prefix) && take(up_to)) last = take_number("an object", *first);
        if (!last) return false;
        numbers.object = *first;
        numbers.count = *last - *first + 1;
        for (std::uint32_t number = *first; number <= *last; ++number) {
            if (!claim(objects_, number, "object", begin)) return false;
        }
        return true;
    }

    bool read_text(LockedNumbers &numbers) {
        if (!take(text_word)) return true;
        const std::size_t begin = at_;
        const auto text = take_number("a text", 1);
        if (!text || !claim(texts_, *text, "text", begin)) return false;
        numbers.text = *text;
        return true;
    }

    // For the line.
    bool claim(std::vector<std::uint32_t> &lines, std::uint32_t number, std::string_view what,
               std::size_t at) {
        if (lines[number] != 0) {
            error(at, fmt::format("{} {} is in line {} already; delete one of the lines", what,
                                  number, lines[number]));
            return false;
        }
        lines[number] = number_;
        return true;
    }

    std::string_view rest_, line_;
    std::size_t at_ = 0;       // in the line
    std::uint32_t number_ = 1; // of the line
    bool is_cut_off_ = false;
    Diagnostics &diagnostics_;
    std::vector<std::uint32_t> objects_, texts_; // the lines that have their numbers
    Lock lock_;
};

} // namespace

std::string key_of_spare(std::string_view name) { return fmt::format("{}{}", spare_prefix, name); }

Lock read_lock(std::string_view bytes, Diagnostics &diagnostics) {
    return LockReader(bytes, diagnostics).read();
}

std::string lock_text(const Lock &lock) {
    std::string text = fmt::format("{}\n{}", first_line, advice);
    for (const auto &[key, numbers] : lock) {
        text += fmt::format("{}{}{}", key, equals, numbers.object);
        if (numbers.count > 1) text += fmt::format("{}{}", up_to, numbers.last());
        if (numbers.text != 0) text += fmt::format("{}{}", text_word, numbers.text);
        text += numbers.is_gone ? fmt::format("{}\n", gone) : "\n";
    }
    return text;
}

} // namespace velform
