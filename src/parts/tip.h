// Tips: short texts that show when the pointer rests. For the loops.
#pragma once

#include "input/events.h"

namespace velumo {

// Shows tips while a loop runs, and moves what moves by itself: the blocks of endless progress.
class Tips {
public:
    explicit Tips(vel_context &ctx);
    ~Tips();
    Tips(const Tips &) = delete;
    Tips &operator=(const Tips &) = delete;

    // After each poll of the loop.
    void follow(Polled polled);

private:
    void look_at(const SDL_Event &event);
    void show();
    void hide();

    vel_context &ctx_;
    i64 x_ = 0, y_ = 0;
    std::chrono::milliseconds at_rest_since_, next_move_;
    bool is_shown_ = false;
    bool may_show_ = true; // once for each rest
};

} // namespace velumo
