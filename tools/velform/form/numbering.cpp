#include "form/numbering.h"

#include <algorithm>

#include <fmt/format.h>

#include "form/object_keys.h"
#include "form/records.h"

namespace velform {
namespace {

// Moves each object to its place in the table, which is its number.
void move_objects(Form &form, const std::vector<std::uint32_t> &numbers, std::uint32_t last) {
    std::vector<FormObject *> places(std::size_t{last} + 1);
    for (std::size_t k = 0; k < numbers.size(); ++k) places[numbers[k]] = &form.objects[k];
    std::vector<FormObject> objects;
    objects.reserve(last);
    for (std::uint32_t number = 1; number <= last; ++number) {
        if (places[number] == nullptr) {
            objects.push_back(empty_record(number));
            continue;
        }
        objects.push_back(std::move(*places[number]));
        FormObject &object = objects.back();
        object.number = number;
        if (object.master != 0) object.master = numbers[object.master - 1];
        for (std::uint32_t &dependent : object.dependents) dependent = numbers[dependent - 1];
    }
    form.objects = std::move(objects);
}

} // namespace

Numbering::Numbering(Lock *lock, const FormSource &source, Diagnostics &diagnostics)
    : lock_(lock), source_(source), diagnostics_(diagnostics) {
    if (lock_ == nullptr) return;
    note_lock();
    refuse_raw_texts_in_lock();
}

// All is gone until an object claims it.
void Numbering::note_lock() {
    is_taken_.resize(most_records + 1);
    is_text_locked_.resize(most_records + 1);
    locked_.resize(most_records + 1);
    for (auto &[key, numbers] : *lock_) {
        numbers.is_gone = true;
        take(numbers.object, numbers.count);
        locked_[numbers.object] = &numbers;
        if (numbers.text == 0) continue;
        is_text_locked_[numbers.text] = true;
        last_locked_text_ = std::max(last_locked_text_, numbers.text);
    }
}

void Numbering::refuse_raw_texts_in_lock() {
    for (const auto &[number, text] : source_.raw.texts) {
        if (!text.text || number > most_records || !is_text_locked_[number]) continue;
        diagnostics_.error(text.where,
                           fmt::format("text {} is that of an object in the lock file; choose "
                                       "another number, or delete the object's line there",
                                       number));
    }
}

void Numbering::number_objects(Form &form) {
    for (const SpareRun &run : source_.spare) form.spare.push_back({&run, 0, run.count});
    if (lock_ != nullptr) return number_by_lock(form);
    last_object_ = static_cast<std::uint32_t>(form.objects.size());
    for (SpareNumbers &spare : form.spare) {
        spare.first = last_object_ + 1;
        last_object_ += spare.count;
    }
    if (!has_room()) return;
    while (form.objects.size() < last_object_) {
        form.objects.push_back(empty_record(static_cast<std::uint32_t>(form.objects.size() + 1)));
    }
}

void Numbering::number_by_lock(Form &form) {
    ObjectKeys keys;
    for (const FormObject &object : form.objects) keys.add(object);
    std::vector<std::uint32_t> numbers(form.objects.size());
    for (std::size_t k = 0; k < numbers.size(); ++k) {
        const bool is_button = k < VEL_FRAME_BUTTONS;
        numbers[k] = is_button ? static_cast<std::uint32_t>(k + 1) : kept_number(keys[k]);
    }
    for (SpareNumbers &spare : form.spare) keep_spare(spare);
    for (std::size_t k = VEL_FRAME_BUTTONS; k < numbers.size(); ++k) {
        if (numbers[k] == 0) numbers[k] = new_number(keys[k], 1);
    }
    for (SpareNumbers &spare : form.spare) {
        if (spare.first == 0) spare.first = new_number(key_of_spare(spare.run->name), spare.count);
    }
    if (has_room()) move_objects(form, numbers, last_object_);
}

// 0 for new keys, and for those that two objects have, which is reported elsewhere.
std::uint32_t Numbering::kept_number(const std::string &key) {
    const auto found = lock_->find(key);
    if (found == lock_->end() || !found->second.is_gone) return 0;
    found->second.is_gone = false;
    return found->second.object;
}

void Numbering::keep_spare(SpareNumbers &spare) {
    const std::string key = key_of_spare(spare.run->name);
    spare.first = kept_number(key);
    if (spare.first == 0) return;
    LockedNumbers &locked = *locked_[spare.first];
    if (spare.count <= locked.count) return;
    if (!is_free(locked.last() + 1, spare.count - locked.count)) {
        diagnostics_.error(spare.run->where,
                           fmt::format("`{}` has {} numbers in the lock file, line {}, and no room "
                                       "for more after them; delete that line to move it",
                                       spare.run->name, locked.count, locked.where.line));
        return;
    }
    take(locked.last() + 1, spare.count - locked.count);
    locked.count = spare.count;
}

std::uint32_t Numbering::new_number(const std::string &key, std::uint32_t count) {
    const std::uint32_t number = first_free(count);
    take(number, count);
    LockedNumbers numbers;
    numbers.object = number;
    numbers.count = count;
    const auto [entry, is_new] = lock_->try_emplace(key, numbers);
    if (is_new && number <= most_records) locked_[number] = &entry->second;
    return number;
}

bool Numbering::has_room() {
    if (last_object_ <= most_records) return true;
    diagnostics_.error({}, fmt::format("a form holds at most {} objects, with spare ones, that for "
                                       "its tips and those that a lock file keeps; take some out",
                                       most_records));
    return false;
}

std::uint32_t Numbering::first_free(std::uint32_t count) {
    while (!is_free(next_object_, 1)) ++next_object_;
    std::uint32_t first = next_object_;
    for (std::uint32_t number = first; number < first + count; ++number) {
        if (!is_free(number, 1)) first = number + 1;
    }
    return first;
}

// What is beyond the table is free, and reported when all have their numbers.
bool Numbering::is_free(std::uint32_t first, std::uint32_t count) const {
    const std::uint32_t end = std::min<std::uint32_t>(first + count, most_records + 1);
    for (std::uint32_t number = first; number < end; ++number) {
        if (is_taken_[number]) return false;
    }
    return true;
}

void Numbering::take(std::uint32_t first, std::uint32_t count) {
    last_object_ = std::max(last_object_, first + count - 1);
    const std::uint32_t end = std::min<std::uint32_t>(first + count, most_records + 1);
    for (std::uint32_t number = first; number < end; ++number) is_taken_[number] = true;
}

std::uint32_t Numbering::text_for(const FormObject &object) {
    LockedNumbers *const locked = object.number < locked_.size() ? locked_[object.number] : nullptr;
    if (locked == nullptr) return next_text();
    if (locked->text == 0) locked->text = next_text();
    return locked->text;
}

std::uint32_t Numbering::next_text() {
    const auto is_taken = [this](std::uint32_t number) {
        const auto raw = source_.raw.texts.find(number);
        const bool is_raw = raw != source_.raw.texts.end() && raw->second.text;
        return is_raw || (number < is_text_locked_.size() && is_text_locked_[number]);
    };
    while (is_taken(++last_text_)) continue;
    return last_text_;
}

std::uint32_t Numbering::skip_locked_texts() {
    last_text_ = std::max(last_text_, last_locked_text_);
    return last_locked_text_;
}

} // namespace velform
