#include "read/matching.h"

#include <tuple>

#include <velumo.h>

namespace velform {
namespace {

// What an object is the same by, as one number for both forms.
class Identities {
public:
    std::vector<std::uint32_t> of(const ReadForm &form) {
        std::vector<std::uint32_t> identities(form.object_count() + 1);
        std::map<std::pair<std::uint32_t, std::uint32_t>, std::uint32_t> ranks;
        for (std::uint32_t object = 1; object <= form.object_count(); ++object) {
            const std::string name = form.name(object);
            if (!name.empty()) {
                identities[object] = number_of(names_, name);
                continue;
            }
            // The compiler numbers a master before what is in it; whatever else there is has none.
            const std::uint32_t master = identities[std::min(form.master(object), object - 1)];
            const std::uint32_t rank = ++ranks[{master, form.type(object)}];
            identities[object] = number_of(places_, std::tuple(master, form.type(object), rank));
        }
        return identities;
    }

private:
    template <typename Key>
    std::uint32_t number_of(std::map<Key, std::uint32_t> &known, const Key &key) {
        const auto [found, is_new] = known.try_emplace(key, last_ + 1);
        if (is_new) ++last_;
        return found->second;
    }

    std::map<std::string, std::uint32_t> names_;
    std::map<std::tuple<std::uint32_t, std::uint32_t, std::uint32_t>, std::uint32_t> places_;
    std::uint32_t last_ = 0;
};

} // namespace

Matching::Matching(const ReadForm &before, const ReadForm &after)
    : after_(before.object_count() + 1), before_(after.object_count() + 1) {
    if (before.has_names() && after.has_names()) {
        Identities identities;
        std::map<std::uint32_t, std::uint32_t> known;
        const auto old = identities.of(before), now = identities.of(after);
        for (std::uint32_t k = 1; k < old.size(); ++k) known.emplace(old[k], k);
        for (std::uint32_t k = 1; k < now.size(); ++k) {
            if (const auto same = known.find(now[k]); same != known.end()) join(same->second, k);
        }
    }
    for (std::uint32_t k = 1; k < std::min(after_.size(), before_.size()); ++k) {
        const bool are_left = after_[k] == 0 && before_[k] == 0;
        if (are_left && before.type(k) == after.type(k)) join(k, k);
    }
}

void Matching::join(std::uint32_t before, std::uint32_t after) {
    after_[before] = after;
    before_[after] = before;
}

} // namespace velform
