#include "fuzz/Corpus.h"

#include <charconv>
#include <stdexcept>

namespace korvel {

namespace {

std::string_view takeLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos) throw std::runtime_error("The corpus is cut off");
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end + 1);
    return line;
}

std::size_t numberIn(std::string_view digits) {
    std::size_t number = 0;
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (failure != std::errc() || end != digits.data() + digits.size())
        throw std::runtime_error("The corpus has no number where one ought to be");
    return number;
}

CorpusInput takeInput(std::string_view& text) {
    const std::string_view line = takeLine(text);
    const std::size_t blank = line.rfind(' ');
    if (blank == std::string_view::npos) throw std::runtime_error("An input has no size");
    const std::size_t size = numberIn(line.substr(blank + 1));
    if (size >= text.size() || text[size] != '\n') throw std::runtime_error("An input is cut off");
    CorpusInput input{std::string(line.substr(0, blank)), text.substr(0, size)};
    text.remove_prefix(size + 1);
    return input;
}

} // namespace

std::vector<CorpusInput> corpusInputs(std::string_view text) {
    constexpr std::string_view head = "korvel corpus ";
    const std::string_view line = takeLine(text);
    if (!line.starts_with(head)) throw std::runtime_error("This is no corpus");
    std::vector<CorpusInput> inputs;
    for (std::size_t left = numberIn(line.substr(head.size())); left > 0; --left)
        inputs.push_back(takeInput(text));
    if (!text.empty()) throw std::runtime_error("The corpus holds more inputs than it counts");
    return inputs;
}

} // namespace korvel
