// A program that does with a loaded form whatever its script says. For the targets and long runs.
#pragma once

#include <SDL.h>
#include <memory>
#include <string>
#include <vector>

#include "input.h"
#include "velumo.h"

namespace fuzz {

// What a byte of a script begins. Where nothing waits, up to 900 milliseconds go by. Inside a loop
// of the library, the actions before `ends_loop` are done by the event filter; from there on they
// end the loop first.
enum Code : u8 { nothing_waits = 100, acts = 110, ends_loop = 170 }; // events before

class Program {
public:
    // The script is read while the program runs.
    Program(vel_context &ctx, Input &script);
    ~Program();
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    // To the end of the script.
    void run();

    // --- For the steps of the script

    vel_context &ctx() { return ctx_; }
    Input &script() { return script_; }
    // A number of an object or text, mostly one that there is.
    u32 object();
    u32 text();
    vel_object &record();
    // A string that lives as long as the program, with nothing after its NUL.
    char *string();

private:
    bool next_event(SDL_Event &event);
    u32 filter(const SDL_Event &event);
    void step(u8 code);
    void act();

    vel_context &ctx_;
    Input &script_;
    u32 records_, texts_; // how many numbers there are
    std::vector<std::unique_ptr<char[]>> strings_;
    unsigned loops_ = 0;      // that run inside one another
    unsigned idle_polls_ = 0; // since the script ended
    bool is_acting_ = false;
};

} // namespace fuzz
