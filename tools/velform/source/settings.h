// What a form source says about the fields of one object or style.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <variant>

#include "base/diagnostics.h"
#include "form/record_table.h"

namespace velform {

struct Setting {
    using Value = std::variant<std::int64_t, std::string>;
    Value value;
    Position where;
    bool is_faulty = false; // was reported; the value is in place of the wrong one

    std::int64_t number() const { return std::get<std::int64_t>(value); }
    const std::string &string() const { return std::get<std::string>(value); }
};

class Settings {
public:
    std::optional<Setting> &operator[](Field f) { return settings_[static_cast<std::size_t>(f)]; }
    const std::optional<Setting> &operator[](Field f) const {
        return settings_[static_cast<std::size_t>(f)];
    }

    bool has_faults() const {
        for (const std::optional<Setting> &setting : settings_) {
            if (setting && setting->is_faulty) return true;
        }
        return false;
    }

    // All that the other does not say counts as wrong and reported.
    void mark_faulty_unless_in(const Settings &other) {
        for (std::size_t k = 0; k < field_count; ++k) {
            if (settings_[k] && !other.settings_[k]) settings_[k]->is_faulty = true;
        }
    }

    // What the other says wins.
    void overlay(const Settings &other) {
        for (std::size_t k = 0; k < field_count; ++k) {
            if (other.settings_[k]) settings_[k] = other.settings_[k];
        }
    }

private:
    std::array<std::optional<Setting>, field_count> settings_;
};

} // namespace velform
