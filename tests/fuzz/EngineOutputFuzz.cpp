// What the engine says in its window. The first byte tells how often the others come (a long line is broken
// somewhere), the second how they are cut.
#include "basic/Text.h"
#include "fuzz/Fuzzing.h"
#include "runs/EngineOutput.h"

#include <random>

namespace korvel {

namespace {

constexpr std::size_t longestLine = 1000;

struct Shown {
    std::vector<std::string> lines;
    std::string open;
    std::string fileInHand;
    bool operator==(const Shown&) const = default;
};

// `length` gives the length of each next piece.
Shown feedInPieces(std::string_view bytes, auto&& length) {
    EngineOutput output;
    Shown shown;
    while (!bytes.empty()) {
        const std::string_view piece = bytes.substr(0, length());
        for (std::string& line : output.feed(piece))
            shown.lines.push_back(std::move(line));
        bytes.remove_prefix(piece.size());
    }
    shown.open = output.openLine();
    shown.fileInHand = output.fileInHand();
    return shown;
}

// What stands last on a line that carriage returns begin anew.
std::string afterReturns(std::string line) {
    if (line.ends_with('\r')) line.pop_back();
    return line.substr(line.rfind('\r') + 1);
}

// The same where no line is too long.
std::vector<std::string> plainlyShown(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
        lines.push_back(afterReturns(text.substr(start, end - start)));
    lines.push_back(afterReturns(text.substr(start)));
    return lines;
}

bool hasLongLine(const std::string& text) {
    std::size_t length = 0;
    for (const char c : text) {
        length = c == '\n' ? 0 : length + 1;
        if (length >= longestLine) return true;
    }
    return false;
}

void requireLines(const Shown& shown) {
    bool fileInHandCame = shown.fileInHand.empty();
    for (const std::string& line : shown.lines) {
        require(line.size() <= longestLine, "a line is broken before it is too long");
        require(line.find_first_of("\r\n") == std::string::npos, "lines have no ends");
        utf8Characters(shownUtf8(line));
        fileInHandCame |= line == shown.fileInHand;
    }
    require(shown.open.size() < longestLine, "so is the open line");
    require(fileInHandCame, "the file in hand was told by a line");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    const std::string part = textOf(data + 2, size - 2);
    std::string text = part;
    for (int k = data[0] % 8; k > 0; --k)
        text += part;

    const Shown shown = feedInPieces(text, [&] { return text.size(); });
    requireLines(shown);
    std::minstd_rand random(data[1]);
    require(feedInPieces(text, [&] { return random() % 40; }) == shown, "pieces may be cut anywhere");
    require(feedInPieces(text, [] { return std::size_t(1); }) == shown, "bytes may come one by one");
    if (hasLongLine(text)) return 0;
    std::vector<std::string> lines = shown.lines;
    lines.push_back(shown.open);
    require(lines == plainlyShown(text), "every line is shown");
    return 0;
}

} // namespace korvel
