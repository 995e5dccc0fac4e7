#include "check/check_form.h"

#include <algorithm>
#include <map>

#include <fmt/format.h>

#include "form/record_bytes.h"

namespace velform {
namespace {

class LinkCheck {
public:
    explicit LinkCheck(const CheckedForm &form) : form_(form), read_(form.form()) {}

    void run() {
        for (const CheckedObject &o : form_.objects()) {
            if (o.number == 0) continue;
            check_master(o);
            check_dependents(o);
            if (o.number > VEL_FRAME_BUTTONS) check_text(o);
            check_menu(o);
            check_target(o);
            check_codes(o);
            check_strings(o);
        }
        check_texts();
        check_sizes();
    }

private:
    bool is_there(std::uint32_t number) const { return number <= read_.object_count(); }
    // As the record has it, wherever it leads.
    std::uint32_t master_link(std::uint32_t object) const {
        return read_.number(object, Field::master);
    }

    std::vector<std::uint32_t> listed(std::uint32_t object) const {
        const std::string_view bytes = read_.bytes(object, record_field(Field::dependents));
        std::vector<std::uint32_t> numbers;
        for (std::size_t at = 0; at < bytes.size() && number_at(bytes, at) != 0; at += 4) {
            numbers.push_back(number_at(bytes, at));
        }
        return numbers;
    }

    void check_master(const CheckedObject &o) const {
        const std::uint32_t master = master_link(o.number);
        if (master == 0) return;
        if (!is_there(master)) {
            form_.report(Rule::broken_reference, o, Field::master,
                         fmt::format("there is no object {} to be the master", master));
        } else if (o.root == 0 || master == o.number) {
            form_.report(Rule::cycle, o, Field::master,
                         "the object is inside itself, so it is never drawn");
        } else if (std::ranges::count(form_.object(master).dependents, o.number) == 0) {
            form_.report(Rule::mismatched_link, o, Field::master,
                         fmt::format("its master {} does not list it, so it is never drawn",
                                     read_.title(master)));
        }
    }

    void check_dependents(const CheckedObject &o) const {
        std::vector<std::uint32_t> seen;
        for (const std::uint32_t number : listed(o.number)) {
            std::string fault;
            if (!is_there(number)) {
                form_.report(Rule::broken_reference, o, Field::dependents,
                             fmt::format("there is no object {} to be inside", number));
            } else if (std::ranges::count(seen, number) != 0) {
                fault = fmt::format("{} is listed twice", read_.title(number));
            } else if (master_link(number) != o.number && is_there(master_link(number))) {
                fault = fmt::format("{} is listed, but has another master", read_.title(number));
            }
            if (!fault.empty())
                form_.report(Rule::mismatched_link, o, Field::dependents, std::move(fault));
            seen.push_back(number);
        }
    }

    void check_text(const CheckedObject &o) {
        const std::uint32_t text = read_.text_of(o.number);
        if (text == 0 || !read_.has_texts()) return;
        if (text > read_.text_count()) {
            form_.report(Rule::broken_reference, o, Field::text,
                         fmt::format("there is no text {}", text));
            return;
        }
        const auto [first, is_new] = users_.try_emplace(text, o.number);
        if (is_new) return;
        form_.report(Rule::shared_text, o, Field::text,
                     fmt::format("text {} is that of {} already, and its lines are broken for one "
                                 "of them only",
                                 text, read_.title(first->second)));
    }

    void check_menu(const CheckedObject &o) const {
        if (!means_something(record_field(Field::menu), o.type)) return;
        const std::uint32_t menu = read_.number(o.number, Field::menu);
        if (menu == 0) return;
        if (!is_there(menu)) {
            form_.report(Rule::broken_reference, o, Field::menu,
                         fmt::format("there is no object {} to open as a menu", menu));
        } else if (read_.type(menu) != VEL_TYPE_MENU) {
            form_.report(Rule::broken_reference, o, Field::menu,
                         fmt::format("{} is opened, but is no menu", read_.title(menu)));
        }
    }

    void check_target(const CheckedObject &o) const {
        const std::uint32_t target = read_.number(o.number, Field::target);
        if (is_there(target)) return;
        form_.report(Rule::broken_reference, o, Field::target,
                     fmt::format("there is no object {} to scroll", target));
    }

    void check_codes(const CheckedObject &o) const {
        for (const RecordField &row : record_table()) {
            const bool is_meant = means_something(row, o.type) || row.field == Field::type;
            if (row.kind != Kind::code || !is_meant) continue;
            const std::uint32_t code = read_.number(o.number, row.field);
            if (std::ranges::count(row.names, code, &Name::code) != 0) continue;
            form_.report(Rule::unknown_code, o, row.field,
                         fmt::format("{} is no code of `{}`", code, row.name));
        }
    }

    void check_strings(const CheckedObject &o) const {
        for (const RecordField &row : record_table()) {
            if (row.kind != Kind::caption && row.kind != Kind::path) continue;
            const std::string_view bytes = read_.bytes(o.number, row);
            if (bytes.find('\0') != bytes.npos) continue;
            form_.report(Rule::unterminated_string, o, row.field,
                         fmt::format("`{}` has no NUL; its last byte is lost", row.name));
        }
    }

    void check_texts() const {
        for (std::uint32_t text = 1; text <= read_.text_count(); ++text) {
            const std::string_view record = read_.text_record(text);
            if (record.find('\0', record.size() - VEL_TEXT_SIZE) == record.npos) {
                form_.report(Rule::unterminated_string,
                             fmt::format("text {} has no NUL; its last byte is lost", text));
            }
            if (read_.text(text).empty() || read_.is_trait_text(text) || users_.contains(text))
                continue;
            form_.report(Rule::unused_text, fmt::format("no object shows text {}", text));
        }
    }

    void check_sizes() const {
        const auto check = [this](std::string_view file, std::size_t bytes) {
            if (bytes == 0) return;
            form_.report(Rule::trailing_bytes,
                         fmt::format("the {} ends with {} byte{} beyond its last whole record",
                                     file, bytes, bytes == 1 ? "" : "s"));
        };
        check("form description file", read_.form_tail().size());
        check("text file", read_.text_tail().size());
    }

    const CheckedForm &form_;
    const ReadForm &read_;
    std::map<std::uint32_t, std::uint32_t> users_; // of texts
};

} // namespace

void check_links(const CheckedForm &form) { LinkCheck(form).run(); }

} // namespace velform
