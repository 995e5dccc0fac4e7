// Starting the program, and looking at what it leaves.
#pragma once

#include <algorithm>
#include <sys/wait.h>

#include "support.h"

namespace test {

struct Result {
    int status = -1; // -1 when it was ended by a signal
    std::string output;
};

inline Result shell(const std::string &command) {
    Result result;
    FILE *pipe = popen((command + " 2>&1").c_str(), "r");
    char block[4096];
    while (const std::size_t count = std::fread(block, 1, sizeof block, pipe)) {
        result.output.append(block, count);
    }
    const int code = pclose(pipe);
    if (WIFEXITED(code)) result.status = WEXITSTATUS(code);
    return result;
}

inline Result run(const std::string &arguments) { return shell(VELFORM_PATH " " + arguments); }

inline std::string contents(const std::string &path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::vector<std::string> names_in(const Folder &folder) {
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(folder.file(""))) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

} // namespace test
