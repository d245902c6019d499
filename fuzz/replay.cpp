// In the place of the fuzzer: gives a target the bytes of every file in a folder, each once.
//
//   fuzz_NAME FOLDER
//
// Prints each file before it is tried, so that the last line names the one that did not pass.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
extern "C" [[gnu::weak]] int LLVMFuzzerInitialize(int *count, char ***arguments);

int main(int count, char **arguments)
{
    if (count != 2) {
        std::fprintf(stderr, "%s FOLDER\n", arguments[0]);
        return 2;
    }
    if (LLVMFuzzerInitialize)
        LLVMFuzzerInitialize(&count, &arguments);

    std::error_code error;
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::directory_iterator(arguments[1], error))
        files.push_back(entry.path());
    if (files.empty()) {
        std::fprintf(stderr, "nothing to replay in %s\n", arguments[1]);
        return 1;
    }
    std::sort(files.begin(), files.end());
    for (const auto &file : files) {
        std::puts(file.filename().c_str());
        std::fflush(stdout);
        std::ifstream stream(file, std::ios::binary);
        if (!stream) {
            std::fprintf(stderr, "%s cannot be read\n", file.c_str());
            return 1;
        }
        // As large as the file, so that a read beyond its end is noticed.
        const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
        const std::vector<std::uint8_t> exact(bytes.begin(), bytes.end());
        LLVMFuzzerTestOneInput(exact.data(), exact.size());
    }
    std::printf("%zu files\n", files.size());
    return 0;
}
