#include "engine/RunControl.h"

#include "basic/FieldCharacters.h"
#include "basic/Text.h"

#include <algorithm>

namespace korvel::engine {

namespace {

// The lines without their ends, and without the blank ones at the end of the file.
std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines.push_back(trim(line));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    while (!lines.empty() && (lines.back().empty() || lines.back() == "\x1A"))
        lines.pop_back();
    return lines;
}

RunRequest readRequest(const std::vector<std::string>& lines, std::size_t first) {
    const std::string& name = lines[first + 1];
    const std::string& type = lines[first + 2];
    if (name.empty()) throw DataError{static_cast<int>(first) + 2, "names no data file"};
    if (type.size() != 1 || !isDigit(type[0]))
        throw DataError{static_cast<int>(first) + 3, "is not a run type from 0 to 9"};
    return {name, type[0] - '0'};
}

} // namespace

std::variant<RunControl, DataError> parseRunControl(std::string_view text) {
    const std::vector<std::string> lines = linesOf(text);
    const int count = static_cast<int>(lines.size());
    if (count < 4)
        return DataError{count, "is where the file ends, before a first data file and its run type"};
    RunControl control;
    // Several files under the title SINGLE are a batch of that name.
    if (lines.front() != "SINGLE" || count > 4) control.batchTitle = lines.front();
    try {
        for (std::size_t i = 1; i < lines.size(); i += 3) {
            if (i + 2 >= lines.size())
                throw DataError{count, "is where the file ends, within a data file's three lines"};
            control.requests.push_back(readRequest(lines, i));
        }
    } catch (const DataError& error) {
        return error;
    }
    return control;
}

} // namespace korvel::engine
