#include "commands/Words.h"

#include "basic/Text.h"
#include "commands/CommandLine.h"

#include <algorithm>
#include <charconv>

namespace korvel {

namespace {

struct ReachRange {
    int first = 0;
    int last = 0;

    bool holds(int reach) const { return reach >= first && reach <= last; }
};

ReachRange reachRange(const std::string& part) {
    const auto dash = part.find('-');
    const auto first = wholeNumber(part.substr(0, dash));
    const auto last = dash == std::string::npos ? first : wholeNumber(part.substr(dash + 1));
    if (!first || !last || *first > *last) throw UsageError("'" + part + "' is no reach number or range");
    return {*first, *last};
}

std::size_t namedAt(const std::vector<std::string>& names, const std::string& part, int firstPosition,
                    const std::string& what) {
    const auto position = wholeNumber(part);
    const int count = static_cast<int>(names.size());
    if (!position || *position < firstPosition || *position - firstPosition >= count)
        throw UsageError("the results have no " + what + " '" + part + "'");
    return static_cast<std::size_t>(*position - firstPosition);
}

} // namespace

std::vector<std::string> partsOf(const std::string& list) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t comma; (comma = list.find(',', start)) != std::string::npos; start = comma + 1)
        parts.push_back(trim(list.substr(start, comma - start)));
    parts.push_back(trim(list.substr(start)));
    return parts;
}

std::optional<int> wholeNumber(const std::string& text) {
    int number = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number);
    if (text.empty() || text[0] == '-' || read.ptr != end || read.ec != std::errc()) return std::nullopt;
    return number;
}

std::vector<bool> reachesNamed(const std::string& list, const std::vector<int>& reachOrder) {
    std::vector<bool> chosen(reachOrder.size(), list == "all");
    if (list == "all" || list == "none") return chosen;
    for (const std::string& part : partsOf(list)) {
        const ReachRange range = reachRange(part);
        if (!std::ranges::any_of(reachOrder, [&](int reach) { return range.holds(reach); }))
            throw UsageError("the results have no reach " + part);
        for (std::size_t i = 0; i < chosen.size(); ++i)
            if (range.holds(reachOrder[i])) chosen[i] = true;
    }
    return chosen;
}

std::size_t takeNamed(const std::vector<std::string>& names, std::string& list, int firstPosition,
                      const std::string& what) {
    std::size_t found = names.size();
    std::size_t end = std::min(list.find(','), list.size());
    for (std::size_t i = 0; i < names.size() && found == names.size(); ++i) {
        const std::string name = shownUtf8(names[i]);
        const std::string rest = beginsWith(list, name) ? trimLeft(list.substr(name.size())) : "?";
        if (!rest.empty() && rest[0] != ',') continue;
        found = i;
        end = list.size() - rest.size();
    }
    if (found == names.size()) found = namedAt(names, trim(list.substr(0, end)), firstPosition, what);
    list = end < list.size() ? trimLeft(list.substr(end + 1)) : "";
    return found;
}

} // namespace korvel
