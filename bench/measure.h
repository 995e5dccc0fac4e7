// Processor time and memory, printed as "name value" lines, and the choice of a work by its name.
// For every program of the comparison; compare.py reads the lines.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace measure {

using Work = std::function<void()>;

// Prints the median processor time of one run of the work, in microseconds.
void say_time(const std::string &name, const Work &work);

// The same for several works in turn, so that whatever disturbs the machine disturbs them alike.
struct Named {
    const char *name;
    Work work;
};
void say_times(const std::vector<Named> &works);

void say(const std::string &name, double value);

// From now on, times include the X server, which draws for a program. compare.py names its process
// in X_SERVER_PID; without that, the program ends.
void count_x_server();

// Memory of this process that no file backs, in KiB.
double anonymous_kib();

// Ends the program unless the condition holds: a measured work did something else than intended.
void demand(bool condition, const char *what);

// Runs the one work that the command line names. Returns the exit status.
int run(int argc, char **argv, const std::vector<Named> &works);

} // namespace measure
