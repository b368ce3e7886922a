// The inputs of one harness, kept in one file (tools/corpus.py packs and unpacks it).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvel {

struct CorpusInput {
    std::string name;
    std::string_view bytes;
};

// Throws std::runtime_error where the text is no corpus, is cut off, or holds more or fewer inputs than it
// counts.
std::vector<CorpusInput> corpusInputs(std::string_view text);

} // namespace korvel
