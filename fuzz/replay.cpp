// Runs the files named, and those in the folders named, without an engine.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int *count, char ***arguments);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

void run(const std::filesystem::path &path) {
    std::cout << path.filename().string() << std::endl; // seen before it crashes
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
}

} // namespace

int main(int count, char **arguments) {
    LLVMFuzzerInitialize(&count, &arguments);
    for (int k = 1; k < count; ++k) {
        if (!std::filesystem::is_directory(arguments[k])) {
            run(arguments[k]);
            continue;
        }
        for (const auto &entry : std::filesystem::directory_iterator(arguments[k])) {
            run(entry.path());
        }
    }
}
