// Runs a harness once on every input of its corpus, as a test without the fuzzer.
#include "fuzz/Corpus.h"
#include "fuzz/Fuzzing.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <iterator>

namespace korvel {

namespace {

std::string contents(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void replay(const CorpusInput& input) {
    std::fprintf(stderr, "%s\n", input.name.c_str()); // the last one named is the one that fails
    // As many bytes as the input has, so that a read beyond them is noticed.
    const std::vector<char> bytes(input.bytes.begin(), input.bytes.end());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

int replayAll(const char* path) {
    const std::string text = contents(path);
    const auto inputs = corpusInputs(text);
    for (const CorpusInput& input : inputs)
        replay(input);
    std::printf("%zu inputs replayed\n", inputs.size());
    return inputs.empty() ? 1 : 0;
}

} // namespace

} // namespace korvel

int main(int count, char** arguments) {
    if (count != 2) return 2;
    try {
        return korvel::replayAll(arguments[1]);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s: %s\n", arguments[1], failure.what());
        return 1;
    }
}
