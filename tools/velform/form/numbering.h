// Which numbers the objects and texts of a form get: those of its lock file, or else the first that
// nothing has.
#pragma once

#include <string>
#include <vector>

#include "form/form.h"
#include "source/lock_file.h"

namespace velform {

class Numbering {
public:
    // The lock, if there is one, lives as long and is brought up to date.
    Numbering(Lock *lock, const FormSource &source, Diagnostics &diagnostics);

    // Takes the objects with numbers in the order of the source. Moves them to their own, with
    // empty records where nothing has the number, and adds the spare ones.
    void number_objects(Form &form);

    // The number of an object's text: that in the lock, or the next one.
    std::uint32_t text_for(const FormObject &object);
    // The next number that neither the lock nor a raw text has.
    std::uint32_t next_text();
    // So that next_text() is beyond all in the lock, whose last number it returns.
    std::uint32_t skip_locked_texts();

private:
    void note_lock();
    void refuse_raw_texts_in_lock();
    std::uint32_t kept_number(const std::string &key);
    std::uint32_t new_number(const std::string &key, std::uint32_t count);
    void keep_spare(SpareNumbers &spare);
    void number_by_lock(Form &form);
    bool has_room();
    std::uint32_t first_free(std::uint32_t count);
    bool is_free(std::uint32_t first, std::uint32_t count) const;
    void take(std::uint32_t first, std::uint32_t count);

    Lock *const lock_;
    const FormSource &source_;
    Diagnostics &diagnostics_;
    std::vector<bool> is_taken_;          // by number of the object
    std::vector<bool> is_text_locked_;    // by number of the text
    std::vector<LockedNumbers *> locked_; // by number of the object
    std::uint32_t next_object_ = VEL_FRAME_BUTTONS + 1;
    std::uint32_t last_object_ = VEL_FRAME_BUTTONS;
    std::uint32_t last_locked_text_ = 0, last_text_ = 0;
};

} // namespace velform
