// What a part of the library keeps with the context from one call to the next, as the state holds
// it without knowing what it is. For drawing and text layout.
#pragma once

#include <memory>

namespace velumo {

class Kept {
public:
    Kept() = default;
    virtual ~Kept() = default;
    Kept(const Kept &) = delete;
    Kept &operator=(const Kept &) = delete;
};

// Makes it when there is none yet. Throws std::bad_alloc.
template <class Part> Part &kept(std::unique_ptr<Kept> &place) {
    if (place == nullptr) place = std::make_unique<Part>();
    return static_cast<Part &>(*place);
}

} // namespace velumo
