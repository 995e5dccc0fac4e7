// The C header with the numbers of a form's objects and texts.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "form/form.h"

namespace velform {

// Returns the prefix of the names for a source: its file name in capitals, without the suffix.
std::string prefix_for(std::string_view source_path);

// Valid C11 and C++. Names that would mean two things are reported, at their ids. Where the form is
// embedded, the header declares its data, see embed.
std::string header_text(const Form &form, std::string_view prefix, Diagnostics &diagnostics,
                        bool is_embedded = false);

// Spare records as a header names them, by their id.
struct NamedSpare {
    std::string id;
    std::uint32_t first, count;
    bool operator==(const NamedSpare &) const = default;
};

// The numbers of the objects, read back from what header_text() wrote.
class HeaderNames {
public:
    explicit HeaderNames(const std::string &header);

    // Takes a whole name, or an id, with capitals or without. Returns 0 for unknown ones.
    std::uint32_t object(std::string_view name) const;
    // Without the prefix, in small letters; none of a header that velform has not made.
    std::map<std::string, std::uint32_t> ids() const;

    // Ids by number, and what comes before them in the header, as "NOTES".
    std::map<std::uint32_t, std::string> ids_by_number() const;
    // In the order of the header.
    const std::vector<NamedSpare> &spare() const { return spare_; }
    std::string_view prefix() const {
        return std::string_view(prefix_).substr(0, prefix_.size() - (prefix_.empty() ? 0 : 1));
    }

private:
    std::string prefix_;
    void add_spare(std::string_view name, std::uint32_t number);

    std::map<std::string, std::uint32_t> objects_;
    std::vector<NamedSpare> spare_;
};

} // namespace velform
