// A form read back from its files: what each object says, in the words of a source. For list and
// diff.
#pragma once

#include <array>
#include <map>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "form/form.h"
#include "form/record_table.h"

namespace velform {

// A form description file with its text file and header, or a source alone.
struct FormPaths {
    std::string form;
    std::string text{},
        header{}; // empty: the form's name with .text and .h, as far as they are there
};

// Whether a file is a form source, and no form description file. A record always has a byte of 0,
// and a source never.
bool is_source(const std::string &path, const std::string &bytes);

// Throws WrongUsage when a source is given a text file or a header.
void refuse_companions(const FormPaths &paths);

class ReadForm {
public:
    // Of a source, without faults.
    explicit ReadForm(const Form &form);
    // Of a form description file, which has been read. Throws FileProblem.
    ReadForm(const FormPaths &paths, std::string bytes);
    // Prints what is wrong with a source to err. Throws WrongUsage and FileProblem.
    ReadForm(const FormPaths &paths, std::ostream &err);

    std::uint32_t object_count() const;
    std::uint32_t text_count() const;
    bool has_names() const { return !names_.empty(); }
    bool has_texts() const { return has_texts_; }
    // As if the text file were not there, and with it what no record has room for.
    void forget_texts();
    // The two files, those of a source as it is compiled.
    const std::string &form_bytes() const { return form_; }
    const std::string &text_bytes() const { return texts_; }
    // Bytes of the two files that belong to no whole record.
    std::string_view form_tail() const;
    std::string_view text_tail() const;

    // All of the following take numbers of objects that are there.

    // The id in small letters, or as in "frame.move"; empty when there is none.
    std::string name(std::uint32_t object) const;
    // As in "ok (label 12)", or "label 12" without a name.
    std::string title(std::uint32_t object) const;
    std::uint32_t type(std::uint32_t object) const { return number(object, Field::type); }
    // As in "label", or "type 23" when it has no name.
    std::string type_words(std::uint32_t object) const;
    // As in "check"; empty for what is no part.
    std::string part(std::uint32_t object) const;
    // 0 also when it names no other object.
    std::uint32_t master(std::uint32_t object) const;
    // As they are listed, up to the first 0, without those that are not there.
    std::vector<std::uint32_t> dependents(std::uint32_t object) const;
    // x and y from the edges of the master, as a source says them.
    std::array<std::int32_t, 4> rect(std::uint32_t object) const;
    std::array<std::int32_t, 4> rect_on_display(std::uint32_t object) const;
    // Its text or label in UTF-8; empty when it has none.
    std::string caption(std::uint32_t object) const;

    // The number that a field holds; links are those of the file, whatever they lead to.
    std::uint32_t number(std::uint32_t object, Field field) const;
    // The object that a menu title, a scroll bar or a master link names; 0 when there is none.
    std::uint32_t link(std::uint32_t object, Field field) const;
    // As a source would write it; empty for a trait that is not said.
    std::string value(std::uint32_t object, Field field) const;
    std::string_view bytes(std::uint32_t object, const RecordField &row) const;
    // The number of its text; 0 when it has none, also where the file keeps traits in it.
    std::uint32_t text_of(std::uint32_t object) const;
    // The bytes of the text's record; empty when there is none.
    std::string_view text_record(std::uint32_t text) const;
    // In ISO 8859-1, up to its NUL.
    std::string_view text(std::uint32_t number) const;
    // Texts that say what no record has room for.
    bool is_trait_text(std::uint32_t number) const;

private:
    void take(const Form &form);
    void read_source(const std::string &path, const std::string &bytes, std::ostream &err);
    void read_files(const FormPaths &paths);
    void refuse_too_many(const std::string &path) const;
    void read_traits();
    void read_trait_line(std::string_view line);

    std::string form_, texts_;
    bool has_texts_ = false;
    std::map<std::uint32_t, std::string> names_;
    std::map<std::uint32_t, std::map<Field, std::string>> traits_; // as they are said
    std::uint32_t first_trait_text_ = 0, end_of_trait_texts_ = 0;
};

// For people: in UTF-8, without control characters, as in "a \"word\"\n".
std::string shown_in_quotes(std::string_view utf8);

} // namespace velform
