// Runs a harness once on every file of its corpus, as a test without the fuzzer.
#include "fuzz/Fuzzing.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace korvel {

namespace {

std::vector<std::filesystem::path> filesIn(const char* folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.is_regular_file()) files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

void replay(const std::filesystem::path& path) {
    std::fprintf(stderr, "%s\n", path.filename().c_str()); // the last one named is the one that fails
    std::ifstream file(path, std::ios::binary);
    // As many bytes as the file has, so that a read beyond them is noticed.
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

} // namespace

} // namespace korvel

using namespace korvel;

int main(int count, char** arguments) {
    if (count != 2) return 2;
    const auto files = filesIn(arguments[1]);
    for (const auto& path : files)
        replay(path);
    std::printf("%zu files replayed\n", files.size());
    return files.empty() ? 1 : 0;
}
