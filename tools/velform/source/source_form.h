// A form source with all that belongs to it: the form that it says, with the numbers of the lock
// file next to it.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "form/form.h"
#include "source/lock_file.h"

namespace velform {

// That of "notes.toml" is "notes.form.lock". Empty for a source that is no file.
std::string lock_path_of(const std::string &source);

class SourceForm {
public:
    // Makes a lock where none is, if it shall. What is wrong with source or lock is in
    // has_errors(). Throws FileProblem for a lock file that cannot be read.
    SourceForm(std::string path, const std::string &bytes, bool makes_lock = false);
    SourceForm(const SourceForm &) = delete; // the form refers to the source
    SourceForm &operator=(const SourceForm &) = delete;

    // Both are whole only without errors.
    const FormSource &source() const { return source_; }
    const Form &form() const { return form_; }
    Diagnostics &diagnostics() { return diagnostics_; } // of the source
    bool has_errors() const { return diagnostics_.has_errors() || lock_diagnostics_.has_errors(); }
    void print_diagnostics(std::ostream &err, bool has_colours = false);
    // Prints them and throws FileProblem if there are errors.
    void refuse_errors(std::ostream &err);

    // Of the names in the header: what the source says, or else after a file.
    std::string prefix(const std::string &named_after);

    // The lock file, also one to be; empty when there is none.
    const std::string &lock_path() const { return lock_path_; }
    const std::string &lock_on_disk() const { return old_lock_; }
    Diagnostics &lock_diagnostics() { return lock_diagnostics_; }
    // Its bytes, if they are not those on disk.
    std::optional<std::string> changed_lock() const;

private:
    void read_lock_file(bool makes_lock);

    std::string path_, lock_path_, old_lock_;
    FormSource source_;
    Form form_;
    Lock lock_;
    Diagnostics diagnostics_, lock_diagnostics_;
};

} // namespace velform
