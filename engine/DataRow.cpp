#include "engine/DataRow.h"

#include "engine/NumberText.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>

namespace korvel::engine {

namespace {

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// The place of the first of these two characters outside quotes, or npos.
std::size_t findOutsideQuotes(std::string_view text, char wanted) {
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"') quoted = !quoted;
        if (text[i] == wanted && !quoted) return i;
    }
    return std::string_view::npos;
}

std::string_view withoutQuotes(std::string_view field) {
    if (field.size() >= 2 && field.front() == '"' && field.back() == '"')
        return trimmed(field.substr(1, field.size() - 2));
    return field;
}

bool isPrintable(std::string_view text) {
    return std::ranges::none_of(text,
                                [](unsigned char code) { return code < 32 || code == 127 || code == '"'; });
}

} // namespace

std::string_view withoutComment(std::string_view line) {
    return trimmed(line.substr(0, findOutsideQuotes(line, ';')));
}

DataRow::DataRow(std::string_view line, int lineNumber) : m_line(lineNumber) {
    for (auto comma = findOutsideQuotes(line, ','); comma != std::string_view::npos;
         comma = findOutsideQuotes(line, ',')) {
        m_fields.push_back(trimmed(line.substr(0, comma)));
        line.remove_prefix(comma + 1);
    }
    m_fields.push_back(trimmed(line));
}

void DataRow::expectFields(std::size_t least, std::size_t most) const {
    if (size() >= least && size() <= most) return;
    const std::string wanted =
        least == most ? std::to_string(least) : std::to_string(least) + " to " + std::to_string(most);
    fail("has " + std::to_string(size()) + " fields where " + wanted + " are wanted");
}

double DataRow::number(std::size_t index, const char* what, double low, double high) const {
    if (index >= size()) return 0;
    const std::string_view field = m_fields[index];
    double value = 0;
    const auto [end, problem] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (problem != std::errc() || end != field.data() + field.size() || !std::isfinite(value))
        fail(std::string(what) + " is not a number");
    if (value < low || value > high)
        fail(std::string(what) + " must lie between " + significant(low) + " and " + significant(high));
    return value;
}

int DataRow::integer(std::size_t index, const char* what, int low, int high) const {
    const double value = number(index, what, low, high);
    if (value != std::floor(value)) fail(std::string(what) + " must be a whole number");
    return static_cast<int>(value);
}

std::string DataRow::text(std::size_t index, const char* what, std::size_t longest) const {
    const std::string_view field = index < size() ? withoutQuotes(m_fields[index]) : std::string_view{};
    if (field.empty()) fail(std::string(what) + " is empty");
    if (field.size() > longest)
        fail(std::string(what) + " has more than " + std::to_string(longest) + " characters");
    if (!isPrintable(field)) fail(std::string(what) + " holds a double quote or a control character");
    return std::string(field);
}

void DataRow::fail(const std::string& message) const {
    throw DataError{m_line, message};
}

} // namespace korvel::engine
